#include "chart/layers/streamlineLayer.h"

#include <algorithm>
#include <cmath>

namespace velmar::tool {
namespace {

// Lengths are in units of paper.
constexpr double lineWidth = 1.1;
constexpr double headLength = 9;
constexpr double headWidth = 6.5;
/// Room of an arrow head along the flow and across it, free of other heads.
constexpr PaperSize headRoom{48, 18};

/// A line that nowhere gets so far as this is a blot, not a line.
constexpr double leastExtent = 12;

/// Lines cut where their band changes. The value of each part is its band.
struct Parts {
    std::vector<float> coordinates;
    std::vector<Isoline> lines;
};

bool isBlot(std::span<const StreamlineSet::Piece> line, const MapFrame& map) {
    PaperPoint least = map.toPaper(line.front().end.longitude, line.front().end.latitude);
    PaperPoint most = least;
    for (const auto& [end, band] : line) {
        const auto [x, y] = map.toPaper(end.longitude, end.latitude);
        least = {std::min(least.x, x), std::min(least.y, y)};
        most = {std::max(most.x, x), std::max(most.y, y)};
    }
    return std::max(most.x - least.x, most.y - least.y) < leastExtent;
}

Parts partsOf(const StreamlineSet& set, const MapFrame& map) {
    Parts parts;
    // A part begins with the point that the one before ended with. There are no more parts than pieces, and
    // the lines view the coordinates, which must stay where they are.
    parts.coordinates.reserve(4 * set.pieces.size());
    const auto add = [&](base::LonLat point) {
        parts.coordinates.insert(parts.coordinates.end(), {point.longitude, point.latitude});
    };
    for (std::size_t k = 0; k < set.lineCount(); ++k) {
        const auto line = set.line(k);
        if (isBlot(line, map)) continue;
        for (std::size_t first = 1; first < line.size();) {
            const std::size_t start = parts.coordinates.size();
            const int band = line[first].band;
            add(line[first - 1].end);
            for (; first < line.size() && line[first].band == band; ++first) add(line[first].end);
            const std::span<const float> all(parts.coordinates);
            parts.lines.push_back({{all.subspan(start)}, static_cast<float>(band)});
        }
    }
    return parts;
}

/// Where a field lies on paper, a hair wider.
PaperBox fieldBox(const grid::Lattice& lattice, const MapFrame& map, int circles) {
    constexpr double hair = 0.01;
    const PaperPoint a = map.toPaper(lattice.startLongitude + 360.0 * circles, lattice.startLatitude);
    const PaperPoint b = map.toPaper(lattice.endLongitude + 360.0 * circles, lattice.endLatitude);
    return {std::min(a.x, b.x) - hair, std::min(a.y, b.y) - hair, std::fabs(a.x - b.x) + 2 * hair,
            std::fabs(a.y - b.y) + 2 * hair};
}

}  // namespace

void StreamlineLayer::place(Page& page) {
    lines_ = bringToPaper(partsOf(set_, page.map).lines, lattice_, page.map);
    std::ranges::stable_sort(lines_, {}, &PaperLine::value);
    for (const StreamlineSet::Arrow& arrow : set_.arrows) {
        const auto [first, last] = circlesInto(page.map.bounds, arrow.head.longitude, arrow.head.longitude);
        for (int circles = first; circles <= last; ++circles) placeArrow(page, arrow, circles);
    }
}

void StreamlineLayer::placeArrow(Page& page, const StreamlineSet::Arrow& arrow, int circles) {
    const auto onPaper = [&](base::LonLat point) {
        return page.map.toPaper(point.longitude + 360.0 * circles, point.latitude);
    };
    const PaperPoint tip = onPaper(arrow.head);
    const PaperPoint way = tip - onPaper(arrow.tail);
    const double angle = std::atan2(way.y, way.x);
    const TurnedBox head{tip, {2 * headLength, headWidth}, angle};
    const TurnedBox room{tip, headRoom, angle};
    if (length(way) == 0 || !isInside(head, page.map.box) || !page.taken.isFree(room)) return;
    // Where a line enters the field there may be no room for a head behind the tip.
    if (!fieldBox(lattice_, page.map, circles).contains(head.at(-1, 0))) return;
    page.taken.take(room);
    heads_.push_back({tip, angle, arrow.band});
}

void StreamlineLayer::draw(Page& page) const {
    cairo_set_line_join(page.ink, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(page.ink, lineWidth);
    for (const PaperLine& line : lines_) {
        setColour(page.ink, colours_[static_cast<std::size_t>(line.value())]);
        line.trace(page.ink, sightOf(page.map), {});
        cairo_stroke(page.ink);
    }
    for (const auto& [tip, angle, band] : heads_) {
        const TurnedBox head{tip, {2 * headLength, headWidth}, angle};
        cairo_move_to(page.ink, tip.x, tip.y);
        for (const PaperPoint corner : {head.at(-1, 1), head.at(-0.65, 0), head.at(-1, -1)})
            cairo_line_to(page.ink, corner.x, corner.y);
        cairo_close_path(page.ink);
        setColour(page.ink, colours_[static_cast<std::size_t>(band)]);
        cairo_fill(page.ink);
    }
}

}  // namespace velmar::tool
