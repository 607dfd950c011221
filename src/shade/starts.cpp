#include "shade/starts.h"

#include <bit>

namespace velmar::shade {

using grid::BitPlane;
using grid::nextColumn;
using grid::Word;

namespace {

/// Sides of 64 neighbouring points, one bit a point.
struct SideBits {
    Word alongRow;
    Word alongColumn;
};

/// What traces start from: sides that the level crosses, or sides of a boundary that lie above it from end to end.
enum class StartsFrom { crossings, edges };

/// Finds the sides that no trace has passed yet.
class StartSearch {
public:
    StartSearch(const Strip& strip, int nx, const StripBuffers& buffers, RegionTracer& tracer)
        : strip_(strip), lastColumn_(nx - 1), above_(buffers.above), sides_(buffers.sides), tracer_(tracer) {}

    bool hasFailed() const { return hasFailed_; }

    template <StartsFrom from>
    bool trace();

private:
    template <StartsFrom from>
    bool traceAt(int i, int j, const SideBits& sides);
    bool traceRegion(const RegionStart& start);
    std::span<const Word> above(int j) const { return {above_.row(j), above_.wordsPerRow()}; }
    SideBits crossedSides(int j, std::size_t w) const;
    SideBits highEdges(int j, std::size_t w) const;
    Word edgeColumns(std::size_t w) const;
    RegionStart crossingAlongRow(int i, int j) const;
    RegionStart crossingAlongColumn(int i, int j) const;
    RegionStart edgeAlongRow(int i, int j) const;
    RegionStart edgeAlongColumn(int i, int j) const;

    Strip strip_;
    int lastColumn_;
    const BitPlane& above_;
    const StripSides& sides_;
    RegionTracer& tracer_;
    bool hasFailed_ = false;
};

bool isSet(Word bits, int i) { return (bits >> (i % BitPlane::wordBits) & 1U) != 0; }

/// The usable sides between a point above the level and one that is not.
SideBits StartSearch::crossedSides(int j, std::size_t w) const {
    const std::span<const Word> row = above(j);
    const Word crossed = (row[w] ^ nextColumn(row, w)) & sides_.alongRow.usable.row(j)[w];
    if (j == strip_.jmax) return {crossed, 0};
    return {crossed, (row[w] ^ above(j + 1)[w]) & sides_.alongColumn.usable.row(j)[w]};
}

/// The sides on the strip's edge and on undefined boundaries with both ends above the level.
SideBits StartSearch::highEdges(int j, std::size_t w) const {
    const std::span<const Word> row = above(j);
    const bool onEdge = j == strip_.jmin || j == strip_.jmax;
    const SideFlags& rowSides = sides_.alongRow;
    const Word high = row[w] & nextColumn(row, w) & (onEdge ? rowSides.usable : rowSides.boundary).row(j)[w];
    if (j == strip_.jmax) return {high, 0};
    const SideFlags& columnSides = sides_.alongColumn;
    const Word ends = columnSides.boundary.row(j)[w] | (columnSides.usable.row(j)[w] & edgeColumns(w));
    return {high, row[w] & above(j + 1)[w] & ends};
}

/// The bits of the first and the last column.
Word StartSearch::edgeColumns(std::size_t w) const {
    const auto last = static_cast<unsigned>(lastColumn_);
    const Word lastBit = w == last / BitPlane::wordBits ? Word{1} << last % BitPlane::wordBits : 0;
    return lastBit | (w == 0 ? 1U : 0U);
}

RegionStart StartSearch::crossingAlongRow(int i, int j) const {
    return j == strip_.jmax ? RegionStart{StartKind::cellTop, i, j - 1}
                            : RegionStart{StartKind::cellBottom, i, j};
}

RegionStart StartSearch::crossingAlongColumn(int i, int j) const {
    return i == lastColumn_ ? RegionStart{StartKind::cellRight, i - 1, j}
                            : RegionStart{StartKind::cellLeft, i, j};
}

RegionStart StartSearch::edgeAlongRow(int i, int j) const {
    if (j == strip_.jmin) return {StartKind::bottomEdge, i, j};
    if (j == strip_.jmax) return {StartKind::topEdge, i, j};
    return {StartKind::undefinedAlongRow, i + 1, j};
}

RegionStart StartSearch::edgeAlongColumn(int i, int j) const {
    if (i == 0) return {StartKind::leftEdge, i, j};
    if (i == lastColumn_) return {StartKind::rightEdge, i, j};
    return {StartKind::undefinedAlongColumn, i, j + 1};
}

template <StartsFrom from>
bool StartSearch::trace() {
    for (int j = strip_.jmin; j <= strip_.jmax; ++j) {
        for (std::size_t w = 0; w < above_.wordsPerRow(); ++w) {
            const SideBits sides = from == StartsFrom::crossings ? crossedSides(j, w) : highEdges(j, w);
            for (Word points = sides.alongRow | sides.alongColumn; points != 0; points &= points - 1) {
                const int i = static_cast<int>(w) * BitPlane::wordBits + std::countr_zero(points);
                if (!traceAt<from>(i, j, sides)) return false;
            }
        }
    }
    return true;
}

/// Traces from those sides at a point that no trace has passed yet.
template <StartsFrom from>
bool StartSearch::traceAt(int i, int j, const SideBits& sides) {
    constexpr bool crossings = from == StartsFrom::crossings;
    bool traced = true;
    if (isSet(sides.alongRow, i) && !sides_.alongRow.walked.test(i, j))
        traced = traceRegion(crossings ? crossingAlongRow(i, j) : edgeAlongRow(i, j));
    // On edges, a failure of a point's first trace is ignored when there is a second one.
    const bool goesOn = traced || !crossings;
    if (goesOn && isSet(sides.alongColumn, i) && !sides_.alongColumn.walked.test(i, j))
        traced = traceRegion(crossings ? crossingAlongColumn(i, j) : edgeAlongColumn(i, j));
    return traced;
}

bool StartSearch::traceRegion(const RegionStart& start) {
    const bool traced = tracer_.traceRegion(start);
    hasFailed_ |= !traced;
    return traced;
}

}  // namespace

bool traceFromStarts(const Strip& strip, int nx, const StripBuffers& buffers, RegionTracer& tracer,
                     bool& hasFailed) {
    StartSearch search(strip, nx, buffers, tracer);
    const bool traced = search.trace<StartsFrom::crossings>() && search.trace<StartsFrom::edges>();
    hasFailed |= search.hasFailed();
    return traced;
}

}  // namespace velmar::shade
