#pragma once

#include <cstddef>
#include <string_view>

namespace velmar::tool {

/// Speaks to the user on standard error: problems and notices, and a progress bar where that is a terminal
/// and there is more than one file.
class Reporter {
public:
    explicit Reporter(std::size_t fileCount);
    Reporter(const Reporter&) = delete;
    Reporter& operator=(const Reporter&) = delete;
    ~Reporter() { eraseBar(); }

    /// Says something about a file; an empty sentence is not said.
    void tell(std::string_view file, std::string_view sentence);
    void fileDone();

private:
    void eraseBar();
    void drawBar();

    std::size_t fileCount_;
    std::size_t done_ = 0;
    bool showsBar_;
};

}  // namespace velmar::tool
