#include "read/windFile.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "base/scanner.h"
#include "common/text.h"
#include "files/windFile.h"

namespace velmar::tool {
namespace {

/// What an error code of the reader of wind files means, in words.
std::string windReaderProblem(int code) {
    constexpr const char* reason =
        "the file holds fewer values than its header says, or something else than numbers";
    switch (code) {
        case -2:
            return gridReaderProblem(code);
        case -3:
            return "it is not a wind file: its keyword is not \"diamond\"";
        case -4:
            return "its header cannot be read: 14 numbers are expected behind the title, which must not hold "
                   "a blank, the last two, the columns and the rows, above 0";
        case -5:
        case -7:
            return fmt::format("a value of the eastward wind cannot be read: {}", reason);
        case -6:
        case -8:
            return fmt::format("a value of the northward wind cannot be read: {}", reason);
        default:
            return fmt::format("the library refused it with code {}", code);
    }
}

/// The lattice with the ends that follow from steps and counts, a column further for a field that is closed.
grid::Lattice computedEnds(const files::FieldHeader& header) {
    grid::Lattice lattice = header.lattice;
    lattice.endLongitude = lattice.startLongitude + static_cast<float>(header.nx) * lattice.longitudeStep;
    lattice.endLatitude = lattice.startLatitude + static_cast<float>(header.ny) * lattice.latitudeStep;
    return lattice;
}

}  // namespace

float windSpeed(float u, float v) {
    const bool present = isPresent(u) && isPresent(v);
    return present ? std::sqrt(u * u + v * v) : grid::missingInFiles;
}

WindGrid readWindFile(const FileHead& head) {
    if (head.kind.content != FileContent::wind)
        throw Problem(fmt::format("it holds something else than a wind grid (type {}): {} (type {})",
                                  windFileType, head.kind.name, head.kind.type));
    base::TextScanner in(head.file.view());
    grid::Lattice lattice{};
    auto wind = files::readWindFile(in, lattice);
    if (!wind) throw Problem(windReaderProblem(wind.failure().code));
    requireFinite(wind->header.lattice);
    requireFinite(computedEnds(wind->header));
    WindGrid file{.header = wind->header,
                  .title = head.title,
                  .titleBytes = head.titleBytes,
                  .storage = std::make_unique<std::array<grid::Grid, 2>>(
                      std::array{std::move(wind->u), std::move(wind->v)}),
                  .u = {},
                  .v = {}};
    file.u = (*file.storage)[0].view();
    file.v = (*file.storage)[1].view();
    return file;
}

}  // namespace velmar::tool
