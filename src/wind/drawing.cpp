#include "wind/drawing.h"

#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::wind {

Drawing::Drawing() { points_.claim(2); }

void Drawing::addArrow(Position tail, Position head, int colour) {
    constexpr float tag = 2.0F;
    arrows_.insert(arrows_.end(), {tag, tail.longitude, tail.latitude, head.longitude, head.latitude,
                                   static_cast<float>(colour)});
}

frame::ResultBlock Drawing::finish(const frame::GridView& u, const frame::GridView& v,
                                   const frame::Lattice& lattice) {
    if (arrows_.empty()) frame::progress(frame::messages::noArrows);
    points_.append(arrows_);
    const std::size_t drawn = points_.size();
    // The first of the two in front of the sizes is reserved.
    points_.append(std::array{0.0F, -1.0F, static_cast<float>(u.nx), static_cast<float>(u.ny),
                              lattice.startLongitude, lattice.startLatitude, lattice.endLongitude,
                              lattice.endLatitude, lattice.longitudeStep, lattice.latitudeStep});
    const std::span<float> wind = points_.claim(2 * u.size());
    for (std::size_t k = 0; k < u.size(); ++k) {
        wind[2 * k] = u.values[k];
        wind[2 * k + 1] = v.values[k];
    }
    const std::size_t elements = points_.size();
    frame::ResultBlock block = points_.finish();
    // Hosts find the index of the last element here, not the number of elements as everywhere else.
    block[0] = static_cast<float>(elements - 1);
    block[1] = static_cast<float>(drawn);
    return block;
}

}  // namespace velmar::wind
