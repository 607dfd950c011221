#include "read/byteImageFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "base/scanner.h"
#include "common/text.h"
#include "files/byteImage.h"

namespace velmar::tool {
namespace {

/// The numbers behind the title are mostly year, month, day and hour.
std::string timeOf(const FileHead& head) {
    base::TextScanner in(head.file.view());
    std::string_view word;
    int type = 0;
    files::FieldHeader header{};
    const int read = scan(in, word, type, word, header.year, header.month, header.day, header.hour);
    return read == 7 ? validTimeText(header).value_or("") : "";
}

/// The header's ends are often those of one column or row more.
grid::Lattice latticeOf(const files::ByteImage& image) {
    grid::Lattice lattice = image.lattice;
    lattice.endLongitude = lattice.startLongitude + static_cast<float>(image.nx - 1) * lattice.longitudeStep;
    lattice.endLatitude = lattice.startLatitude + static_cast<float>(image.ny - 1) * lattice.latitudeStep;
    if (!std::isfinite(lattice.endLongitude + lattice.endLatitude))
        throw Problem("the longitudes and latitudes of its header are not all finite numbers");
    return lattice;
}

/// Views into the head's file.
files::ByteImage readByteImage(const FileHead& head) {
    const auto image = files::readByteImage(head.file.raw());
    if (!image) throw Problem("it is cut off: it holds fewer bytes than its header says");
    if (image->pixels.empty())
        throw Problem(fmt::format("its header gives it {} columns and {} rows", image->nx, image->ny));
    return *image;
}

}  // namespace

bool ByteImageFile::circlesGlobe() const {
    constexpr double tolerance = 0.5;
    return std::fabs(std::fabs(static_cast<double>(grid.nx) * lattice.longitudeStep) - 360.0) < tolerance;
}

ByteImageFile readByteImageFile(const FileHead& head) {
    const files::ByteImage image = readByteImage(head);
    ByteImageFile file{
        .title = head.title, .time = timeOf(head), .grid = valuesOf(image), .lattice = latticeOf(image)};
    const float undefined = undefinedValueOf(image);
    std::ranges::replace_if(
        file.grid.values, [&](float value) { return value < 0 || value == undefined; }, grid::missingInFiles);
    return file;
}

}  // namespace velmar::tool
