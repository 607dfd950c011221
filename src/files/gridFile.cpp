#include "files/gridFile.h"

#include <algorithm>
#include <limits>

#include "files/fieldValues.h"
#include "files/firstLine.h"

namespace velmar::files {

int scanFieldHeader(base::TextScanner& in, FieldHeader& header) {
    grid::Lattice& lattice = header.lattice;
    return base::scan(in, header.year, header.month, header.day, header.hour, header.forecastHour,
                      header.level, lattice.longitudeStep, lattice.latitudeStep, lattice.startLongitude,
                      lattice.endLongitude, lattice.startLatitude, lattice.endLatitude, header.nx, header.ny);
}

base::Outcome<GridHeader> readGridHeader(base::TextScanner& in) {
    GridHeader header{};
    const std::optional<FirstLine> line = readFirstLine(in);
    if (!line) return base::Failure{-2};
    if (line->type != 4) return base::Failure{-3};
    if (line->keyword != "diamond") return base::Failure{-4};
    header.title = line->title;
    if (scanFieldHeader(in, header.field) < FieldHeader::fieldCount) return base::Failure{-5};
    if (base::scan(in, header.interval, header.startValue, header.endValue, header.smoothing,
                   header.boldValue) < 5) {
        return base::Failure{-5};
    }
    return header;
}

bool circlesGlobe(const FieldHeader& field) {
    const float width = static_cast<float>(field.nx) * field.lattice.longitudeStep;
    return 359.5 < width && width < 360.01 && field.nx < std::numeric_limits<int>::max();
}

base::Outcome<grid::Grid> readGridValues(base::TextScanner& in, const FieldHeader& field,
                                         UnreadableValue unreadable) {
    const bool closes = circlesGlobe(field);
    const base::Failure failure{closes ? unreadable.circling : unreadable.other};
    if (!in.mayHold(grid::valueCount(field.nx, field.ny))) return failure;
    grid::Grid grid;
    grid.nx = field.nx + (closes ? 1 : 0);
    grid.ny = field.ny;
    const auto width = static_cast<std::size_t>(std::max(grid.nx, 0));
    const auto columns = static_cast<std::size_t>(std::max(field.nx, 0));
    grid.values.resize(grid.view().size());
    const auto stride = static_cast<std::ptrdiff_t>(width);
    if (!readFieldValues(
            in, {grid.values.data(), stride, columns, grid.values.size() / std::max<std::size_t>(width, 1)}))
        return failure;
    if (closes)
        for (std::size_t first = 0; first < grid.values.size(); first += width)
            grid.values[first + columns] = grid.values[first];
    return grid;
}

}  // namespace velmar::files
