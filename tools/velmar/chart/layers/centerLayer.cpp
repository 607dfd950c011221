#include "chart/layers/centerLayer.h"

#include <algorithm>
#include <cmath>

#include "chart/paper/lettering.h"
#include "common/text.h"
#include "compute/levelSpacing.h"

namespace velmar::tool {
namespace {

constexpr Colour highInk{0.0, 0.2, 0.85};
constexpr Colour lowInk{0.8, 0.0, 0.0};
constexpr double letterSize = 22;
constexpr double valueSize = 12.5;
/// The letter stands on the centre, the value's middle is this much lower.
constexpr double valueBelow = 18;
constexpr double likeDistance = 80;  ///< of centres of one kind
constexpr double width = 40;
constexpr double height = 40;

/// The room of the letter and the value.
TurnedBox roomOf(PaperPoint place) { return {place + PaperPoint{0, valueBelow / 2}, {width, height}, 0}; }

/// A centre has to stand out by this part of the distance between two levels.
constexpr float leastLevels = 0.33F;

}  // namespace

float CenterLayer::leastProminence() const {
    if (lineSpacing_ > 0) return leastLevels * lineSpacing_;
    const PlacedExtremes extremes = findExtremes(grid_.grid, grid_.lattice);
    return (extremes.largest.value - extremes.smallest.value) / 20;
}

void CenterLayer::place(Page& page) {
    // Centres that share a pixel cannot be told apart.
    const PaperPoint step =
        page.map.toPaper(grid_.lattice.longitudeStep, grid_.lattice.latitudeStep) - page.map.toPaper(0, 0);
    const double pointsPerPixel = 1 / std::max(std::fabs(step.x), std::fabs(step.y));
    const int blockSize = static_cast<int>(std::clamp(pointsPerPixel, 1.0, 100.0));
    for (const ProminentCenter& center : prominentCenters(grid_, leastProminence(), blockSize)) {
        const auto [first, last] = circlesInto(page.map.bounds, center.longitude, center.longitude);
        for (int circles = first; circles <= last; ++circles)
            placeMark(page, {center, page.map.toPaper(center.longitude + 360.0 * circles, center.latitude)});
    }
}

void CenterLayer::placeMark(Page& page, const Mark& mark) {
    const TurnedBox room = roomOf(mark.place);
    const bool crowdsLike = std::ranges::any_of(marks_, [&](const Mark& other) {
        return other.center.high == mark.center.high && distance(other.place, mark.place) < likeDistance;
    });
    if (crowdsLike || !isInside(room, page.map.box) || !page.taken.isFree(room)) return;
    page.taken.take(room);
    marks_.push_back(mark);
}

void CenterLayer::draw(Page& page) const {
    for (const auto& [center, middle] : marks_) {
        const Colour ink = center.high ? highInk : lowInk;
        drawText(page.ink, center.high ? "H" : "L", middle, Anchor::center,
                 {.size = letterSize, .bold = true, .colour = ink, .halo = 2.5});
        drawText(page.ink, plainNumber(roundedFor(lineSpacing_, center.value)),
                 middle + PaperPoint{0, valueBelow}, Anchor::center,
                 {.size = valueSize, .bold = true, .colour = ink, .halo = 2});
    }
}

}  // namespace velmar::tool
