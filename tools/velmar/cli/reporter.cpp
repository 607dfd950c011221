#include "cli/reporter.h"

#include <fmt/format.h>
#include <unistd.h>

#include <string>

#include "cli/standardStreams.h"

namespace velmar::tool {

Reporter::Reporter(std::size_t fileCount)
    : fileCount_(fileCount), showsBar_(fileCount > 1 && isatty(STDERR_FILENO) == 1) {
    drawBar();
}

void Reporter::tell(std::string_view file, std::string_view sentence) {
    if (sentence.empty()) return;
    eraseBar();
    writeStandardError(fmt::format("velmar: {}: {}\n", file, sentence));
    drawBar();
}

void Reporter::fileDone() {
    ++done_;
    drawBar();
}

void Reporter::eraseBar() {
    if (showsBar_) writeStandardError("\r\033[K");
}

void Reporter::drawBar() {
    if (!showsBar_) return;
    constexpr std::size_t width = 40;
    const std::size_t filled = width * done_ / fileCount_;
    writeStandardError(
        fmt::format("\r[{:<{}}] {} of {}", std::string(filled, '='), width, done_, fileCount_));
}

}  // namespace velmar::tool
