#include "compute/streamlines.h"

#include <algorithm>
#include <numeric>
#include <span>

#include "common/text.h"
#include "wind/streamlines.h"

namespace velmar::tool {
namespace {

/// Puts lines together from their two parts, each of which starts where the line was begun.
class LineJoiner {
public:
    explicit LineJoiner(StreamlineSet& set) : set_(set) { set_.firstPieces.push_back(0); }

    void start(base::LonLat seed) {
        inFirstPart_ = !inFirstPart_;
        if (!inFirstPart_) return;
        finishLine();
        seed_ = seed;
    }

    void drawTo(base::LonLat end, int band) {
        (inFirstPart_ ? withFlow_ : againstFlow_).push_back({end, band});
    }

    /// The part against the flow is turned round, so that a band belongs to the piece on the other side of
    /// its point.
    void finishLine() {
        if (withFlow_.empty() && againstFlow_.empty()) return;
        int band = 0;
        for (auto piece = againstFlow_.rbegin(); piece != againstFlow_.rend(); ++piece) {
            set_.pieces.push_back({piece->end, band});
            band = piece->band;
        }
        set_.pieces.push_back({seed_, band});
        set_.pieces.insert(set_.pieces.end(), withFlow_.begin(), withFlow_.end());
        set_.firstPieces.push_back(set_.pieces.size());
        withFlow_.clear();
        againstFlow_.clear();
    }

private:
    StreamlineSet& set_;
    base::LonLat seed_{};
    bool inFirstPart_ = false;
    std::vector<StreamlineSet::Piece> withFlow_;
    std::vector<StreamlineSet::Piece> againstFlow_;
};

/// The library's lines may end a little beyond the last row or column.
base::LonLat insideGrid(base::LonLat point, const grid::GridView& grid, const grid::Lattice& lattice) {
    const float endLongitude =
        lattice.startLongitude + static_cast<float>(grid.nx - 1) * lattice.longitudeStep;
    const float endLatitude = lattice.startLatitude + static_cast<float>(grid.ny - 1) * lattice.latitudeStep;
    const auto [west, east] = std::minmax({lattice.startLongitude, endLongitude});
    return {std::clamp(point.longitude, west, east),
            std::clamp(point.latitude, lattice.startLatitude, endLatitude)};
}

/// Reads the points of lines, each a pen, longitude, latitude and colour.
void readLines(std::span<const float> points, const grid::GridView& grid, const grid::Lattice& lattice,
               StreamlineSet& set) {
    constexpr std::size_t pointElements = 4;
    LineJoiner joiner(set);
    for (; !points.empty(); points = points.subspan(pointElements)) {
        const base::LonLat place = insideGrid({points[1], points[2]}, grid, lattice);
        if (points[0] == static_cast<float>(wind::Pen::up))
            joiner.start(place);
        else
            joiner.drawTo(place, set.bandOf(points[3]));
    }
    joiner.finishLine();
}

/// Reads arrows, each a tag, tail, head and colour.
void readArrows(std::span<const float> arrows, const grid::GridView& grid, const grid::Lattice& lattice,
                StreamlineSet& set) {
    constexpr std::size_t arrowElements = 6;
    for (; !arrows.empty(); arrows = arrows.subspan(arrowElements))
        set.arrows.push_back({insideGrid({arrows[1], arrows[2]}, grid, lattice),
                              insideGrid({arrows[3], arrows[4]}, grid, lattice), set.bandOf(arrows[5])});
}

}  // namespace

StreamlineSet traceStreamlines(const WindGrid& file, int density, const std::vector<float>& levels) {
    const bool closes = circlesGlobe(file.header);
    const grid::Grid closedU = closes ? closedGrid(file.u) : grid::Grid{};
    const grid::Grid closedV = closes ? closedGrid(file.v) : grid::Grid{};
    const grid::GridView u = closes ? closedU.view() : file.u;
    const grid::GridView v = closes ? closedV.view() : file.v;
    std::vector<float> speeds(u.size());
    std::transform(u.values, u.values + u.size(), v.values, speeds.begin(), windSpeed);
    std::vector<int> bands(levels.size());
    std::iota(bands.begin(), bands.end(), 0);

    grid::Lattice lattice = file.header.lattice;
    if (closes) lattice.endLongitude += lattice.longitudeStep;
    constexpr float missing = grid::missingInFiles;
    auto drawing = wind::drawStreamlines({u, v, missing, missing},
                                         {{speeds.data(), u.nx, u.ny}, missing, {levels, bands}}, lattice,
                                         density, wind::Drawing(0, 0));
    if (!drawing) throw Problem("there is not enough memory for it");
    StreamlineSet set{.levels = levels, .pieces = {}, .firstPieces = {}, .arrows = {}};
    const std::size_t elements = drawing->points.size();
    const base::Floats points = drawing->points.finish();
    readLines({points.get(), elements}, u, lattice, set);
    readArrows(drawing->arrows, u, lattice, set);
    return set;
}

}  // namespace velmar::tool
