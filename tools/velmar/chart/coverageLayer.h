#pragma once

#include "chart/page.h"
#include "contours.h"

namespace velmar::tool {

inline constexpr Colour noDataGrey{0.88, 0.88, 0.88};

/// Paints grey where the grid has no data, missing or beyond its edge, and white where it has.
class CoverageLayer : public Layer {
public:
    explicit CoverageLayer(const ContourSet& set) : set_(set) {}
    void draw(Page& page) const override;

private:
    void addRow(const Page& page, int row, int circles) const;
    void addCells(const Page& page, int row, int firstColumn, int lastColumn, int circles) const;
    const ContourSet& set_;
};

}  // namespace velmar::tool
