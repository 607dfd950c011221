#pragma once

#include "chart/lineLabels.h"
#include "chart/page.h"
#include "contours.h"

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
    LabelStyle style_;
    std::vector<LineLabel> labels_;
};

/// The values of which a set has lines, in rising order.
std::vector<float> levelsOf(const ContourSet& set);

/// Smallest distance of neighbouring levels; 0 when there are not two.
float spacingOf(const std::vector<float>& levels);

/// Whether a level is the bold one, also when it comes from a sum of intervals and is off by a rounding.
bool isBoldLevel(float level, float boldValue, float spacing);

}  // namespace velmar::tool
