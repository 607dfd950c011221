#include "compute/streamlines.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "capi/state.h"
#include "compute/blockReader.h"

namespace velmar::tool {
namespace {

/// The elements of a streamline block, each with its kind in front.
enum Element { startLine = 0, drawTo = 1, arrow = 2 };

/// Puts lines together from their two parts, each of which starts where the line was begun.
class LineJoiner {
public:
    explicit LineJoiner(StreamlineSet& set) : set_(set) { set_.firstPieces.push_back(0); }

    void start(GeoPoint seed) {
        inFirstPart_ = !inFirstPart_;
        if (!inFirstPart_) return;
        finishLine();
        seed_ = seed;
    }

    void drawTo(GeoPoint end, int band) { (inFirstPart_ ? withFlow_ : againstFlow_).push_back({end, band}); }

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
    GeoPoint seed_{};
    bool inFirstPart_ = false;
    std::vector<StreamlineSet::Piece> withFlow_;
    std::vector<StreamlineSet::Piece> againstFlow_;
};

/// The library's lines may end a little beyond the last row or column.
GeoPoint insideGrid(GeoPoint point, const grid::GridView& grid, const grid::Lattice& lattice) {
    const float endLongitude =
        lattice.startLongitude + static_cast<float>(grid.nx - 1) * lattice.longitudeStep;
    const float endLatitude = lattice.startLatitude + static_cast<float>(grid.ny - 1) * lattice.latitudeStep;
    const auto [west, east] = std::minmax({lattice.startLongitude, endLongitude});
    return {std::clamp(point.longitude, west, east),
            std::clamp(point.latitude, lattice.startLatitude, endLatitude)};
}

/// What stands behind the last element: its count in front is a float, too coarse for very many.
std::array<float, 6> endMark(const grid::GridView& grid, const grid::Lattice& lattice) {
    return {0,
            -1,
            static_cast<float>(grid.nx),
            static_cast<float>(grid.ny),
            lattice.startLongitude,
            lattice.startLatitude};
}

void readLines(const float* element, const grid::GridView& grid, const grid::Lattice& lattice,
               StreamlineSet& set) {
    const auto end = endMark(grid, lattice);
    LineJoiner joiner(set);
    const int lastBand = static_cast<int>(set.levels.size()) - 1;
    while (!std::equal(end.begin(), end.end(), element)) {
        BlockReader in(element);
        const auto point = [&] {
            const float longitude = in.value();
            return insideGrid({longitude, in.value()}, grid, lattice);
        };
        const auto band = [&] { return std::min(static_cast<int>(in.value()), lastBand); };
        const auto kind = static_cast<Element>(static_cast<int>(in.value()));
        const GeoPoint place = point();
        if (kind == startLine) joiner.start(place);
        if (kind == drawTo) joiner.drawTo(place, band());
        if (kind == arrow) {
            const GeoPoint head = point();
            set.arrows.push_back({place, head, band()});
        }
        element += kind == arrow ? 6 : 4;
    }
    joiner.finishLine();
}

}  // namespace

StreamlineSet traceStreamlines(const WindFile& file, int density, const std::vector<float>& levels) {
    const bool closes = circlesGlobe(file.header);
    const grid::Grid closedU = closes ? closedGrid(file.u) : grid::Grid{};
    const grid::Grid closedV = closes ? closedGrid(file.v) : grid::Grid{};
    const grid::GridView u = closes ? closedU.view() : file.u;
    const grid::GridView v = closes ? closedV.view() : file.v;
    std::vector<float> speeds(u.size());
    std::transform(u.values, u.values + u.size(), v.values, speeds.begin(), windSpeed);
    std::vector<int> bands(levels.size());
    std::iota(bands.begin(), bands.end(), 0);

    // The export is told no place: it takes that of the last wind file.
    grid::Lattice lattice = file.header.lattice;
    if (closes) lattice.endLongitude += lattice.longitudeStep;
    capi::state().windLattice = lattice;
    capi::state().streamlineColour = 0;
    const Block block = ownedBlock(streamAnalyse(
        u.values, v.values, speeds.data(), u.nx, u.ny, grid::missingInFiles, grid::missingInFiles,
        grid::missingInFiles, 1, levels.data(), bands.data(), static_cast<int>(levels.size()), density));
    StreamlineSet set{.levels = levels, .pieces = {}, .firstPieces = {}, .arrows = {}};
    readLines(block.get() + 2, u, lattice, set);
    return set;
}

}  // namespace velmar::tool
