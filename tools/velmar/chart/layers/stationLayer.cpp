#include "chart/layers/stationLayer.h"

#include <algorithm>
#include <numbers>

#include "chart/paper/lettering.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

constexpr double dotRadius = 1.5;
constexpr double figureSize = 10.5;
/// The middle of a figure is this much above its dot.
constexpr double figureAbove = 8;
/// Room around a figure, so that lines and their labels find a way between the figures.
constexpr double spaceBeside = 14;
constexpr double spaceAbove = 10;

}  // namespace

void StationLayer::place(Page& page) {
    for (const auto& [value, longitude, latitude] : stations_) {
        const auto [first, last] = circlesInto(page.map.bounds, longitude, longitude);
        for (int circles = first; circles <= last; ++circles) {
            const PaperPoint dot = page.map.toPaper(longitude + 360.0 * circles, latitude);
            if (page.map.box.contains(dot)) dots_.push_back({dot, value});
        }
    }
    for (const Dot& dot : dots_) placeFigure(page, dot);
}

void StationLayer::placeFigure(Page& page, const Dot& dot) {
    const std::string text = plainNumber(dot.value);
    const PaperPoint center = dot.place + PaperPoint{0, -figureAbove};
    const PaperSize size = measureText(page.ink, text, {.size = figureSize});
    const TurnedBox room{center, {size.width + spaceBeside, size.height + spaceAbove}, 0};
    if (!isInside(room, page.map.box) || !page.taken.isFree(room)) return;
    const PaperBox letters{center.x - size.width / 2, center.y - figureSize / 2, size.width, figureSize};
    if (std::ranges::any_of(dots_, [&](const Dot& other) { return letters.contains(other.place); })) return;
    page.taken.take(room);
    figures_.push_back({text, center});
}

void StationLayer::draw(Page& page) const {
    setColour(page.ink, black);
    for (const Dot& dot : dots_) {
        cairo_new_sub_path(page.ink);
        cairo_arc(page.ink, dot.place.x, dot.place.y, dotRadius, 0, 2 * std::numbers::pi);
    }
    cairo_fill(page.ink);
    for (const Figure& figure : figures_)
        drawText(page.ink, figure.text, figure.center, Anchor::center, {.size = figureSize, .halo = 1.5});
}

}  // namespace velmar::tool
