#include "chart/layers/imageLayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

#include "chart/layers/coverageLayer.h"
#include "chart/paper/canvas.h"
#include "read/byteImageFile.h"
#include "read/gridFile.h"

namespace velmar::tool {
namespace {

/// Reads a byte image anywhere. The value of a pixel stands for the area around its place, half a step wide
/// on each side.
class ImageSampler {
public:
    explicit ImageSampler(const ByteImageFile& image);

    /// The value at a place: between four pixels with values in proportion to their distances, beside others
    /// that of the nearest pixel, so that nothing is made up where there is no picture.
    std::optional<float> at(double longitude, double latitude) const;

private:
    float pixel(int column, int row) const;

    const ByteImageFile& image_;
    double columnsRoundGlobe_;
    bool wraps_;
};

ImageSampler::ImageSampler(const ByteImageFile& image)
    : image_(image),
      columnsRoundGlobe_(std::fabs(360.0 / image.lattice.longitudeStep)),
      wraps_(image.circlesGlobe()) {}

float ImageSampler::pixel(int column, int row) const {
    const grid::GridView grid = image_.grid.view();
    if (wraps_) column = (column + grid.nx) % grid.nx;
    return grid.at(std::clamp(column, 0, grid.nx - 1), std::clamp(row, 0, grid.ny - 1));
}

std::optional<float> ImageSampler::at(double longitude, double latitude) const {
    const grid::Lattice& lattice = image_.lattice;
    double x = (longitude - lattice.startLongitude) / lattice.longitudeStep;
    x -= columnsRoundGlobe_ * std::floor((x + 0.5) / columnsRoundGlobe_);
    const double y = (latitude - lattice.startLatitude) / lattice.latitudeStep;
    if (x >= image_.grid.nx - 0.5 && !wraps_) return std::nullopt;
    if (y < -0.5 || y >= image_.grid.ny - 0.5) return std::nullopt;

    const float nearest = pixel(static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5)));
    if (!isPresent(nearest)) return std::nullopt;
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    const std::array around{pixel(column, row), pixel(column + 1, row), pixel(column, row + 1),
                            pixel(column + 1, row + 1)};
    if (!std::ranges::all_of(around, isPresent)) return nearest;
    const auto alongRow = static_cast<float>(x - column);
    const auto alongColumn = static_cast<float>(y - row);
    return std::lerp(std::lerp(around[0], around[1], alongRow), std::lerp(around[2], around[3], alongRow),
                     alongColumn);
}

/// Paints what is on a map into squares of one paper unit.
class Painter {
public:
    Painter(const ByteImageFile& image, const MapFrame& map)
        : sampler_(image), map_(map), samples_(samplesAcross(image.lattice, map)) {}

    /// A square in the drawing library's words: opaque grey, or transparent where there is no picture.
    std::uint32_t square(int x, int y) const {
        float sum = 0;
        int present = 0;
        for (int j = 0; j < samples_; ++j) {
            for (int i = 0; i < samples_; ++i) {
                const auto value = at(x + (i + 0.5) / samples_, y + (j + 0.5) / samples_);
                if (!value) continue;
                sum += *value;
                ++present;
            }
        }
        if (2 * present < samples_ * samples_) return 0;
        const float part = sum / static_cast<float>(present) / brightestByte;
        const auto grey = static_cast<std::uint32_t>(std::lround(255 * std::clamp(part, 0.0F, 1.0F)));
        return 0xFF000000U | grey << 16 | grey << 8 | grey;
    }

private:
    /// Pixels smaller than a square of the paper are averaged.
    static int samplesAcross(const grid::Lattice& lattice, const MapFrame& map) {
        constexpr double most = 8;
        const PaperPoint from = map.toPaper(0, 0);
        const PaperPoint to = map.toPaper(lattice.longitudeStep, lattice.latitudeStep);
        const double side = std::min(std::fabs(to.x - from.x), std::fabs(to.y - from.y));
        return static_cast<int>(std::clamp(std::ceil(1 / side), 1.0, most));
    }

    std::optional<float> at(double x, double y) const {
        const auto& [west, east, south, north] = map_.bounds;
        return sampler_.at(west + x / map_.box.width * (east - west),
                           north - y / map_.box.height * (north - south));
    }

    ImageSampler sampler_;
    const MapFrame& map_;
    int samples_;
};

Surface paint(const ByteImageFile& image, const MapFrame& map) {
    const int width = static_cast<int>(map.box.width);
    const int height = static_cast<int>(map.box.height);
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
    const Painter painter(image, map);
    std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) row[static_cast<std::size_t>(x)] = painter.square(x, y);
        std::memcpy(cairo_image_surface_get_data(surface.get()) + static_cast<std::ptrdiff_t>(y) * stride,
                    row.data(), row.size() * sizeof row[0]);
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

}  // namespace

void ImageLayer::draw(Page& page) const {
    paintNoData(page);
    const Surface picture = paint(image_, page.map);
    cairo_set_source_surface(page.ink, picture.get(), page.map.box.left, page.map.box.top);
    cairo_paint(page.ink);
}

}  // namespace velmar::tool
