#pragma once

#include <vector>

#include "chart/paper/page.h"
#include "chart/paper/paperLine.h"
#include "compute/streamlines.h"

namespace velmar::tool {

/// Streamlines in the colours of their bands of speed, the strongest on top, with the heads of as many arrows as
/// there is room for.
class StreamlineLayer : public Layer {
public:
    /// The lattice is that of the field that the lines were traced on; there is a colour for each of its bands.
    StreamlineLayer(const StreamlineSet& set, const grid::Lattice& lattice, std::vector<Colour> colours)
        : set_(set), lattice_(lattice), colours_(std::move(colours)) {}
    void place(Page& page) override;
    void draw(Page& page) const override;

private:
    struct ArrowHead {
        PaperPoint tip;
        double angle;
        int band;
    };
    void placeArrow(Page& page, const StreamlineSet::Arrow& arrow, int circles);

    const StreamlineSet& set_;
    grid::Lattice lattice_;
    std::vector<Colour> colours_;
    std::vector<PaperLine> lines_;
    std::vector<ArrowHead> heads_;
};

}  // namespace velmar::tool
