#include "chart/layers/stationSymbol.h"

#include <array>
#include <numbers>

namespace velmar::tool {
namespace {

constexpr double circleRadius = 5;
constexpr double dotRadius = 2;
constexpr double right = 0;
constexpr double down = std::numbers::pi / 2;
constexpr double left = std::numbers::pi;
constexpr double up = -std::numbers::pi / 2;

void fillCircle(cairo_t* ink, PaperPoint center, double radius, const Colour& colour) {
    cairo_new_path(ink);
    cairo_arc(ink, center.x, center.y, radius, 0, 2 * std::numbers::pi);
    setColour(ink, colour);
    cairo_fill(ink);
}

/// From one angle clockwise to another.
void fillSector(cairo_t* ink, PaperPoint center, double from, double to) {
    cairo_move_to(ink, center.x, center.y);
    cairo_arc(ink, center.x, center.y, circleRadius, from, to);
    cairo_close_path(ink);
    cairo_fill(ink);
}

/// A line through or from the centre; both ends in radii from there.
void strokeLine(cairo_t* ink, PaperPoint center, PaperPoint from, PaperPoint to) {
    const PaperPoint a = center + circleRadius * from;
    const PaperPoint b = center + circleRadius * to;
    cairo_move_to(ink, a.x, a.y);
    cairo_line_to(ink, b.x, b.y);
    cairo_stroke(ink);
}

void drawEighths(cairo_t* ink, PaperPoint center, int eighths) {
    // Whole quarters are filled clockwise from the top.
    constexpr std::array filledTo{up, up, right, right, down, down, left, left, up + 2 * std::numbers::pi};
    constexpr PaperPoint top{0, -1};
    constexpr PaperPoint bottom{0, 1};
    constexpr double diagonal = std::numbers::sqrt2 / 2;
    if (eighths <= 8) fillSector(ink, center, up, filledTo.at(static_cast<std::size_t>(eighths)));
    if (eighths == 1 || eighths == 3) strokeLine(ink, center, top, bottom);
    if (eighths == 5) strokeLine(ink, center, {-1, 0}, {0, 0});
    if (eighths == 9) {
        strokeLine(ink, center, {-diagonal, -diagonal}, {diagonal, diagonal});
        strokeLine(ink, center, {-diagonal, diagonal}, {diagonal, -diagonal});
    }
    if (eighths != 7) return;
    fillSector(ink, center, up, filledTo.back());
    setColour(ink, white);
    cairo_set_line_width(ink, 1.5);
    strokeLine(ink, center, 0.95 * top, 0.95 * bottom);
}

}  // namespace

double stationSymbolRadius(std::optional<int> cloudEighths) {
    return cloudEighths ? circleRadius : dotRadius;
}

void drawStationSymbol(cairo_t* ink, PaperPoint place, std::optional<int> cloudEighths) {
    if (!cloudEighths) return fillCircle(ink, place, dotRadius, black);
    constexpr double ringWidth = 1;
    fillCircle(ink, place, circleRadius, white);
    setColour(ink, black);
    cairo_set_line_width(ink, ringWidth);
    drawEighths(ink, place, *cloudEighths);
    cairo_arc(ink, place.x, place.y, circleRadius, 0, 2 * std::numbers::pi);
    setColour(ink, black);
    cairo_set_line_width(ink, ringWidth);
    cairo_stroke(ink);
}

}  // namespace velmar::tool
