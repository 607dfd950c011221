#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "commands/fileUses.h"

namespace velmar::tool {
namespace {

struct InfoOptions {
    std::vector<std::string> inputs;
    bool json = false;
    std::size_t workers = 0;
};

FileDescription describe(const std::string& path) {
    const FileHead head = readFileHead(path);
    FileDescription description{.json = {{"file", path},
                                         {"keyword", head.keyword},
                                         {"type", head.kind.type},
                                         {"kind", head.kind.name},
                                         {"title", head.title}},
                                .text = path + "\n",
                                .notice = {}};
    description.addLine("file type", fmt::format("{} ({} {})", head.kind.name, head.keyword, head.kind.type));
    if (!head.title.empty()) description.addLine("title", head.title);
    usesOf(head).describe(head, description);
    return description;
}

int runInfo(const InfoOptions& options) {
    std::vector<Job> jobs;
    for (const std::string& input : options.inputs) jobs.push_back({input, "-", {}, {}});
    Json list = Json::array();
    std::string text;
    const int exitCode = runJobs(jobs, options.workers, [&](const Job& job, Reporter& reporter) {
        const FileDescription description = describe(job.input);
        reporter.tell(job.input, description.notice);
        reporter.awaitTurn();
        if (options.json)
            list.push_back(description.json);
        else
            text += description.text;
    });
    if (options.json && (jobs.size() > 1 || !list.empty())) {
        const Json& result = jobs.size() > 1 ? list : list.front();
        // A file's name can be in any encoding.
        text = result.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    }
    writeOutput("-", text);
    return exitCode;
}

}  // namespace

void addInfoCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* command = program.add_subcommand("info", "Say what files are and what is in them");
    command->add_option("FILE", options->inputs, "Files of the diamond family")->required();
    command->add_flag("--json", options->json,
                      "Answer in JSON: an object for one file, an array for several");
    addWorkersOption(*command, options->workers);
    command->callback([options, &exitCode] { exitCode = runInfo(*options); });
}

}  // namespace velmar::tool
