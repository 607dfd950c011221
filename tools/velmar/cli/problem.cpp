#include "cli/problem.h"

#include <fmt/format.h>

namespace velmar::tool {

std::string readerProblem(int code) {
    switch (code) {
        case -1:
            return "the file cannot be opened";
        case -2:
            return "its first line cannot be read: a keyword, a type number and a title are expected";
        case -3:
            return "it is not a grid file: its type number is not 4";
        case -4:
            return "it is not a grid file: its keyword is not \"diamond\"";
        case -5:
            return "its header cannot be read: 19 numbers are expected behind the title, which must not hold "
                   "a blank";
        case -6:
        case -7:
            return "a data value cannot be read: the file holds fewer values than its header says, or "
                   "something else "
                   "than numbers";
        default:
            return fmt::format("the library refused it with code {}", code);
    }
}

}  // namespace velmar::tool
