#include "chart/layers/centerLayer.h"

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

float leastProminence(const ContourSet& set) {
    const float spacing = spacingOf(levelsOf(set));
    if (spacing > 0) return leastLevels * spacing;
    const PlacedExtremes extremes = findExtremes(set.grid, set.lattice);
    return (extremes.largest.value - extremes.smallest.value) / 20;
}

}  // namespace

void CenterLayer::place(Page& page) {
    for (const ProminentCenter& center : prominentCenters(set_, leastProminence(set_))) {
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
    const float spacing = spacingOf(levelsOf(set_));
    for (const auto& [center, middle] : marks_) {
        const Colour ink = center.high ? highInk : lowInk;
        drawText(page.ink, center.high ? "H" : "L", middle, Anchor::center,
                 {.size = letterSize, .bold = true, .colour = ink, .halo = 2.5});
        drawText(page.ink, plainNumber(roundedFor(spacing, center.value)), middle + PaperPoint{0, valueBelow},
                 Anchor::center, {.size = valueSize, .bold = true, .colour = ink, .halo = 2});
    }
}

}  // namespace velmar::tool
