#include "windFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "blockReader.h"
#include "frame/block.h"
#include "frame/numbers.h"
#include "problem.h"

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

frame::FieldHeader readHeader(BlockReader& in) {
    frame::FieldHeader header{};
    const auto whole = [&] { return frame::truncateToInt(in.value()); };
    for (int* field :
         {&header.year, &header.month, &header.day, &header.hour, &header.forecastHour, &header.level})
        *field = whole();
    frame::Lattice& lattice = header.lattice;
    for (float* field : {&lattice.longitudeStep, &lattice.latitudeStep, &lattice.startLongitude,
                         &lattice.endLongitude, &lattice.startLatitude, &lattice.endLatitude})
        *field = in.value();
    header.nx = whole();
    header.ny = whole();
    return header;
}

/// The lattice with the ends that follow from steps and counts, a column further for a field that is closed.
frame::Lattice computedEnds(const frame::FieldHeader& header) {
    frame::Lattice lattice = header.lattice;
    lattice.endLongitude = lattice.startLongitude + static_cast<float>(header.nx) * lattice.longitudeStep;
    lattice.endLatitude = lattice.startLatitude + static_cast<float>(header.ny) * lattice.latitudeStep;
    return lattice;
}

Block speeds(const WindFile& file) {
    Block block(frame::allocateBlock(file.u.size()).release());
    std::transform(file.u.values, file.u.values + file.u.size(), file.v.values, block.get(), windSpeed);
    return block;
}

Block derivative(WindQuantity quantity, const frame::GridView& u, const frame::GridView& v,
                 const frame::Lattice& lattice) {
    const bool divergence = quantity == WindQuantity::divergence;
    const auto differentiate = divergence ? hdiv : hvor;
    const float* const first = divergence ? u.values : v.values;
    const float* const second = divergence ? v.values : u.values;
    return ownedBlock(differentiate(first, second, u.nx, u.ny, frame::missingInFiles, lattice.startLongitude,
                                    lattice.startLatitude, lattice.longitudeStep, lattice.latitudeStep));
}

/// The two columns on each side of the seam, from west to east.
constexpr int seamColumns = 4;

frame::Grid seamStrip(const frame::GridView& grid) {
    frame::Grid strip{{}, seamColumns, grid.ny};
    strip.values.reserve(strip.view().size());
    for (int row = 0; row < grid.ny; ++row)
        for (int column = 0; column < seamColumns; ++column)
            strip.values.push_back(grid.at((column + 2 * grid.nx - 2) % grid.nx, row));
    return strip;
}

/// The library's derivatives are missing on the edges of a grid; on a seam that is no edge they are put in.
void fillSeam(WindQuantity quantity, const WindFile& file, float* values) {
    const frame::Grid u = seamStrip(file.u);
    const frame::Grid v = seamStrip(file.v);
    const Block strip = derivative(quantity, u.view(), v.view(), file.header.lattice);
    for (int row = 0; row < file.u.ny; ++row) {
        const float* const across = strip.get() + static_cast<std::ptrdiff_t>(seamColumns) * row;
        values[file.u.nx - 1] = across[1];
        values[0] = across[2];
        values += file.u.nx;
    }
}

Block computed(WindQuantity quantity, const WindFile& file) {
    if (quantity == WindQuantity::speed) return speeds(file);
    Block block = derivative(quantity, file.u, file.v, file.header.lattice);
    if (circlesGlobe(file.header)) fillSeam(quantity, file, block.get());
    return block;
}

/// Brings values into their unit. One that is too large for a float, as where a step is 0, is missing.
void scaleValues(float* values, std::size_t count, float scale) {
    std::transform(values, values + count, values, [=](float value) {
        if (value == frame::missingInFiles) return value;
        const float scaled = value * scale;
        return std::isfinite(scaled) ? scaled : frame::missingInFiles;
    });
}

/// A size that few values exceed, one in `share`.
float customarySize(const frame::GridView& values, std::size_t share) {
    std::vector<float> sizes;
    sizes.reserve(values.size());
    std::for_each(values.values, values.values + values.size(), [&](float value) {
        if (isPresent(value) && value != 0) sizes.push_back(std::fabs(value));
    });
    if (sizes.empty()) return 0;
    const auto place = sizes.end() - 1 - static_cast<std::ptrdiff_t>(sizes.size() / share);
    std::ranges::nth_element(sizes, place);
    return *place;
}

/// The largest of 1, 2, 5, 10, 20 ... and their tenths that is not above a number.
double roundedDown(double number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for (const double digit : {5.0, 2.0})
        if (number >= digit * power) return digit * power;
    return power;
}

/// `leastLevels` levels or somewhat more up to a size.
void setLevels(frame::GridHeader& header, double size, int leastLevels) {
    if (!(size > 0)) return;
    const double interval = roundedDown(size / leastLevels);
    header.interval = static_cast<float>(interval);
    header.endValue = static_cast<float>(std::floor(size / interval)) * header.interval;
}

void setLevels(frame::GridHeader& header, const frame::GridView& values, WindQuantity quantity) {
    if (quantity == WindQuantity::speed)
        return setLevels(header, customarySize(values, values.size() + 1), 8);
    // The largest derivatives stand beside the poles and would make all others one band.
    setLevels(header, customarySize(values, 50), 4);
    header.startValue = 0 - header.endValue;
}

}  // namespace

float windSpeed(float u, float v) {
    const bool present = isPresent(u) && isPresent(v);
    return present ? std::sqrt(u * u + v * v) : frame::missingInFiles;
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
    const std::size_t count = frame::valueCount(nx, ny);
    file.u = {.values = in.values(count).data(), .nx = nx, .ny = ny};
    file.v = {.values = in.values(count).data(), .nx = nx, .ny = ny};
    return file;
}

std::string_view quantityName(WindQuantity quantity) {
    constexpr std::array<std::string_view, 3> names{"speed", "divergence", "vorticity"};
    return names.at(static_cast<std::size_t>(quantity));
}

GridFile windQuantity(const WindFile& file, WindQuantity quantity, float scale) {
    const std::string suffix = fmt::format("_{}", quantityName(quantity));
    GridFile grid{.header = {},
                  .title = file.title + suffix,
                  .titleBytes = file.titleBytes + suffix,
                  .block = computed(quantity, file),
                  .values = {}};
    grid.values = {.values = grid.block.get(), .nx = file.u.nx, .ny = file.u.ny};
    scaleValues(grid.block.get(), grid.values.size(), scale);
    grid.header.field = file.header;
    setLevels(grid.header, grid.values, quantity);
    return grid;
}

}  // namespace velmar::tool
