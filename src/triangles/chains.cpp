#include "triangles/chains.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>

#include "base/numbers.h"

namespace velmar::triangles {
namespace {

using grid::Point;

constexpr double sameEnd = 0.005;

bool match(Point a, Point b) {
    return static_cast<double>(std::fabs(a.x - b.x)) < sameEnd &&
           static_cast<double>(std::fabs(a.y - b.y)) < sameEnd;
}

/// Endpoints of pieces, found by place. They are hashed by cell of the plane; unrelated cells may share a bucket. The
/// endpoints near a place are in the bucket of its cell, or in up to four where the place is near the rim of the cell.
/// A bucket lists them in the order of the pieces; those of used pieces are removed. The first endpoint of a piece
/// has twice the number of the piece, the second one more.
class EndIndex {
public:
    static constexpr std::uint32_t noEnd = std::numeric_limits<std::uint32_t>::max();

    explicit EndIndex(const std::vector<Segment>& segments)
        : segments_(segments),
          heads_(std::bit_ceil(4 * segments.size() + 1), noEnd),
          nexts_(2 * segments.size()) {
        for (std::size_t end = nexts_.size(); end-- > 0;)
            nexts_[end] = std::exchange(headOf(place(end)), static_cast<std::uint32_t>(end));
    }

    /// Whether there is exactly one endpoint at a place.
    bool isAlone(Point point) const {
        int found = 0;
        forEachAt(point, [&](std::uint32_t) { return ++found > 1; });
        return found == 1;
    }

    /// The first piece with an endpoint at a place, by its first endpoint where both are there.
    std::uint32_t firstAt(Point point) const {
        std::uint32_t first = noEnd;
        forEachAt(point, [&](std::uint32_t end) {
            first = std::min(first, end);
            return true;
        });
        return first;
    }

    void remove(std::size_t segment) {
        for (const std::size_t end : {2 * segment, 2 * segment + 1}) {
            std::uint32_t* link = &headOf(place(end));
            while (*link != end) link = &nexts_[*link];
            *link = nexts_[end];
        }
    }

private:
    Point place(std::size_t end) const {
        const Segment& segment = segments_[end / 2];
        return end % 2 == 0 ? segment.first : segment.second;
    }

    static std::int64_t cellAlong(double coordinate) {
        constexpr double size = 0.05;
        return base::truncateToInt(std::floor(coordinate / size));
    }

    std::size_t listOf(std::int64_t column, std::int64_t row) const {
        const auto mixed = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15U +
                           static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4FU;
        return static_cast<std::size_t>(mixed >> 32U) & (heads_.size() - 1);
    }

    std::uint32_t& headOf(Point point) { return heads_[listOf(cellAlong(point.x), cellAlong(point.y))]; }

    /// Visits the endpoints at a place, bucket by bucket; goes on to the next bucket when the visitor returns true.
    template <class Visit>
    void forEachAt(Point point, Visit visit) const {
        constexpr double reach = 1.01 * sameEnd;
        const std::array columns{cellAlong(point.x - reach), cellAlong(point.x + reach)};
        const std::array rows{cellAlong(point.y - reach), cellAlong(point.y + reach)};
        std::array<std::size_t, 4> lists{};
        std::size_t count = 0;
        for (const std::int64_t row : std::span(rows).first(rows[0] == rows[1] ? 1 : 2)) {
            for (const std::int64_t column : std::span(columns).first(columns[0] == columns[1] ? 1 : 2)) {
                const std::size_t list = listOf(column, row);
                const auto visited = std::span(lists).first(count);
                if (std::ranges::find(visited, list) != visited.end()) continue;
                lists[count++] = list;
                for (std::uint32_t end = heads_[list]; end != noEnd; end = nexts_[end])
                    if (match(place(end), point) && visit(end)) break;
            }
        }
    }

    const std::vector<Segment>& segments_;
    std::vector<std::uint32_t> heads_;
    std::vector<std::uint32_t> nexts_;
};

/// Finds the pieces with an endpoint that no other piece matches, and reverses them where it is their second.
std::vector<bool> markStarts(std::vector<Segment>& segments) {
    const EndIndex ends(segments);
    std::vector<bool> isStart(segments.size());
    std::vector<bool> isTurned(segments.size());
    for (std::size_t k = 0; k < segments.size(); ++k) {
        const bool firstIsAlone = ends.isAlone(segments[k].first);
        isTurned[k] = !firstIsAlone && ends.isAlone(segments[k].second);
        isStart[k] = firstIsAlone || isTurned[k];
    }
    for (std::size_t k = 0; k < segments.size(); ++k)
        if (isTurned[k]) std::swap(segments[k].first, segments[k].second);
    return isStart;
}

}  // namespace

void joinSegments(std::vector<Segment>& segments, float level, Lines& lines) {
    const std::vector<bool> isStart = markStarts(segments);
    EndIndex unused(segments);
    std::vector<bool> isUsed(segments.size());
    const auto use = [&](std::size_t segment) {
        isUsed[segment] = true;
        unused.remove(segment);
    };
    const auto follow = [&](std::size_t start) {
        const std::size_t firstPoint = lines.points.size();
        lines.points.insert(lines.points.end(), {segments[start].first, segments[start].second});
        use(start);
        for (;;) {
            const std::uint32_t end = unused.firstAt(lines.points.back());
            if (end == EndIndex::noEnd) break;
            const Segment& next = segments[end / 2];
            lines.points.push_back(end % 2 == 0 ? next.second : next.first);
            use(end / 2);
        }
        lines.lines.push_back({lines.points.size() - firstPoint, level});
    };
    for (const bool onlyStarts : {true, false})
        for (std::size_t k = 0; k < segments.size(); ++k)
            if (!isUsed[k] && (isStart[k] || !onlyStarts)) follow(k);
}

}  // namespace velmar::triangles
