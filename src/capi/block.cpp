#include "capi/block.h"

#include <algorithm>
#include <array>

#include "base/threads.h"

namespace velmar::capi {

void BlockWriter::append(std::span<const float> values) {
    // Many at a time, so that threads share the first touch of the block's pages too.
    constexpr std::size_t pieceLength = std::size_t{1} << 15U;
    const std::size_t pieces = (values.size() + pieceLength - 1) / pieceLength;
    base::shareWork(pieces, 0.5 * pieceLength, [&](std::size_t first, std::size_t last) {
        const std::size_t from = first * pieceLength;
        const auto part = values.subspan(from, std::min(last * pieceLength, values.size()) - from);
        std::copy(part.begin(), part.end(), next_ + from);
    });
    next_ += values.size();
}

void BlockWriter::append(std::span<const base::LonLat> points) {
    for (const auto& [longitude, latitude] : points) {
        *next_++ = longitude;
        *next_++ = latitude;
    }
}

std::span<float> BlockWriter::claim(std::size_t elements) {
    float* const first = next_;
    next_ += elements;
    return {first, elements};
}

void appendGrid(BlockWriter& out, const grid::GridView& grid, const grid::GridPlace& place) {
    out.append(-1.0F);
    out.appendCount(grid.nx);
    out.appendCount(grid.ny);
    const float lastLongitude =
        place.startLongitude + (static_cast<float>(grid.nx) - 1.0F) * place.longitudeStep;
    const float lastLatitude =
        place.startLatitude + (static_cast<float>(grid.ny) - 1.0F) * place.latitudeStep;
    out.append(std::array{place.startLongitude, place.startLatitude, lastLongitude, lastLatitude,
                          place.longitudeStep, place.latitudeStep});
    out.append(std::span(grid.values, grid.size()));
}

}  // namespace velmar::capi
