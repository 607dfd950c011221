#include "chart/paper/paperLine.h"

#include <algorithm>

namespace velmar::tool {
namespace {

GeoBox extentOf(const Isoline& line) {
    GeoBox extent{1e9, -1e9, 1e9, -1e9};
    for (std::size_t k = 0; k < line.size(); ++k) {
        const auto [longitude, latitude] = line[k];
        extent.west = std::min<double>(extent.west, longitude);
        extent.east = std::max<double>(extent.east, longitude);
        extent.south = std::min<double>(extent.south, latitude);
        extent.north = std::max<double>(extent.north, latitude);
    }
    return extent;
}

}  // namespace

std::optional<Stretch> partInside(PaperPoint from, PaperPoint to, const PaperBox& box) {
    Stretch part{0, 1};
    const auto narrow = [&](double start, double end, double low, double high) {
        if (start == end && (start < low || start > high)) part.to = -1;
        if (start == end) return;
        const double a = (low - start) / (end - start);
        const double b = (high - start) / (end - start);
        part.from = std::max(part.from, std::min(a, b));
        part.to = std::min(part.to, std::max(a, b));
    };
    narrow(from.x, to.x, box.left, box.right());
    narrow(from.y, to.y, box.top, box.bottom());
    return part.from <= part.to ? std::optional(part) : std::nullopt;
}

PaperLine::PaperLine(const Isoline& line, const MapFrame& map, int circles, double detail)
    : value_(line.value) {
    std::vector<PaperPoint> points;
    points.reserve(line.size() + 1);
    for (std::size_t k = 0; k < line.size(); ++k)
        points.push_back(map.toPaper(line[k].longitude + 360.0 * circles, line[k].latitude));
    // A ring starts in the middle of its first piece, so that its first corner is a corner like the others.
    if (line.closed()) {
        points.front() = 0.5 * (points[0] + points[1]);
        points.push_back(points.front());
    }
    for (const PaperPoint& point : withoutDetail(points, detail)) add(point);
}

void PaperLine::add(PaperPoint point) {
    lengths_.push_back(points_.empty() ? 0 : lengths_.back() + distance(points_.back(), point));
    points_.push_back(point);
}

PaperPoint PaperLine::at(double length) const {
    const auto behind = std::upper_bound(lengths_.begin() + 1, lengths_.end() - 1, length);
    const auto k = static_cast<std::size_t>(behind - lengths_.begin());
    const double step = lengths_[k] - lengths_[k - 1];
    const double part = step > 0 ? (length - lengths_[k - 1]) / step : 0;
    return points_[k - 1] + part * (points_[k] - points_[k - 1]);
}

void PaperLine::traceStretch(cairo_t* ink, const Stretch& stretch) const {
    const auto first = std::upper_bound(lengths_.begin(), lengths_.end(), stretch.from) - lengths_.begin();
    const auto last = std::lower_bound(lengths_.begin(), lengths_.end(), stretch.to) - lengths_.begin();
    std::vector<PaperPoint> line{at(stretch.from)};
    if (first < last) line.insert(line.end(), points_.begin() + first, points_.begin() + last);
    line.push_back(at(stretch.to));
    cairo_move_to(ink, line.front().x, line.front().y);
    traceRounded(ink, line);
}

std::vector<Stretch> PaperLine::stretchesInside(const PaperBox& box) const {
    std::vector<Stretch> stretches;
    for (std::size_t k = 1; k < points_.size(); ++k) {
        const auto part = partInside(points_[k - 1], points_[k], box);
        if (!part) continue;
        const double step = lengths_[k] - lengths_[k - 1];
        // The whole of a piece must end exactly where the next one starts.
        const Stretch stretch{part->from > 0 ? lengths_[k - 1] + part->from * step : lengths_[k - 1],
                              part->to < 1 ? lengths_[k - 1] + part->to * step : lengths_[k]};
        if (!stretches.empty() && stretches.back().to == stretch.from)
            stretches.back().to = stretch.to;
        else
            stretches.push_back(stretch);
    }
    return stretches;
}

void PaperLine::trace(cairo_t* ink, const PaperBox& box, const std::vector<Stretch>& gaps) const {
    for (auto [from, to] : stretchesInside(box)) {
        for (const Stretch& gap : gaps) {
            if (gap.from < from || gap.to > to) continue;
            traceStretch(ink, {from, gap.from});
            from = gap.to;
        }
        traceStretch(ink, {from, to});
    }
}

double detailOf(const grid::Lattice& lattice, const MapFrame& map) {
    constexpr double leastVisible = 0.3;
    const PaperPoint from = map.toPaper(0, 0);
    const PaperPoint to = map.toPaper(lattice.longitudeStep, lattice.latitudeStep);
    return std::max(leastVisible, std::min(std::fabs(to.x - from.x), std::fabs(to.y - from.y)) / 8);
}

PaperBox sightOf(const MapFrame& map) {
    constexpr double margin = 60;
    const PaperBox& box = map.box;
    return {box.left - margin, box.top - margin, box.width + 2 * margin, box.height + 2 * margin};
}

std::vector<PaperLine> bringToPaper(const std::vector<Isoline>& lines, const grid::Lattice& lattice,
                                    const MapFrame& map) {
    const double detail = detailOf(lattice, map);
    std::vector<PaperLine> onPaper;
    for (const Isoline& line : lines) {
        const GeoBox extent = extentOf(line);
        // A line of one point has nothing to draw.
        if (line.size() < 2 || extent.south > map.bounds.north || extent.north < map.bounds.south) continue;
        const auto [first, last] = circlesInto(map.bounds, extent.west, extent.east);
        for (int circles = first; circles <= last; ++circles)
            onPaper.emplace_back(line, map, circles, detail);
    }
    return onPaper;
}

std::vector<PaperPoint> withoutDetail(const std::vector<PaperPoint>& line, double detail) {
    if (line.size() < 3) return line;
    std::vector<PaperPoint> kept{line.front()};
    bool isMiddle = true;  // the ends stay where they are
    for (std::size_t k = 1; k + 1 < line.size(); ++k) {
        if (distance(kept.back(), line[k]) >= detail) {
            kept.push_back(line[k]);
            isMiddle = false;
        } else if (!isMiddle) {
            kept.back() = 0.5 * (kept.back() + line[k]);
            isMiddle = true;
        }
    }
    kept.push_back(line.back());
    return kept;
}

void traceRounded(cairo_t* ink, const std::vector<PaperPoint>& line) {
    constexpr double leastVisible = 0.1;
    PaperPoint from = line.front();
    for (std::size_t k = 1; k + 1 < line.size(); ++k) {
        const PaperPoint corner = line[k];
        const PaperPoint to = k + 2 < line.size() ? 0.5 * (corner + line[k + 1]) : line[k + 1];
        if (distance(corner, 0.5 * (from + to)) / 2 < leastVisible) {
            cairo_line_to(ink, to.x, to.y);
        } else {
            const PaperPoint a = from + 2.0 / 3 * (corner - from);
            const PaperPoint b = to + 2.0 / 3 * (corner - to);
            cairo_curve_to(ink, a.x, a.y, b.x, b.y, to.x, to.y);
        }
        from = to;
    }
    if (line.size() == 2) cairo_line_to(ink, line.back().x, line.back().y);
}

}  // namespace velmar::tool
