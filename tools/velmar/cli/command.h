#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace velmar::tool {

/// The program has been called in a way that makes no sense. It says so, mentions --help, and ends with wrongUsage.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
    UsageError(const std::string& option, const std::string& sentence);
};

/// An option or a positional argument of a command. What says more about it returns the option again.
class Option {
public:
    explicit Option(CLI::Option* option) : option_(option) {}

    Option required();
    Option within(int least, int most);
    Option within(double least, double most);
    Option positive();
    Option notNegative();
    Option oneOf(const std::vector<std::string>& words);
    /// Not together with another option, which has been added already.
    Option excludes(const std::string& name);
    /// The help tells the value that the variable has now.
    Option showsDefault();
    /// The help shows dots behind an option that may be given several times.
    Option showsRepetition();

private:
    CLI::Option* option_;
};

/// A command while its options are declared. What an option fills must live as long as the program. "FILE" is the name of
/// a positional argument, "-o,--output" are those of an option, and "!--no-wind" is a flag that sets its variable to
/// false.
class Command {
public:
    Command(CLI::App& parser, int& exitCode) : parser_(&parser), exitCode_(&exitCode) {}

    /// A word or number. The values are std::string, std::vector<std::string>, int, std::optional<int>, std::size_t and
    /// float.
    template <class Value>
    Option addOption(const std::string& names, Value& value, const std::string& meaning);
    /// A word that a function understands, or throws a UsageError.
    Option addParsedOption(const std::string& names, const std::function<void(const std::string&)>& take,
                           const std::string& meaning);
    /// The same for an option that may be given several times, with one word each time.
    Option addRepeatedOption(const std::string& names,
                             const std::function<void(const std::vector<std::string>&)>& take,
                             const std::string& meaning);
    /// One of some words, taken by its place among them.
    Option addChoice(const std::string& names, const std::vector<std::string>& words,
                     const std::function<void(std::size_t)>& take, const std::string& meaning);
    Option addFlag(const std::string& names, bool& value, const std::string& meaning);
    Option addFlag(const std::string& names, const std::function<void()>& take, const std::string& meaning);
    /// A flag that may have a word, as in --fill=speed; "true" is the word of the flag alone.
    Option addFlagWithWord(const std::string& name, const std::function<void(const std::string&)>& take,
                           const std::string& meaning);
    /// Options of which exactly one has to be given.
    Command addAlternatives(const std::string& name);

    /// What the help says below the options.
    void explain(const std::string& text);
    bool isGiven(const std::string& name) const;
    /// What the command does; it returns the exit code.
    void onRun(const std::function<int()>& run);

private:
    CLI::App* parser_;
    int* exitCode_;
};

/// The program with its commands. Nothing else knows the parser of command lines.
class Program {
public:
    Program(const std::string& name, const std::string& purpose, const std::string& version);
    ~Program();

    Command addCommand(const std::string& name, const std::string& purpose);
    /// Does what the user says, and returns the exit code.
    int run(int argc, char** argv);

private:
    std::unique_ptr<CLI::App> parser_;
    int exitCode_ = 0;
};

}  // namespace velmar::tool
