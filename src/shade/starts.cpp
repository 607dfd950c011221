#include "shade/starts.h"

#include <bit>

namespace velmar::shade {

using grid::BitPlane;
using grid::nextColumn;
using Word = std::uint64_t;

namespace {

/// Sides of 64 neighbouring points, one bit a point: those along the row and those along the column.
struct SideBits {
    Word horizontal;
    Word vertical;
};

/// What traces start from: sides that the level crosses, or sides of a boundary that lie above it from end to end.
enum class StartsFrom { crossings, edges };

/// Finds the sides that no trace has passed yet.
class StartSearch {
public:
    StartSearch(const Strip& strip, TraceBuffers& buffers, RegionTracer& tracer)
        : strip_(strip),
          lastColumn_(buffers.index.grid().nx - 1),
          above_(buffers.above),
          sides_(buffers.sides),
          tracer_(tracer) {}

    template <StartsFrom from>
    bool trace();

private:
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
};

bool isSet(Word bits, int i) { return (bits >> (i % BitPlane::wordBits) & 1U) != 0; }

/// The usable sides between a point above the level and one that is not.
SideBits StartSearch::crossedSides(int j, std::size_t w) const {
    const std::span<const Word> row = above(j);
    const Word horizontal = (row[w] ^ nextColumn(row, w)) & sides_.sideFlagsH.usable.row(j)[w];
    if (j == strip_.jmax) return {horizontal, 0};
    return {horizontal, (row[w] ^ above(j + 1)[w]) & sides_.sideFlagsV.usable.row(j)[w]};
}

/// The sides on the strip's edge and on undefined boundaries with both ends above the level.
SideBits StartSearch::highEdges(int j, std::size_t w) const {
    const std::span<const Word> row = above(j);
    const bool onEdge = j == strip_.jmin || j == strip_.jmax;
    const SideFlags& alongRow = sides_.sideFlagsH;
    const Word horizontal =
        row[w] & nextColumn(row, w) & (onEdge ? alongRow.usable : alongRow.boundary).row(j)[w];
    if (j == strip_.jmax) return {horizontal, 0};
    const SideFlags& alongColumn = sides_.sideFlagsV;
    const Word ends = alongColumn.boundary.row(j)[w] | (alongColumn.usable.row(j)[w] & edgeColumns(w));
    return {horizontal, row[w] & above(j + 1)[w] & ends};
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
    constexpr bool crossings = from == StartsFrom::crossings;
    const BitPlane& walkedH = sides_.sideFlagsH.walked;
    const BitPlane& walkedV = sides_.sideFlagsV.walked;
    for (int j = strip_.jmin; j <= strip_.jmax; ++j) {
        for (std::size_t w = 0; w < above_.wordsPerRow(); ++w) {
            const auto [horizontal, vertical] = crossings ? crossedSides(j, w) : highEdges(j, w);
            for (Word points = horizontal | vertical; points != 0; points &= points - 1) {
                const int i = static_cast<int>(w) * BitPlane::wordBits + std::countr_zero(points);
                bool traced = true;
                if (isSet(horizontal, i) && !walkedH.test(i, j))
                    traced =
                        tracer_.traceShadeRegion(crossings ? crossingAlongRow(i, j) : edgeAlongRow(i, j));
                // On edges, a failure of a point's first trace is ignored when there is a second one.
                const bool goesOn = traced || !crossings;
                if (goesOn && isSet(vertical, i) && !walkedV.test(i, j))
                    traced = tracer_.traceShadeRegion(crossings ? crossingAlongColumn(i, j)
                                                                : edgeAlongColumn(i, j));
                if (!traced) return false;
            }
        }
    }
    return true;
}

}  // namespace

bool traceFromStarts(const Strip& strip, TraceBuffers& buffers, RegionTracer& tracer) {
    StartSearch search(strip, buffers, tracer);
    return search.trace<StartsFrom::crossings>() && search.trace<StartsFrom::edges>();
}

}  // namespace velmar::shade
