#pragma once

#include <optional>
#include <vector>

#include "chart/paper/mapFrame.h"
#include "chart/paper/paper.h"
#include "compute/contours.h"

namespace velmar::tool {

/// A stretch of a line, by the length from its start.
struct Stretch {
    double from;
    double to;
};

/// The part of the way from one point to another that lies inside a rectangle, in fractions of the way.
std::optional<Stretch> partInside(PaperPoint from, PaperPoint to, const PaperBox& box);

/// A contour line, or another line that stands for a value, on paper.
class PaperLine {
public:
    /// Brings a line of at least two points to paper, so many circles to the east. Points closer together
    /// than the detail are left out.
    PaperLine(const Isoline& line, const MapFrame& map, int circles, double detail);

    float value() const { return value_; }
    /// The point at a length from the start, which must lie within the line's own.
    PaperPoint at(double length) const;
    /// The stretches inside a rectangle, in rising order. However far a line reaches, work on it should keep
    /// to these.
    std::vector<Stretch> stretchesInside(const PaperBox& box) const;
    /// Adds the parts of the line inside a rectangle to the drawing path, without the gaps,
    /// which lie inside it and are in rising order.
    void trace(cairo_t* ink, const PaperBox& box, const std::vector<Stretch>& gaps) const;

private:
    void add(PaperPoint point);
    void traceStretch(cairo_t* ink, const Stretch& stretch) const;

    float value_;
    std::vector<PaperPoint> points_;
    std::vector<double> lengths_;  ///< from the start to each point
};

/// All lines that can be seen on a map, each as often as it can be seen. The lattice is that of the grid that
/// they come from.
std::vector<PaperLine> bringToPaper(const std::vector<Isoline>& lines, const grid::Lattice& lattice,
                                    const MapFrame& map);

/// Less than this cannot be seen on a map, or is less than a grid of this lattice can tell.
double detailOf(const grid::Lattice& lattice, const MapFrame& map);

/// The box at whose border lines and areas are cut. The ends of a cut line are not rounded as its corners
/// are, so they are kept out of sight.
PaperBox sightOf(const MapFrame& map);

/// Leaves out detail inside a line: of two points closer together than this only their middle is kept. Where
/// a line passes a grid point it has two crossings a hair apart, which could not be rounded.
std::vector<PaperPoint> withoutDetail(const std::vector<PaperPoint>& line, double detail);

/// Adds a line with its corners rounded to the drawing path, which stands at its first point: from the middle
/// of one piece to the middle of the next runs a parabola that keeps inside the corner, so that neighbouring
/// lines still do not cross. Which way a line is drawn makes no difference.
void traceRounded(cairo_t* ink, const std::vector<PaperPoint>& line);

}  // namespace velmar::tool
