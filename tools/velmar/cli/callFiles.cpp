#include "cli/callFiles.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include "common/text.h"

namespace velmar::tool {
namespace {

/// What tells a file from all others: its path and, if there is such a file yet, its number on its device, which is the
/// same for all its names and links, also where upper and lower case make no difference.
std::vector<std::string> identitiesOf(const std::string& name) {
    std::vector<std::string> identities{targetOf(name).string()};
    struct stat status {};
    if (stat(identities.front().c_str(), &status) == 0)
        identities.push_back(fmt::format("{}:{}", status.st_dev, status.st_ino));
    return identities;
}

}  // namespace

std::filesystem::path targetOf(const std::string& name) {
    std::error_code error;
    std::filesystem::path path = std::filesystem::weakly_canonical(name, error);
    if (!error) path = std::filesystem::absolute(path, error);
    return error ? std::filesystem::path(name) : path;
}

CallFiles::CallFiles(const OutputOptions& options) {
    for (const auto* inputs : {&options.inputs, &options.furtherInputs})
        for (const std::string& input : *inputs)
            for (const std::string& identity : identitiesOf(input))
                uses_.emplace(identity, fmt::format("would overwrite the input {}", input));
}

void CallFiles::claim(const std::string& output, const std::string& input) {
    if (output == "-") return;
    const std::vector<std::string> identities = identitiesOf(output);
    for (const std::string& identity : identities)
        if (const auto use = uses_.find(identity); use != uses_.end())
            throw Problem(fmt::format("its output {} {}", output, use->second));
    for (const std::string& identity : identities)
        uses_.emplace(identity, fmt::format("is already that of {}", input));
}

}  // namespace velmar::tool
