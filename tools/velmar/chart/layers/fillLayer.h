#pragma once

#include <vector>

#include "chart/paper/page.h"
#include "chart/paper/paper.h"
#include "compute/contours.h"
#include "shade/outlines.h"

namespace velmar::tool {

/// The bands between the levels of a chart, over the grid that its lines were traced on.
struct Fill : GlobeGrid {
    std::vector<float> levels;    ///< rising
    std::vector<Colour> colours;  ///< of the band below the lowest level, and of those above each level
    std::vector<shade::AreaOutlines> areas;  ///< above each level
};

Fill fillContours(const ContourSet& set);

/// Paints the bands between the levels, from the lowest level up.
class FillLayer : public Layer {
public:
    explicit FillLayer(const Fill& fill) : fill_(fill) {}
    void draw(Page& page) const override;

private:
    const Fill& fill_;
};

}  // namespace velmar::tool
