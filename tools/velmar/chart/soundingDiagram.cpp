#include "chart/soundingDiagram.h"

#include <fmt/format.h>

#include <array>
#include <functional>
#include <numbers>
#include <span>

#include "chart/paper/lettering.h"
#include "common/text.h"
#include "compute/thermodynamics.h"

namespace velmar::tool {
namespace {

/// How a family of lines looks.
struct LineStyle {
    Colour colour;
    double width;
    std::span<const double> dashes = {};
};

constexpr std::array longDashes{7.0, 4.0};
constexpr std::array dots{1.5, 3.5};
constexpr LineStyle isobars{{0.45, 0.45, 0.45}, 0.6};
constexpr LineStyle isotherms{{0.62, 0.62, 0.7}, 0.6};
constexpr LineStyle freezingIsotherm{{0.15, 0.35, 0.85}, 1.2};
constexpr LineStyle dryAdiabats{{0.86, 0.66, 0.42}, 0.7};
constexpr LineStyle moistAdiabats{{0.4, 0.68, 0.72}, 0.8, longDashes};
constexpr LineStyle mixingRatios{{0.65, 0.4, 0.7}, 0.9, dots};

constexpr Lettering figures{.size = 12};
constexpr double standardPressure = 1000;
constexpr double highestMixingRatioLine = 600;  ///< hPa, where these lines end

void stroke(cairo_t* ink, const LineStyle& style) {
    setColour(ink, style.colour);
    cairo_set_line_width(ink, style.width);
    cairo_set_dash(ink, style.dashes.data(), static_cast<int>(style.dashes.size()), 0);
    cairo_stroke(ink);
    cairo_set_dash(ink, nullptr, 0, 0);
}

/// Adds a curve from the lower edge up to a pressure, of the temperature that it has at each pressure.
void addCurve(cairo_t* ink, const SoundingDiagram& diagram, double topPressure,
              const std::function<double(double)>& temperatureAt) {
    constexpr int pieces = 60;
    constexpr double bottom = SoundingDiagram::highestPressure;
    for (int k = 0; k <= pieces; ++k) {
        const double pressure = bottom * std::pow(topPressure / bottom, static_cast<double>(k) / pieces);
        const PaperPoint p = diagram.toPaper(pressure, temperatureAt(pressure));
        if (k == 0)
            cairo_move_to(ink, p.x, p.y);
        else
            cairo_line_to(ink, p.x, p.y);
    }
}

void drawIsobars(cairo_t* ink, const SoundingDiagram& diagram) {
    for (const int pressure : {1000, 925, 850, 700, 600, 500, 400, 300, 250, 200, 150}) {
        const double y = diagram.height(pressure);
        cairo_move_to(ink, diagram.box.left, y);
        cairo_line_to(ink, diagram.box.right(), y);
    }
    stroke(ink, isobars);
}

void drawIsotherms(cairo_t* ink, const SoundingDiagram& diagram) {
    for (int temperature = -150; temperature <= 40; temperature += 10) {
        const PaperPoint low = diagram.toPaper(SoundingDiagram::highestPressure, temperature);
        const PaperPoint high = diagram.toPaper(SoundingDiagram::lowestPressure, temperature);
        cairo_move_to(ink, low.x, low.y);
        cairo_line_to(ink, high.x, high.y);
        stroke(ink, temperature == 0 ? freezingIsotherm : isotherms);
    }
}

void drawAdiabats(cairo_t* ink, const SoundingDiagram& diagram) {
    for (int theta = -40; theta <= 200; theta += 10)
        addCurve(ink, diagram, SoundingDiagram::lowestPressure,
                 [&](double pressure) { return dryAdiabat(theta, standardPressure, pressure); });
    stroke(ink, dryAdiabats);
    constexpr double top = 200;  // above it they are dry adiabats to the eye
    for (int wetBulb = -28; wetBulb <= 36; wetBulb += 4)
        addCurve(ink, diagram, top,
                 [&](double pressure) { return moistAdiabat(wetBulb, standardPressure, pressure); });
    stroke(ink, moistAdiabats);
}

void drawMixingRatios(cairo_t* ink, const SoundingDiagram& diagram) {
    constexpr std::array gramsPerKilogram{0.4, 1.0, 2.0, 3.0, 5.0, 8.0, 12.0, 16.0, 20.0, 30.0};
    constexpr double grams = 1000;
    for (const double ratio : gramsPerKilogram)
        addCurve(ink, diagram, highestMixingRatioLine,
                 [&](double pressure) { return dewPointOf(pressure, ratio / grams); });
    stroke(ink, mixingRatios);
    for (const double ratio : gramsPerKilogram) {
        const PaperPoint end =
            diagram.toPaper(highestMixingRatioLine, dewPointOf(highestMixingRatioLine, ratio / grams));
        if (end.x > diagram.box.right() - 10) continue;
        drawText(ink, plainNumber(ratio), end + PaperPoint{2, -7}, Anchor::center,
                 {.size = 10.5, .colour = mixingRatios.colour, .halo = 2});
    }
}

void drawFigures(cairo_t* ink, const SoundingDiagram& diagram) {
    const PaperBox& box = diagram.box;
    for (const int pressure : {1000, 925, 850, 700, 600, 500, 400, 300, 250, 200, 150, 100})
        drawText(ink, fmt::format("{}", pressure), {box.left - 6, diagram.height(pressure)}, Anchor::right,
                 figures);
    drawText(ink, "hPa", {box.left - 6, box.top - 18}, Anchor::right, figures);
    for (int temperature = -40; temperature <= 40; temperature += 10)
        drawText(ink, fmt::format("{}", temperature),
                 {diagram.toPaper(SoundingDiagram::highestPressure, temperature).x, box.bottom() + 12},
                 Anchor::center, figures);
    drawText(ink, "°C", {box.right(), box.bottom() + 12}, Anchor::right, figures);
    for (int temperature = -150; temperature <= 40; temperature += 10) {
        const double x = diagram.toPaper(SoundingDiagram::lowestPressure, temperature).x;
        if (x >= box.left && x <= box.right())
            drawText(ink, fmt::format("{}", temperature), {x, box.top - 11}, Anchor::center, figures);
    }
}

}  // namespace

double SoundingDiagram::height(double pressure) const {
    return box.top +
           box.height * std::log(pressure / lowestPressure) / std::log(highestPressure / lowestPressure);
}

PaperPoint SoundingDiagram::toPaper(double pressure, double temperature) const {
    const double y = height(pressure);
    const double degree = box.width / (warmest - coldest);
    return {box.left + (temperature - coldest) * degree + (box.bottom() - y), y};
}

void drawDiagram(cairo_t* ink, const SoundingDiagram& diagram) {
    const PaperBox& box = diagram.box;
    cairo_save(ink);
    cairo_rectangle(ink, box.left, box.top, box.width, box.height);
    cairo_clip(ink);
    drawAdiabats(ink, diagram);
    drawMixingRatios(ink, diagram);
    drawIsotherms(ink, diagram);
    drawIsobars(ink, diagram);
    cairo_restore(ink);
    cairo_rectangle(ink, box.left, box.top, box.width, box.height);
    stroke(ink, {black, 1.2});
    drawFigures(ink, diagram);
}

void drawDiagramKey(cairo_t* ink, PaperPoint place) {
    struct Entry {
        LineStyle style;
        const char* name;
    };
    constexpr std::array entries{Entry{{temperatureRed, soundingLineWidth}, "temperature"},
                                 Entry{{dewPointGreen, soundingLineWidth}, "dew point"},
                                 Entry{dryAdiabats, "dry adiabats"}, Entry{moistAdiabats, "moist adiabats"},
                                 Entry{mixingRatios, "mixing ratio, g/kg"}};
    constexpr double sampleLength = 34;
    constexpr double lineHeight = 20;
    for (const auto& [style, name] : entries) {
        cairo_move_to(ink, place.x, place.y);
        cairo_line_to(ink, place.x + sampleLength, place.y);
        stroke(ink, style);
        drawText(ink, name, place + PaperPoint{sampleLength + 8, 0}, Anchor::left, {.size = 12.5});
        place.y += lineHeight;
    }
}

}  // namespace velmar::tool
