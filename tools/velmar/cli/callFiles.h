#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "cli/jobs.h"

namespace velmar::tool {

/// The whole path of the file that a name stands for: a link leads to another one.
std::filesystem::path targetOf(const std::string& name);

/// The files of one call of the program. Nothing that the call reads is ever written, and no two results go to
/// one file, whatever names and links lead there.
class CallFiles {
public:
    explicit CallFiles(const OutputOptions& options);

    /// Keeps an output for the result of an input; a Problem when the call reads it or another result goes there.
    void claim(const std::string& output, const std::string& input);

private:
    std::map<std::string, std::string> uses_;  ///< in words, by what tells one file from another
};

}  // namespace velmar::tool
