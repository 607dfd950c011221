#include "cli/callFiles.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include "cli/problem.h"

namespace velmar::tool {
namespace {

/// What tells a file from all others. Its number on its device is the same for all its names and links, also
/// where upper and lower case make no difference; a file that is yet to be made has only its path.
std::string identityOf(const std::string& name) {
    const std::string path = targetOf(name).string();
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? fmt::format("{}:{}", status.st_dev, status.st_ino) : path;
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
            uses_.emplace(identityOf(input), fmt::format("would overwrite the input {}", input));
}

void CallFiles::claim(const std::string& output, const std::string& input) {
    if (output == "-") return;
    const auto [use, isNew] = uses_.emplace(identityOf(output), fmt::format("is already that of {}", input));
    if (!isNew) throw Problem(fmt::format("its output {} {}", output, use->second));
}

}  // namespace velmar::tool
