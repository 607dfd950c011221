#include "chart/paper/colourBar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include "chart/layers/imageLayer.h"
#include "chart/paper/lettering.h"
#include "common/text.h"
#include "compute/levelSpacing.h"

namespace velmar::tool {
namespace {

constexpr double distanceFromMap = 18;
constexpr double thickness = 18;
constexpr double labelDistance = 7;
constexpr Lettering lettering{.size = 13};
/// No digit is wider than this part of the letters' size.
constexpr double digitWidth = 0.65;
/// Labels stand at least so far apart.
constexpr double leastLabelStep = 15;

double widthWith(std::size_t longestLabel) {
    return distanceFromMap + thickness + labelDistance +
           static_cast<double>(longestLabel) * digitWidth * lettering.size;
}

/// A bar of this height, or lower where the map is, beside the map's middle.
PaperBox barBeside(const MapFrame& map, double height) {
    const double fitting = std::min(height, map.box.height);
    return {map.box.right() + distanceFromMap, map.box.top + (map.box.height - fitting) / 2, thickness,
            fitting};
}

void drawLabel(cairo_t* ink, const PaperBox& bar, double value, double y) {
    drawText(ink, plainNumber(value), {bar.right() + labelDistance, y}, Anchor::left, lettering);
}

void strokeThin(cairo_t* ink) {
    setColour(ink, black);
    cairo_set_line_width(ink, 0.75);
    cairo_stroke(ink);
}

/// A bar of bands: two of equal height at its ends, others in between, the levels at their boundaries.
struct BandBar {
    PaperBox box;
    double end;   ///< height of the bands at the ends
    double step;  ///< height of the others

    double yOf(std::size_t level) const { return box.bottom() - end - static_cast<double>(level) * step; }
};

BandBar bandBarBeside(const MapFrame& map, std::size_t levels) {
    constexpr double tallestBand = 40;
    constexpr double leastEnd = 10;
    const auto bands = static_cast<double>(levels + 1);
    const PaperBox box = barBeside(map, tallestBand * bands);
    const double end = std::max(box.height / bands, leastEnd);
    return {box, end, levels > 1 ? (box.height - 2 * end) / (bands - 2) : box.height};
}

void outline(cairo_t* ink, const BandBar& bar) {
    const PaperBox& box = bar.box;
    const double point = std::min(bar.end, 0.8 * thickness);
    const double middle = box.left + thickness / 2;
    cairo_move_to(ink, middle, box.top);
    cairo_line_to(ink, box.right(), box.top + point);
    cairo_line_to(ink, box.right(), box.bottom() - point);
    cairo_line_to(ink, middle, box.bottom());
    cairo_line_to(ink, box.left, box.bottom() - point);
    cairo_line_to(ink, box.left, box.top + point);
    cairo_close_path(ink);
}

/// Each colour reaches to the top and is painted over by those above, so that nothing shows between them.
void paintBands(cairo_t* ink, const BandBar& bar, const std::vector<Colour>& colours) {
    cairo_save(ink);
    outline(ink, bar);
    cairo_clip(ink);
    for (std::size_t band = 0; band < colours.size(); ++band) {
        const double bottom = band == 0 ? bar.box.bottom() : bar.yOf(band - 1);
        cairo_rectangle(ink, bar.box.left, bar.box.top, thickness, bottom - bar.box.top);
        setColour(ink, colours[band]);
        cairo_fill(ink);
    }
    cairo_restore(ink);
}

/// The levels that get labels: all, or every second, fifth, ... one, round numbers where levels are even.
std::vector<bool> chooseLabels(const std::vector<float>& levels, double bandHeight) {
    constexpr std::array counts{1, 2, 5, 10, 20, 50, 100, 200, 500};
    const auto enough = std::ranges::find_if(counts, [&](int c) { return c * bandHeight >= leastLabelStep; });
    const int every = enough == counts.end() ? 1000 : *enough;
    const float step = evenStep(levels);
    std::vector<bool> labelled;
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const auto number = step > 0 ? std::llround(levels[k] / step) : static_cast<long long>(k);
        labelled.push_back(number % every == 0);
    }
    return labelled;
}

}  // namespace

double bandBarWidth(const std::vector<float>& levels) {
    std::size_t longest = 0;
    for (const float level : levels) longest = std::max(longest, plainNumber(level).size());
    return widthWith(longest);
}

void drawBandBar(cairo_t* ink, const MapFrame& map, const std::vector<float>& levels,
                 const std::vector<Colour>& colours) {
    constexpr double leastSeparated = 5;  // lower bands would be all border
    constexpr double tick = 4;
    const BandBar bar = bandBarBeside(map, levels.size());
    const std::vector<bool> labelled = chooseLabels(levels, bar.step);
    paintBands(ink, bar, colours);
    outline(ink, bar);
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const bool separated = bar.step >= leastSeparated;
        if (!separated && !labelled[k]) continue;
        cairo_move_to(ink, separated ? bar.box.left : bar.box.right() - tick, bar.yOf(k));
        cairo_line_to(ink, bar.box.right(), bar.yOf(k));
    }
    strokeThin(ink);
    for (std::size_t k = 0; k < levels.size(); ++k)
        if (labelled[k]) drawLabel(ink, bar.box, levels[k], bar.yOf(k));
}

double greyBarWidth() { return widthWith(3); }

void drawGreyBar(cairo_t* ink, const MapFrame& map) {
    constexpr double customaryHeight = 400;
    constexpr int labelStep = 50;
    const PaperBox bar = barBeside(map, customaryHeight);
    const auto yOf = [&](double value) { return bar.bottom() - value / brightestByte * bar.height; };
    const std::unique_ptr<cairo_pattern_t, decltype(&cairo_pattern_destroy)> greys(
        cairo_pattern_create_linear(0, bar.bottom(), 0, bar.top), cairo_pattern_destroy);
    cairo_pattern_add_color_stop_rgb(greys.get(), 0, 0, 0, 0);
    cairo_pattern_add_color_stop_rgb(greys.get(), 1, 1, 1, 1);
    cairo_rectangle(ink, bar.left, bar.top, bar.width, bar.height);
    cairo_set_source(ink, greys.get());
    cairo_fill_preserve(ink);
    strokeThin(ink);
    for (int value = 0; value <= brightestByte; value += labelStep) drawLabel(ink, bar, value, yOf(value));
}

}  // namespace velmar::tool
