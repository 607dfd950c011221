#include "chart/isolineLayer.h"

#include <algorithm>
#include <cmath>

#include "chart/lettering.h"

namespace velmar::tool {
namespace {

constexpr Colour lineInk{0.04, 0.13, 0.42};
constexpr double thinWidth = 1.0;
constexpr double boldWidth = 2.6;
constexpr double labelSize = 12.5;

}  // namespace

std::vector<float> levelsOf(const ContourSet& set) {
    std::vector<float> levels;
    for (const Isoline& line : set.lines) levels.push_back(line.value);
    std::ranges::sort(levels);
    levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
    return levels;
}

float spacingOf(const std::vector<float>& levels) {
    float spacing = 0;
    for (std::size_t k = 1; k < levels.size(); ++k) {
        const float step = levels[k] - levels[k - 1];
        if (k == 1 || step < spacing) spacing = step;
    }
    return spacing;
}

bool isBoldLevel(float level, float boldValue, float spacing) {
    return std::fabs(level - boldValue) <= 0.01F * spacing;
}

void IsolineLayer::place(Page& page) {
    const float spacing = spacingOf(levelsOf(set_));
    lines_ = bringToPaper(set_, page.map);
    style_.size = labelSize;
    for (const PaperLine& line : lines_)
        style_.isBold.push_back(isBoldLevel(line.value(), boldValue_, spacing));
    labels_ = placeLabels(page, lines_, style_);
}

void IsolineLayer::draw(Page& page) const {
    std::vector<std::vector<Stretch>> gaps(lines_.size());
    for (const LineLabel& label : labels_) gaps[label.line].push_back(label.gap);

    setColour(page.ink, lineInk);
    cairo_set_line_join(page.ink, CAIRO_LINE_JOIN_ROUND);
    for (std::size_t k = 0; k < lines_.size(); ++k) {
        lines_[k].trace(page.ink, page.map.box, gaps[k]);
        cairo_set_line_width(page.ink, style_.isBold[k] ? boldWidth : thinWidth);
        cairo_stroke(page.ink);
    }
    for (const LineLabel& label : labels_)
        drawText(page.ink, label.text, label.center, Anchor::center,
                 {.size = labelSize, .bold = style_.isBold[label.line], .colour = lineInk, .halo = 1.5},
                 label.angle);
}

}  // namespace velmar::tool
