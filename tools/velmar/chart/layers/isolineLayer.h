#pragma once

#include "chart/layers/lineLabels.h"
#include "chart/paper/page.h"
#include "compute/contours.h"

namespace velmar::tool {

/// The lines with their values. Lines of the bold value are thick.
class IsolineLayer : public Layer {
public:
    IsolineLayer(const ContourSet& set, float boldValue) : set_(set), boldValue_(boldValue) {}
    void place(Page& page) override;
    void draw(Page& page) const override;

private:
    const ContourSet& set_;
    float boldValue_;
    std::vector<PaperLine> lines_;
    LabelStyle style_{};
    std::vector<LineLabel> labels_;
};

}  // namespace velmar::tool
