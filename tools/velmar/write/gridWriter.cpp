#include "write/gridWriter.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

#include "common/text.h"

namespace velmar::tool {
namespace {

/// Degrees without the noise of steps like 0.1F: five digits behind the point are about a metre.
double degreesOf(float start, float step, int line) {
    constexpr double parts = 1e5;
    return std::round((writtenNumber(start) + line * writtenNumber(step)) * parts) / parts + 0.0;
}

}  // namespace

std::string gridFileText(const GridFile& file) {
    const files::GridHeader& header = file.header;
    const files::FieldHeader& field = header.field;
    const grid::Lattice& lattice = field.lattice;
    std::string text =
        fmt::format("diamond {} {}\n{} {:02} {:02} {:02} {} {}\n", gridFileType, file.titleBytes, field.year,
                    field.month, field.day, field.hour, field.forecastHour, field.level);
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "{} {} {} {} {} {} {} {}\n", lattice.longitudeStep, lattice.latitudeStep,
                   lattice.startLongitude, lattice.endLongitude, lattice.startLatitude, lattice.endLatitude,
                   field.nx, field.ny);
    fmt::format_to(out, "{} {} {} {} {}\n", header.interval, header.startValue, header.endValue,
                   header.smoothing, header.boldValue);
    constexpr int valuesOfLine = 10;
    for (int row = 0; row < file.values.ny; ++row) {
        for (int column = 0; column < file.values.nx; ++column) {
            const bool lineEnds = column % valuesOfLine == valuesOfLine - 1 || column == file.values.nx - 1;
            fmt::format_to(out, "{}{}", file.values.at(column, row), lineEnds ? '\n' : ' ');
        }
    }
    return text;
}

std::string commaSeparated(const GridFile& file) {
    const grid::Lattice& lattice = file.header.field.lattice;
    std::string text = "longitude,latitude,value\n";
    for (int row = 0; row < file.values.ny; ++row) {
        const double latitude = degreesOf(lattice.startLatitude, lattice.latitudeStep, row);
        for (int column = 0; column < file.values.nx; ++column) {
            const double longitude = degreesOf(lattice.startLongitude, lattice.longitudeStep, column);
            const float value = file.values.at(column, row);
            fmt::format_to(std::back_inserter(text), "{},{},{}\n", longitude, latitude,
                           isPresent(value) ? fmt::format("{}", value) : "");
        }
    }
    return text;
}

}  // namespace velmar::tool
