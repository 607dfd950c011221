#include "files/byteImage.h"

#include <algorithm>
#include <array>

#include "base/messages.h"
#include "base/numbers.h"
#include "base/progress.h"
#include "base/scanner.h"

namespace velmar::files {

namespace {

using base::progress;
namespace messages = base::messages;

/// The header is text, padded to this many bytes.
constexpr std::size_t headerBytes = 149;

constexpr int kindWithUndefinedPoints = 5;

/// Returns the header's keyword. Integers that no reader needs are skipped.
std::string_view scanHeader(std::string_view text, ByteImage& image) {
    base::TextScanner in(text);
    std::string_view keyword;
    int type = 0;
    std::array<int, 8> unused{};
    auto& [a, b, c, d, e, f, g, h] = unused;
    grid::Lattice& lattice = image.lattice;
    base::scan(in, keyword, type, image.title, a, b, c, d, e, image.kind, f, image.nx, image.ny,
               lattice.longitudeStep, lattice.startLongitude, lattice.startLatitude, lattice.endLongitude,
               lattice.endLatitude, lattice.latitudeStep, g, h);
    return keyword;
}

/// A header of nx columns should put the last one nx - 1 steps from the first. One that puts it nx steps away
/// is reported, and used all the same.
void checkWidth(const ByteImage& image) {
    const grid::Lattice& lattice = image.lattice;
    const float steps = (lattice.endLongitude - lattice.startLongitude) / lattice.longitudeStep;
    if (image.nx == base::truncateToInt(steps)) progress(messages::badImageSize);
}

}  // namespace

std::optional<ByteImage> readByteImage(std::string_view file) {
    if (file.size() < headerBytes) return std::nullopt;
    const std::string_view header = file.substr(0, headerBytes);
    ByteImage image{};
    if (scanHeader(header.substr(0, header.find('\0')), image) != "March") return std::nullopt;
    checkWidth(image);
    file.remove_prefix(headerBytes);
    const std::size_t pixels = grid::valueCount(image.nx, image.ny);
    if (file.size() < pixels) return std::nullopt;
    image.pixels = file.substr(0, pixels);
    progress(messages::fileTitle, {image.title});
    progress(messages::fileEnd);
    return image;
}

grid::Grid valuesOf(const ByteImage& image) {
    grid::Grid grid{std::vector<float>(image.pixels.size()), image.nx, image.ny};
    std::transform(image.pixels.begin(), image.pixels.end(), grid.values.begin(), [](char pixel) {
        const auto value = static_cast<unsigned char>(pixel);
        return value == 255 ? -1.0F : static_cast<float>(value);
    });
    return grid;
}

float undefinedValueOf(const ByteImage& image) {
    return image.kind == kindWithUndefinedPoints ? 20.0F : 255.0F;
}

}  // namespace velmar::files
