#include "chart/layers/coverageLayer.h"

namespace velmar::tool {
namespace {

/// Whether the grid has data in all four corners of a cell: lines are drawn in such cells only.
bool isCovered(const grid::GridView& grid, int column, int row) {
    return isPresent(grid.at(column, row)) && isPresent(grid.at(column + 1, row)) &&
           isPresent(grid.at(column, row + 1)) && isPresent(grid.at(column + 1, row + 1));
}

}  // namespace

void paintNoData(const Page& page) {
    const PaperBox& box = page.map.box;
    cairo_rectangle(page.ink, box.left, box.top, box.width, box.height);
    setColour(page.ink, noDataGrey);
    cairo_fill(page.ink);
}

void CoverageLayer::draw(Page& page) const {
    paintNoData(page);

    const auto [west, east] = std::minmax<double>({lattice_.startLongitude, lattice_.endLongitude});
    const auto [first, last] = circlesInto(page.map.bounds, west, east);
    for (int circles = first; circles <= last; ++circles)
        for (int row = 0; row + 1 < grid_.ny; ++row) addRow(page, row, circles);
    setColour(page.ink, covered_);
    cairo_fill(page.ink);
}

/// Neighbouring cells become one rectangle, so that no seams show between them.
void CoverageLayer::addRow(const Page& page, int row, int circles) const {
    int first = 0;
    for (int column = 0; column + 1 < grid_.nx; ++column) {
        if (isCovered(grid_, column, row)) continue;
        addCells(page, row, first, column, circles);
        first = column + 1;
    }
    addCells(page, row, first, grid_.nx - 1, circles);
}

void CoverageLayer::addCells(const Page& page, int row, int firstColumn, int lastColumn, int circles) const {
    if (firstColumn >= lastColumn) return;
    const auto corner = [&](int column, int cornerRow) {
        return page.map.toPaper(
            lattice_.startLongitude + static_cast<double>(column) * lattice_.longitudeStep + 360.0 * circles,
            lattice_.startLatitude + static_cast<double>(cornerRow) * lattice_.latitudeStep);
    };
    const PaperPoint a = corner(firstColumn, row);
    const PaperPoint b = corner(lastColumn, row + 1);
    // Far outside the map the numbers would be too large for the drawing library.
    const PaperBox& box = page.map.box;
    const auto x =
        std::minmax({std::clamp(a.x, box.left, box.right()), std::clamp(b.x, box.left, box.right())});
    const auto y =
        std::minmax({std::clamp(a.y, box.top, box.bottom()), std::clamp(b.y, box.top, box.bottom())});
    cairo_rectangle(page.ink, x.first, y.first, x.second - x.first, y.second - y.first);
}

}  // namespace velmar::tool
