#include "read/windFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/numbers.h"
#include "cli/problem.h"
#include "compute/blockReader.h"

namespace velmar::tool {
namespace {

/// What an error code of the reader of wind files means, in words.
std::string windReaderProblem(int code) {
    constexpr const char* reason =
        "the file holds fewer values than its header says, or something else than numbers";
    switch (code) {
        case -1:
        case -2:
            return readerProblem(code);
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

files::FieldHeader readHeader(BlockReader& in) {
    files::FieldHeader header{};
    const auto whole = [&] { return base::truncateToInt(in.value()); };
    for (int* field :
         {&header.year, &header.month, &header.day, &header.hour, &header.forecastHour, &header.level})
        *field = whole();
    grid::Lattice& lattice = header.lattice;
    for (float* field : {&lattice.longitudeStep, &lattice.latitudeStep, &lattice.startLongitude,
                         &lattice.endLongitude, &lattice.startLatitude, &lattice.endLatitude})
        *field = in.value();
    header.nx = whole();
    header.ny = whole();
    return header;
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

bool isWindFile(const FileHead& head) { return head.kind.type == windFileType; }

WindFile readWindFile(const std::string& path, const FileHead& head) {
    if (!isWindFile(head))
        throw Problem(fmt::format("it holds something else than a wind grid (type {}): {} (type {})",
                                  windFileType, head.kind.name, head.kind.type));
    WindFile file{
        .header = {}, .title = head.title, .titleBytes = head.titleBytes, .block = {}, .u = {}, .v = {}};
    file.block = ownedBlock(readVelmarData11(path.c_str()));
    if (file.block[0] < 0) throw Problem(windReaderProblem(static_cast<int>(file.block[0])));
    BlockReader in(file.block.get() + 1);
    file.header = readHeader(in);
    requireFinite(file.header.lattice);
    requireFinite(computedEnds(file.header));
    const auto [nx, ny] = std::pair(file.header.nx, file.header.ny);
    constexpr int mostExact = 1 << 24;  // counts travel as floats
    if (std::max(nx, ny) >= mostExact) throw Problem("it has too many columns or rows");
    const std::size_t count = grid::valueCount(nx, ny);
    file.u = {.values = in.values(count).data(), .nx = nx, .ny = ny};
    file.v = {.values = in.values(count).data(), .nx = nx, .ny = ny};
    return file;
}

}  // namespace velmar::tool
