#include "files/windFile.h"

#include <cstdio>
#include <optional>
#include <span>
#include <utility>

#include "base/messages.h"
#include "files/fieldValues.h"
#include "files/file.h"
#include "files/firstLine.h"

namespace velmar::files {
namespace {

using base::Failure;
using base::Outcome;
using base::TextScanner;
using files::FieldHeader;
using grid::Grid;
using grid::Lattice;

enum class RowOrder { southFirst, northFirst };

/// Copies the bounds of a lattice, but not its steps.
void setBounds(Lattice& lattice, const Lattice& read) {
    lattice = {read.startLongitude, read.endLongitude, lattice.longitudeStep,
               read.startLatitude,  read.endLatitude,  lattice.latitudeStep};
}

/// A latitude step of 0 counts as north to south.
RowOrder normaliseRows(Lattice& lattice) {
    if (!(lattice.latitudeStep <= 0.0F)) return RowOrder::southFirst;
    lattice.latitudeStep = -lattice.latitudeStep;
    std::swap(lattice.startLatitude, lattice.endLatitude);
    return RowOrder::northFirst;
}

Outcome<Grid> readComponent(TextScanner& in, const FieldHeader& header, RowOrder order, Failure unreadable) {
    const std::size_t count = grid::valueCount(header.nx, header.ny);
    if (!in.mayHold(count)) return unreadable;
    Grid grid{std::vector<float>(count), header.nx, header.ny};
    const auto columns = static_cast<std::size_t>(header.nx);
    const auto stride = static_cast<std::ptrdiff_t>(columns);
    float* const south = grid.values.data();
    const FieldRows rows = order == RowOrder::southFirst
                               ? FieldRows{south, stride, columns, count / columns}
                               : FieldRows{south + (count - columns), -stride, columns, count / columns};
    if (!readFieldValues(in, rows)) return unreadable;
    return grid;
}

}  // namespace

Outcome<WindFile> readWindFile(const char* path, Lattice& lattice) {
    const std::optional<files::FileText> text = files::readWholeFile(path);
    if (!text) {
        std::fputs(base::messages::cannotOpenWindFile, stderr);
        return Failure{-1};
    }
    TextScanner in(text->view());
    return readWindFile(in, lattice);
}

Outcome<WindFile> readWindFile(TextScanner& in, Lattice& lattice) {
    const std::optional<files::FirstLine> line = files::readFirstLine(in);
    if (!line) return Failure{-2};
    // A keyword ends at a NUL, as strings in C do.
    if (line->keyword.substr(0, line->keyword.find('\0')) != "diamond") return Failure{-3};

    FieldHeader header{};
    header.lattice = lattice;
    const bool complete = scanFieldHeader(in, header) == FieldHeader::fieldCount;
    setBounds(lattice, header.lattice);
    if (!complete || grid::valueCount(header.nx, header.ny) == 0) return Failure{-4};
    const RowOrder order = normaliseRows(header.lattice);
    setBounds(lattice, header.lattice);

    const bool turned = order == RowOrder::northFirst;
    Outcome<Grid> u = readComponent(in, header, order, Failure{turned ? -7 : -5});
    if (!u) return u.failure();
    Outcome<Grid> v = readComponent(in, header, order, Failure{turned ? -8 : -6});
    if (!v) return v.failure();
    lattice = header.lattice;
    return WindFile{header, std::move(*u), std::move(*v)};
}

}  // namespace velmar::files
