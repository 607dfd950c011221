#pragma once

#include <string>
#include <vector>

#include "chart/paper/page.h"
#include "read/gridFile.h"

namespace velmar::tool {

/// Stations as dots, with the values of as many as there is room for.
class StationLayer : public Layer {
public:
    explicit StationLayer(const std::vector<PlacedValue>& stations) : stations_(stations) {}
    void place(Page& page) override;
    void draw(Page& page) const override;

private:
    struct Dot {
        PaperPoint place;
        float value;
    };
    struct Figure {
        std::string text;
        PaperPoint center;
    };
    void placeFigure(Page& page, const Dot& dot);

    const std::vector<PlacedValue>& stations_;
    std::vector<Dot> dots_;
    std::vector<Figure> figures_;
};

}  // namespace velmar::tool
