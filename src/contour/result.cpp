#include "contour/result.h"

#include <array>

namespace velmar::contour {

using frame::BlockWriter;
using frame::GridPlace;
using frame::ResultBlock;

ResultBlock packContours(const LineList& lines, const RefinementFactors& factors, const frame::GridView& grid,
                         const GridPlace& place, const ContourHints& hints) {
    const std::size_t elements = 15 + 3 * lines.lines.size() + 2 * lines.points.size() + grid.size();
    ResultBlock block = frame::allocateBlock(elements);
    BlockWriter out(block);
    out.appendCount(elements);
    out.appendCount(lines.lines.size());
    const auto [x0, y0, dx, dy] = place;
    const auto factorX = static_cast<float>(factors.x);
    const auto factorY = static_cast<float>(factors.y);
    for (const ContourLine& line : lines.lines) {
        out.appendCount(line.pointCount);
        out.append(line.level);
        out.append(0.0F);
        for (const Point& point : lines.pointsOf(line)) {
            out.append((point.x - 1.0F) * dx / factorX + x0);
            out.append((point.y - 1.0F) * dy / factorY + y0);
        }
    }
    frame::appendGrid(out, grid, place);
    out.append(std::array{hints.boldValue, hints.start, hints.end, hints.interval});
    return block;
}

ResultBlock packCenters(std::span<const Center> centers, const GridPlace& place) {
    ResultBlock block = frame::allocateBlock(7 * centers.size() + 2);
    BlockWriter out(block);
    out.appendCount(centers.size());
    for (const Center& center : centers) {
        out.append(center.high ? 1.0F : -1.0F);
        out.append(static_cast<float>(center.column) * place.dx + place.x0);
        out.append(static_cast<float>(center.row) * place.dy + place.y0);
        out.append(center.value);
        out.append(center.normalisedStrength);
        out.appendCount(center.stepCount);
        out.appendCount(center.strengthClass);
    }
    out.append(0.0F);
    return block;
}

}  // namespace velmar::contour
