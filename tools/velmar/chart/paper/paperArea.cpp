#include "chart/paper/paperArea.h"

#include <algorithm>

#include "chart/paper/paperLine.h"

namespace velmar::tool {
namespace {

/// A step of the method of Sutherland and Hodgman: keeps what lies on the inner side of a line along an axis.
template <double PaperPoint::*across>
std::vector<AreaCorner> cut(const std::vector<AreaCorner>& area, double line, double inward) {
    const auto isInside = [&](const AreaCorner& corner) {
        return (corner.place.*across - line) * inward >= 0;
    };
    std::vector<AreaCorner> kept;
    for (std::size_t k = 0; k < area.size(); ++k) {
        const AreaCorner& from = area[(k + area.size() - 1) % area.size()];
        const AreaCorner& to = area[k];
        if (isInside(from) != isInside(to)) {
            const double part = (line - from.place.*across) / (to.place.*across - from.place.*across);
            PaperPoint crossing = from.place + part * (to.place - from.place);
            crossing.*across = line;
            kept.push_back({crossing, true});
        }
        if (isInside(to)) kept.push_back(to);
    }
    return kept;
}

std::vector<AreaCorner> onPaper(std::span<const shade::OutlinePoint> outline, const grid::Lattice& lattice,
                                const MapFrame& map, int circles) {
    std::vector<AreaCorner> area;
    area.reserve(outline.size());
    for (const auto& [column, row, sharp] : outline) {
        const double longitude = lattice.startLongitude + static_cast<double>(column) * lattice.longitudeStep;
        const double latitude = lattice.startLatitude + static_cast<double>(row) * lattice.latitudeStep;
        area.push_back({map.toPaper(longitude + 360.0 * circles, latitude), sharp});
    }
    return area;
}

/// Traces an outline from sharp corner to sharp corner; one without any from the middle of a side.
void traceArea(cairo_t* ink, std::vector<AreaCorner> area, double detail) {
    const auto firstSharp = std::ranges::find_if(area, &AreaCorner::sharp);
    if (firstSharp == area.end())
        area.insert(area.begin(), {0.5 * (area.back().place + area.front().place), true});
    else
        std::rotate(area.begin(), firstSharp, area.end());
    area.push_back(area.front());

    cairo_move_to(ink, area.front().place.x, area.front().place.y);
    std::vector<PaperPoint> line{area.front().place};
    for (std::size_t k = 1; k < area.size(); ++k) {
        line.push_back(area[k].place);
        if (!area[k].sharp) continue;
        traceRounded(ink, withoutDetail(line, detail));
        line.assign(1, area[k].place);
    }
    cairo_close_path(ink);
}

}  // namespace

std::vector<AreaCorner> clipped(std::vector<AreaCorner> area, const PaperBox& box) {
    if (std::ranges::all_of(area, [&](const AreaCorner& corner) { return box.contains(corner.place); }))
        return area;
    area = cut<&PaperPoint::x>(area, box.left, 1);
    area = cut<&PaperPoint::x>(area, box.right(), -1);
    area = cut<&PaperPoint::y>(area, box.top, 1);
    return cut<&PaperPoint::y>(area, box.bottom(), -1);
}

void traceOutline(cairo_t* ink, const MapFrame& map, std::span<const shade::OutlinePoint> outline,
                  const grid::Lattice& lattice) {
    const auto [least, most] = std::ranges::minmax(outline, {}, &shade::OutlinePoint::column);
    const double start = lattice.startLongitude + static_cast<double>(least.column) * lattice.longitudeStep;
    const double end = lattice.startLongitude + static_cast<double>(most.column) * lattice.longitudeStep;
    const auto [first, last] = circlesInto(map.bounds, std::min(start, end), std::max(start, end));
    const double detail = detailOf(lattice, map);
    for (int circles = first; circles <= last; ++circles) {
        const auto area = clipped(onPaper(outline, lattice, map, circles), sightOf(map));
        if (area.size() > 2) traceArea(ink, area, detail);
    }
}

}  // namespace velmar::tool
