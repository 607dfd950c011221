#include "callFiles.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <filesystem>

#include "problem.h"

namespace velmar::tool {
namespace {

namespace fs = std::filesystem;

/// The number of a file on its device: all its names and links have it, in upper or lower case where that is one
/// name. A file that is yet to be made has its path only.
std::string identityOf(const std::string& name) {
    struct stat status {};
    if (stat(name.c_str(), &status) == 0) return fmt::format("{}:{}", status.st_dev, status.st_ino);
    std::error_code error;
    const fs::path path = fs::weakly_canonical(fs::absolute(name, error), error);
    return error ? name : path.string();
}

}  // namespace

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
