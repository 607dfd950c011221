#pragma once

#include <string>
#include <vector>

#include "chart/paper/page.h"
#include "chart/stationChart.h"

namespace velmar::tool {

/// Station plots: a dot, or a circle filled by eighths of cloud, the value beside it and the wind as a barb. As
/// many as there is room for, those with a value before others, else in the order of the file.
class StationPlotLayer : public Layer {
public:
    StationPlotLayer(const StationFile& file, const StationPlot& plot) : file_(file), plot_(plot) {}
    void place(Page& page) override;
    void draw(Page& page) const override;
    std::string remark() const override;

private:
    struct PlottedWind {
        double direction;  ///< degrees, from which it blows
        double speed;      ///< m/s
    };
    struct Plot {
        PaperPoint place;
        std::string value;  ///< empty where there is none
        PaperPoint valueCenter;
        std::optional<PlottedWind> wind;
        std::optional<int> cloud;  ///< eighths, 9 for a sky that cannot be seen
        bool southern;
    };
    Plot plotOf(std::size_t station) const;
    std::optional<PlottedWind> windOf(std::size_t station) const;
    std::optional<int> cloudOf(std::size_t station) const;
    bool placePlot(Page& page, Plot plot);
    void draw(cairo_t* ink, const Plot& plot) const;

    const StationFile& file_;
    const StationPlot& plot_;
    std::vector<Plot> plots_;
    std::size_t placed_ = 0;
};

}  // namespace velmar::tool
