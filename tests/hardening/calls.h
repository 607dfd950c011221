#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velmar::test {

/// What a call of an export works on. Without numbers its arrays are null.
struct Input {
    const char* path;
    const float* numbers;
};

/// All that a host sees of a call's outcome: the bytes of a block, or its code, or "null", and the other outputs.
using Seen = std::string;

struct Call {
    const char* name;            ///< of the export
    const char* sample;          ///< that it reads; null when it reads no file
    Seen refused;                ///< the outcome of a file that cannot be opened, or of null arrays
    std::vector<Seen> noMemory;  ///< outcomes of a lack of memory
    std::function<Seen(const Input& input)> run;
};

/// A call of each export.
const std::vector<Call>& calls();

/// The outcome of a call on what it is made for.
Seen runWell(const Call& call);

/// The outcome of a call on a file of this path, or on null arrays.
Seen runBadly(const Call& call, const char* path);

/// Open files of this process.
std::size_t openFiles();

}  // namespace velmar::test
