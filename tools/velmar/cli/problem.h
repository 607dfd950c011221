#pragma once

#include <stdexcept>
#include <string>

namespace velmar::tool {

/// Something that went wrong with one file, told to the user in a sentence. The sentence does not name the
/// file: whoever reports it does.
struct Problem : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// What an error code of the readers of grid files means, in words.
std::string readerProblem(int code);

}  // namespace velmar::tool
