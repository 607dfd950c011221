#include "chart/layers/regionLayer.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "chart/layers/mapLines.h"
#include "chart/paper/lettering.h"
#include "chart/paper/paperArea.h"
#include "chart/paper/paperLine.h"

namespace velmar::tool {
namespace {

constexpr Colour land{0.97, 0.95, 0.87};
constexpr double largeLetters = 12;
constexpr double smallLetters = 9.5;

Lettering letteringOf(double size) { return {.size = size, .colour = {0.15, 0.15, 0.15}, .halo = 1.2}; }

std::vector<PaperPoint> visiblePart(const std::vector<PaperPoint>& outline, const PaperBox& box) {
    std::vector<AreaCorner> corners;
    corners.reserve(outline.size());
    for (const PaperPoint& point : outline) corners.push_back({point, true});
    corners = clipped(std::move(corners), box);
    std::vector<PaperPoint> part;
    part.reserve(corners.size());
    for (const AreaCorner& corner : corners) part.push_back(corner.place);
    return part;
}

/// What can be seen of a region.
struct Area {
    std::string_view name;
    std::vector<PaperPoint> outline;
};

std::vector<Area> visibleAreas(const LineMap& map, const MapFrame& frame) {
    std::vector<Area> areas;
    for (const LineMap::MapLine& line : map.lines) {
        for (const auto& outline : areasOnPaper(map.pointsOf(line), frame)) {
            std::vector<PaperPoint> part = visiblePart(outline, frame.box);
            if (part.size() > 2) areas.push_back({line.name, std::move(part)});
        }
    }
    return areas;
}

double sizeOf(const std::vector<PaperPoint>& outline) {
    double sum = 0;
    for (std::size_t k = 0; k < outline.size(); ++k) {
        const PaperPoint& from = outline[k];
        const PaperPoint& to = outline[(k + 1) % outline.size()];
        sum += from.x * to.y - to.x * from.y;
    }
    return std::fabs(sum) / 2;
}

/// A stretch of a line across the paper.
struct Chord {
    double left = 0;
    double right = 0;

    double width() const { return right - left; }
    double middle() const { return (left + right) / 2; }
};

/// The widest stretch of an outline's inside at a height.
Chord widestChord(const std::vector<PaperPoint>& outline, double y) {
    std::vector<double> crossings;
    for (std::size_t k = 0; k < outline.size(); ++k) {
        const PaperPoint& from = outline[k];
        const PaperPoint& to = outline[(k + 1) % outline.size()];
        if ((from.y <= y) != (to.y <= y))
            crossings.push_back(from.x + (y - from.y) / (to.y - from.y) * (to.x - from.x));
    }
    std::ranges::sort(crossings);
    Chord widest;
    for (std::size_t k = 1; k < crossings.size(); k += 2)
        if (crossings[k] - crossings[k - 1] > widest.width()) widest = {crossings[k - 1], crossings[k]};
    return widest;
}

struct Room {
    TurnedBox box;
    double worth;
};

/// Where a text may stand inside an outline, the best place first: near the middle, with some room on both sides.
std::vector<Room> roomsIn(const std::vector<PaperPoint>& outline, PaperSize size) {
    constexpr int heights = 24;
    constexpr double ampleRoom = 1.5;
    const auto [top, bottom] = std::ranges::minmax(outline, {}, &PaperPoint::y);
    const double middle = (top.y + bottom.y) / 2;
    std::vector<Room> rooms;
    for (int k = 1; k < heights; ++k) {
        const double y = top.y + k * (bottom.y - top.y) / heights;
        const Chord above = widestChord(outline, y - size.height / 3);
        const Chord below = widestChord(outline, y + size.height / 3);
        const Chord chord{std::max(above.left, below.left), std::min(above.right, below.right)};
        if (chord.width() < size.width) continue;
        rooms.push_back({{{chord.middle(), y}, size, 0},
                         std::min(chord.width(), ampleRoom * size.width) - std::fabs(y - middle)});
    }
    std::ranges::stable_sort(rooms, std::ranges::greater{}, &Room::worth);
    return rooms;
}

}  // namespace

void RegionLayer::draw(Page& page) const {
    setColour(page.ink, land);
    // One by one: regions may lie in others.
    for (const Area& area : visibleAreas(map_, page.map)) {
        for (const PaperPoint& point : area.outline) cairo_line_to(page.ink, point.x, point.y);
        cairo_fill(page.ink);
    }
}

void RegionNameLayer::place(Page& page) {
    std::vector<Area> areas = visibleAreas(map_, page.map);
    std::ranges::stable_sort(areas, std::ranges::greater{},
                             [](const Area& area) { return sizeOf(area.outline); });
    std::set<std::string_view> visible;
    std::set<std::string_view> written{{}};
    for (const auto& [name, outline] : areas) {
        visible.insert(name);
        if (!written.contains(name) && placeName(page, name, outline)) written.insert(name);
    }
    visible_ = visible.size() - visible.count({});
}

bool RegionNameLayer::placeName(Page& page, std::string_view name, const std::vector<PaperPoint>& outline) {
    for (const double letterSize : {largeLetters, smallLetters}) {
        const PaperSize size = measureText(page.ink, std::string(name), letteringOf(letterSize));
        for (const auto& [box, worth] : roomsIn(outline, size)) {
            if (!isInside(box, page.map.box) || !page.taken.isFree(box)) continue;
            page.taken.take(box);
            names_.push_back({name, box.center, letterSize});
            return true;
        }
    }
    return false;
}

void RegionNameLayer::draw(Page& page) const {
    for (const auto& [text, center, letterSize] : names_)
        drawText(page.ink, std::string(text), center, Anchor::center, letteringOf(letterSize));
}

std::string RegionNameLayer::remark() const { return fmt::format("{} of {} names", names_.size(), visible_); }

}  // namespace velmar::tool
