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

using base::LonLat;

/// Where the level cuts the edges of a triangle.
struct Cuts {
    std::array<LonLat, 3> points;
    std::size_t count = 0;
};

Cuts cutsOf(const StationsView& stations, const Triangle& triangle, float level) {
    const auto [a, b, c] = triangle;
    Cuts cuts;
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, c), std::pair(c, a)}) {
        const float u = stations.values[from];
        const float v = stations.values[to];
        if (!((level - u) * (level - v) < 0)) continue;
        const float part = (level - u) / (v - u);
        const auto between = [part](float start, float end) { return start + (end - start) * part; };
        cuts.points[cuts.count++] = {between(stations.longitudes[from], stations.longitudes[to]),
                                     between(stations.latitudes[from], stations.latitudes[to])};
    }
    return cuts;
}

constexpr double sameEnd = 0.005;

bool match(LonLat a, LonLat b) {
    return static_cast<double>(std::fabs(a.longitude - b.longitude)) < sameEnd &&
           static_cast<double>(std::fabs(a.latitude - b.latitude)) < sameEnd;
}

/// Endpoints of pieces, found by place. They are hashed by cell of the plane; unrelated cells may share a bucket. The
/// endpoints near a place are in the bucket of its cell, or in up to four where the place is near the rim of the cell.
/// A bucket lists them in the order of the pieces; those of used pieces are removed. The first endpoint of a piece
/// has twice the number of the piece, the second one more.
class EndIndex {
public:
    static constexpr std::uint32_t noEnd = std::numeric_limits<std::uint32_t>::max();

    explicit EndIndex(const std::vector<LinePiece>& pieces)
        : pieces_(pieces), heads_(std::bit_ceil(4 * pieces.size() + 1), noEnd), nexts_(2 * pieces.size()) {
        for (std::size_t end = nexts_.size(); end-- > 0;)
            nexts_[end] = std::exchange(headOf(place(end)), static_cast<std::uint32_t>(end));
    }

    /// Whether there is exactly one endpoint at a place.
    bool isAlone(LonLat point) const {
        int found = 0;
        forEachAt(point, [&](std::uint32_t) { return ++found > 1; });
        return found == 1;
    }

    /// The first piece with an endpoint at a place, by its first endpoint where both are there.
    std::uint32_t firstAt(LonLat point) const {
        std::uint32_t first = noEnd;
        forEachAt(point, [&](std::uint32_t end) {
            first = std::min(first, end);
            return true;
        });
        return first;
    }

    void remove(std::size_t piece) {
        for (const std::size_t end : {2 * piece, 2 * piece + 1}) {
            std::uint32_t* link = &headOf(place(end));
            while (*link != end) link = &nexts_[*link];
            *link = nexts_[end];
        }
    }

private:
    LonLat place(std::size_t end) const {
        const LinePiece& piece = pieces_[end / 2];
        return end % 2 == 0 ? piece.first : piece.second;
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

    std::uint32_t& headOf(LonLat point) {
        return heads_[listOf(cellAlong(point.longitude), cellAlong(point.latitude))];
    }

    /// Visits the endpoints at a place, bucket by bucket; goes on to the next bucket when the visitor returns true.
    template <class Visit>
    void forEachAt(LonLat point, Visit visit) const {
        constexpr double reach = 1.01 * sameEnd;
        const std::array columns{cellAlong(point.longitude - reach), cellAlong(point.longitude + reach)};
        const std::array rows{cellAlong(point.latitude - reach), cellAlong(point.latitude + reach)};
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

    const std::vector<LinePiece>& pieces_;
    std::vector<std::uint32_t> heads_;
    std::vector<std::uint32_t> nexts_;
};

/// Finds the pieces with an endpoint that no other piece matches, and reverses them where it is their second.
std::vector<bool> markStarts(std::vector<LinePiece>& pieces) {
    const EndIndex ends(pieces);
    std::vector<bool> isStart(pieces.size());
    std::vector<bool> isTurned(pieces.size());
    for (std::size_t k = 0; k < pieces.size(); ++k) {
        const bool firstIsAlone = ends.isAlone(pieces[k].first);
        isTurned[k] = !firstIsAlone && ends.isAlone(pieces[k].second);
        isStart[k] = firstIsAlone || isTurned[k];
    }
    for (std::size_t k = 0; k < pieces.size(); ++k)
        if (isTurned[k]) std::swap(pieces[k].first, pieces[k].second);
    return isStart;
}

}  // namespace

std::vector<RangedTriangle> withRanges(std::span<const Triangle> triangles, std::span<const float> values) {
    std::vector<RangedTriangle> ranged;
    ranged.reserve(triangles.size());
    for (const auto& [a, b, c] : triangles) {
        const auto [smallest, largest] = std::minmax({values[a], values[b], values[c]});
        ranged.push_back({{a, b, c}, smallest, largest});
    }
    return ranged;
}

void cutTriangles(const StationsView& stations, std::span<const RangedTriangle> triangles, float level,
                  std::vector<LinePiece>& pieces) {
    pieces.clear();
    for (const RangedTriangle& triangle : triangles) {
        if (level < triangle.smallest || level > triangle.largest) continue;
        const Cuts cuts = cutsOf(stations, triangle.vertices, level);
        if (cuts.count == 2) pieces.push_back({cuts.points[0], cuts.points[1]});
    }
}

void joinPieces(std::vector<LinePiece>& pieces, float level, StationLines& lines) {
    const std::vector<bool> isStart = markStarts(pieces);
    EndIndex unused(pieces);
    std::vector<bool> isUsed(pieces.size());
    const auto use = [&](std::size_t piece) {
        isUsed[piece] = true;
        unused.remove(piece);
    };
    const auto follow = [&](std::size_t start) {
        const std::size_t firstPoint = lines.points.size();
        lines.points.insert(lines.points.end(), {pieces[start].first, pieces[start].second});
        use(start);
        for (;;) {
            const std::uint32_t end = unused.firstAt(lines.points.back());
            if (end == EndIndex::noEnd) break;
            const LinePiece& next = pieces[end / 2];
            lines.points.push_back(end % 2 == 0 ? next.second : next.first);
            use(end / 2);
        }
        lines.runs.push_back({{firstPoint, lines.points.size() - firstPoint}, level});
    };
    for (const bool onlyStarts : {true, false})
        for (std::size_t k = 0; k < pieces.size(); ++k)
            if (!isUsed[k] && (isStart[k] || !onlyStarts)) follow(k);
}

}  // namespace velmar::triangles
