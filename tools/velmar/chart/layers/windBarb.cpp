#include "chart/layers/windBarb.h"

#include <algorithm>
#include <numbers>

namespace velmar::tool {
namespace {

// All in shaft lengths.
constexpr double spacing = 0.13;
constexpr double barbWidth = 0.38;  ///< how far a barb stands out from the shaft
constexpr double barbSlant = 0.16;  ///< how much farther from the foot it ends
constexpr double pennantBase = 0.19;
constexpr double calmRadius = 0.12;

/// What stands on a shaft. No wind is faster than some 150 m/s; the cap keeps nonsense on the paper.
struct Feathers {
    int pennants = 0;
    int barbs = 0;
    int halfBarbs = 0;

    explicit Feathers(double metresPerSecond) {
        constexpr double most = 300;
        const auto halves =
            static_cast<int>(std::lround(std::min(std::fmax(metresPerSecond, 0), most) / 2.5));
        pennants = halves / 10;
        barbs = halves % 10 / 2;
        halfBarbs = halves % 2;
    }
    bool calm() const { return pennants + barbs + halfBarbs == 0; }
    /// The shaft, as long as its pennants and barbs need.
    double shaft() const {
        constexpr double bareFoot = 0.1;
        return std::max(1.0, bareFoot + pennants * pennantBase + (1 + barbs + halfBarbs) * spacing);
    }
};

/// The directions along the shaft and out from it, a shaft length long.
struct Axes {
    PaperPoint along;
    PaperPoint out;
};

Axes axesOf(double fromDegrees, bool southern, double length) {
    const double angle = fromDegrees * std::numbers::pi / 180;
    const PaperPoint along = length * PaperPoint{std::sin(angle), -std::cos(angle)};
    const double side = southern ? -1 : 1;
    return {along, {-side * along.y, side * along.x}};
}

void moveTo(cairo_t* ink, PaperPoint p) { cairo_move_to(ink, p.x, p.y); }
void lineTo(cairo_t* ink, PaperPoint p) { cairo_line_to(ink, p.x, p.y); }

/// Draws what stands on the shaft, from its end inwards. A half barb alone stands away from the end, so that it
/// is not taken for a whole one.
void drawFeathers(cairo_t* ink, PaperPoint foot, const Axes& axes, const Feathers& feathers) {
    const auto at = [&](double along, double out) { return foot + along * axes.along + out * axes.out; };
    double place = feathers.shaft();
    for (int k = 0; k < feathers.pennants; ++k, place -= pennantBase) {
        moveTo(ink, at(place, 0));
        lineTo(ink, at(place, barbWidth));
        lineTo(ink, at(place - pennantBase, 0));
        cairo_close_path(ink);
        cairo_fill_preserve(ink);
        cairo_stroke(ink);
    }
    if (feathers.pennants > 0) place -= spacing / 2;
    for (int k = 0; k < feathers.barbs; ++k, place -= spacing) {
        moveTo(ink, at(place, 0));
        lineTo(ink, at(place + barbSlant, barbWidth));
    }
    if (feathers.pennants + feathers.barbs == 0) place -= spacing;
    if (feathers.halfBarbs > 0) {
        moveTo(ink, at(place, 0));
        lineTo(ink, at(place + barbSlant / 2, barbWidth / 2));
    }
    cairo_stroke(ink);
}

}  // namespace

void drawWindBarb(cairo_t* ink, PaperPoint foot, double fromDegrees, double metresPerSecond, bool southern,
                  double length) {
    const Feathers feathers(metresPerSecond);
    cairo_save(ink);
    cairo_set_line_width(ink, std::max(0.7, length / 28));
    cairo_set_line_join(ink, CAIRO_LINE_JOIN_ROUND);
    cairo_new_path(ink);
    if (feathers.calm()) {
        cairo_arc(ink, foot.x, foot.y, calmRadius * length, 0, 2 * std::numbers::pi);
        cairo_stroke(ink);
    } else {
        const Axes axes = axesOf(fromDegrees, southern, length);
        moveTo(ink, foot);
        lineTo(ink, foot + feathers.shaft() * axes.along);
        cairo_stroke(ink);
        drawFeathers(ink, foot, axes, feathers);
    }
    cairo_restore(ink);
}

TurnedBox windBarbBox(PaperPoint foot, double fromDegrees, double metresPerSecond, bool southern,
                      double length) {
    const Feathers feathers(metresPerSecond);
    const double circle = 2 * calmRadius * length;
    if (feathers.calm()) return {foot, {circle, circle}, 0};
    const Axes axes = axesOf(fromDegrees, southern, length);
    const double reach = feathers.shaft() + (feathers.barbs > 0 ? barbSlant : 0);
    return {foot + reach / 2 * axes.along + barbWidth / 2 * axes.out,
            {reach * length, barbWidth * length},
            std::atan2(axes.along.y, axes.along.x)};
}

}  // namespace velmar::tool
