#pragma once

#include "chart/paper/page.h"

namespace velmar::tool {

inline constexpr Colour noDataGrey{0.88, 0.88, 0.88};

/// Paints the map in the grey of missing data.
void paintNoData(const Page& page);

/// Paints grey where the grid has no data, missing or beyond its edge, and another colour where it has.
class CoverageLayer : public Layer {
public:
    CoverageLayer(const grid::GridView& grid, const grid::Lattice& lattice, const Colour& covered)
        : grid_(grid), lattice_(lattice), covered_(covered) {}
    void draw(Page& page) const override;

private:
    void addRow(const Page& page, int row, int circles) const;
    void addCells(const Page& page, int row, int firstColumn, int lastColumn, int circles) const;

    grid::GridView grid_;
    grid::Lattice lattice_;
    Colour covered_;
};

}  // namespace velmar::tool
