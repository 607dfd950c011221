#pragma once

#include <cairo.h>

#include <cmath>
#include <vector>

namespace velmar::tool {

// Places on paper are in pixels of a PNG or points of an SVG or PDF, from the upper left corner, downwards.

struct PaperPoint {
    double x;
    double y;
};

inline PaperPoint operator+(PaperPoint a, PaperPoint b) { return {a.x + b.x, a.y + b.y}; }
inline PaperPoint operator-(PaperPoint a, PaperPoint b) { return {a.x - b.x, a.y - b.y}; }
inline PaperPoint operator*(double factor, PaperPoint a) { return {factor * a.x, factor * a.y}; }
inline double length(PaperPoint a) { return std::hypot(a.x, a.y); }
inline double distance(PaperPoint a, PaperPoint b) { return length(b - a); }

struct PaperSize {
    double width;
    double height;
};

/// An upright rectangle.
struct PaperBox {
    double left;
    double top;
    double width;
    double height;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool contains(PaperPoint p) const {
        return p.x >= left && p.x <= right() && p.y >= top && p.y <= bottom();
    }
};

/// A rectangle turned about its centre by an angle (radians, clockwise on paper).
struct TurnedBox {
    PaperPoint center;
    PaperSize size;
    double angle;

    PaperPoint along() const { return {std::cos(angle), std::sin(angle)}; }
    PaperPoint across() const { return {-std::sin(angle), std::cos(angle)}; }
    /// The corner, or for fractions below 1 an inner point, in this direction (-1 to 1 along, -1 to 1
    /// across).
    PaperPoint at(double u, double v) const {
        return center + u * size.width / 2 * along() + v * size.height / 2 * across();
    }
};

bool overlap(const TurnedBox& a, const TurnedBox& b);
bool isInside(const TurnedBox& inner, const PaperBox& outer);

struct Colour {
    double red;
    double green;
    double blue;
};

inline void setColour(cairo_t* ink, const Colour& colour) {
    cairo_set_source_rgb(ink, colour.red, colour.green, colour.blue);
}

inline constexpr Colour black{0, 0, 0};
inline constexpr Colour white{1, 1, 1};

}  // namespace velmar::tool
