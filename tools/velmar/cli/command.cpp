#include "cli/command.h"

#include <CLI/CLI.hpp>
#include <map>
#include <optional>
#include <sstream>

#include "cli/jobs.h"
#include "cli/output.h"

namespace velmar::tool {

UsageError::UsageError(const std::string& option, const std::string& sentence)
    : std::runtime_error(option + ": " + sentence) {}

Option Option::required() {
    option_->required();
    return *this;
}

Option Option::within(int least, int most) {
    option_->check(CLI::Range(least, most));
    return *this;
}

Option Option::within(double least, double most) {
    option_->check(CLI::Range(least, most));
    return *this;
}

Option Option::positive() {
    option_->check(CLI::PositiveNumber);
    return *this;
}

Option Option::notNegative() {
    option_->check(CLI::NonNegativeNumber);
    return *this;
}

Option Option::oneOf(const std::vector<std::string>& words) {
    option_->check(CLI::IsMember(words));
    return *this;
}

Option Option::excludes(const std::string& name) {
    option_->excludes(name);
    return *this;
}

Option Option::showsDefault() {
    option_->capture_default_str();
    return *this;
}

Option Option::showsRepetition() {
    option_->expected(1, CLI::detail::expected_max_vector_size)->allow_extra_args(false);
    return *this;
}

template <class Value>
Option Command::addOption(const std::string& names, Value& value, const std::string& meaning) {
    return Option(parser_->add_option(names, value, meaning));
}

template Option Command::addOption(const std::string&, std::string&, const std::string&);
template Option Command::addOption(const std::string&, std::vector<std::string>&, const std::string&);
template Option Command::addOption(const std::string&, int&, const std::string&);
template Option Command::addOption(const std::string&, std::optional<int>&, const std::string&);
template Option Command::addOption(const std::string&, std::size_t&, const std::string&);
template Option Command::addOption(const std::string&, float&, const std::string&);

Option Command::addParsedOption(const std::string& names, const std::function<void(const std::string&)>& take,
                                const std::string& meaning) {
    return Option(parser_->add_option_function(names, take, meaning));
}

Option Command::addRepeatedOption(const std::string& names,
                                  const std::function<void(const std::vector<std::string>&)>& take,
                                  const std::string& meaning) {
    return Option(parser_->add_option_function(names, take, meaning)->expected(1)->take_all());
}

Option Command::addChoice(const std::string& names, const std::vector<std::string>& words,
                          const std::function<void(std::size_t)>& take, const std::string& meaning) {
    std::map<std::string, std::size_t> places;
    for (std::size_t k = 0; k < words.size(); ++k) places[words[k]] = k;
    return Option(parser_->add_option_function<std::size_t>(names, take, meaning)
                      ->transform(CLI::CheckedTransformer(places).description(""))
                      ->type_name("ENUM"));
}

Option Command::addFlag(const std::string& names, bool& value, const std::string& meaning) {
    return Option(parser_->add_flag(names, value, meaning));
}

Option Command::addFlag(const std::string& names, const std::function<void()>& take,
                        const std::string& meaning) {
    return Option(parser_->add_flag_callback(names, take, meaning));
}

Option Command::addFlagWithWord(const std::string& name, const std::function<void(const std::string&)>& take,
                                const std::string& meaning) {
    const auto check = [take](const std::string& word) {
        take(word);
        return std::string();
    };
    return Option(parser_->add_flag(name)->description(meaning)->check(check));
}

Command Command::addAlternatives(const std::string& name) {
    CLI::Option_group* const group = parser_->add_option_group(name);
    group->require_option(1);
    return {*group, *exitCode_};
}

void Command::explain(const std::string& text) { parser_->footer(text); }

bool Command::isGiven(const std::string& name) const { return parser_->count(name) > 0; }

void Command::onRun(const std::function<int()>& run) {
    parser_->callback([run, exitCode = exitCode_] { *exitCode = run(); });
}

Program::Program(const std::string& name, const std::string& purpose, const std::string& version)
    : parser_(std::make_unique<CLI::App>(purpose)) {
    parser_->name(name);
    parser_->set_version_flag("--version", name + " " + version);
    parser_->require_subcommand(1);
}

Program::~Program() = default;

Command Program::addCommand(const std::string& name, const std::string& purpose) {
    return {*parser_->add_subcommand(name, purpose), exitCode_};
}

int Program::run(int argc, char** argv) {
    const auto tell = [this](const CLI::ParseError& error) {
        std::ostringstream answer;
        std::ostringstream complaint;
        const int code = parser_->exit(error, answer, complaint);
        writeStandardError(complaint.str());
        writeOutput("-", answer.str());
        return code == 0 ? success : wrongUsage;
    };
    try {
        parser_->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return tell(error);
    } catch (const UsageError& error) {
        return tell(CLI::ValidationError(error.what()));
    }
    return exitCode_;
}

}  // namespace velmar::tool
