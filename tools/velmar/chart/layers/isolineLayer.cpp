#include "chart/layers/isolineLayer.h"

#include "chart/paper/lettering.h"
#include "compute/levelSpacing.h"

namespace velmar::tool {
namespace {

constexpr Colour lineInk{0.04, 0.13, 0.42};
constexpr double thinWidth = 1.0;
constexpr double boldWidth = 2.6;
constexpr double labelSize = 12.5;

}  // namespace

void IsolineLayer::place(Page& page) {
    const float spacing = spacingOf(levelsOf(set_));
    lines_ = bringToPaper(set_.lines, set_.tracedLattice(), page.map);
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
        lines_[k].trace(page.ink, sightOf(page.map), gaps[k]);
        cairo_set_line_width(page.ink, style_.isBold[k] ? boldWidth : thinWidth);
        cairo_stroke(page.ink);
    }
    for (const LineLabel& label : labels_)
        drawText(page.ink, label.text, label.center, Anchor::center,
                 {.size = labelSize, .bold = style_.isBold[label.line], .colour = lineInk, .halo = 1.5},
                 label.angle);
}

}  // namespace velmar::tool
