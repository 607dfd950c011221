#include <fmt/format.h>

#include <memory>

#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "commands/fileUses.h"
#include "describe/description.h"
#include "write/jsonText.h"

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
    if (options.json && (jobs.size() > 1 || !list.empty()))
        text = jsonText(jobs.size() > 1 ? list : list.front());
    writeOutput("-", text);
    return exitCode;
}

}  // namespace

void addInfoCommand(Program& program) {
    const auto options = std::make_shared<InfoOptions>();
    Command command = program.addCommand("info", "Say what files are and what is in them");
    command.addOption("FILE", options->inputs, "Files of the diamond family").required();
    command.addFlag("--json", options->json, "Answer in JSON: an object for one file, an array for several");
    addWorkersOption(command, options->workers);
    command.onRun([options] { return runInfo(*options); });
}

}  // namespace velmar::tool
