#pragma once

#include "chart/paper/page.h"
#include "compute/centers.h"

namespace velmar::tool {

/// H and L at the centres of highs and lows, with their values below: as many as there is room for, the most
/// prominent before others.
class CenterLayer : public Layer {
public:
    /// Centres of a grid, among lines of this spacing; 0 when there are no lines.
    CenterLayer(const GlobeGrid& grid, float lineSpacing) : grid_(grid), lineSpacing_(lineSpacing) {}
    void place(Page& page) override;
    void draw(Page& page) const override;

private:
    struct Mark {
        ProminentCenter center;
        PaperPoint place;
    };
    void placeMark(Page& page, const Mark& mark);

    float leastProminence() const;

    const GlobeGrid& grid_;
    float lineSpacing_;
    std::vector<Mark> marks_;
};

}  // namespace velmar::tool
