#include "chart/soundingChart.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>

#include "chart/layers/windBarb.h"
#include "chart/paper/canvas.h"
#include "chart/paper/lettering.h"
#include "chart/sheet.h"
#include "chart/soundingDiagram.h"
#include "common/text.h"
#include "write/soundingWriter.h"

namespace velmar::tool {
namespace {

// The page is laid out for one size and enlarged to others.
constexpr PaperSize pageSize{1140, 880};
constexpr SoundingDiagram diagram{{70, 92, 740, 740}};
constexpr double windsAt = 862;  ///< the staff that the barbs stand on
constexpr double panelAt = 915;

using LevelValue = std::optional<float> CheckedLevel::*;

/// A line through the levels that have a value, across those that have none.
void drawProfile(cairo_t* ink, const CheckedSounding& sounding, LevelValue value, const Colour& colour) {
    cairo_new_path(ink);
    for (const CheckedLevel& level : sounding.levels) {
        if (!(level.*value)) continue;
        const PaperPoint p = diagram.toPaper(level.pressure, *(level.*value));
        cairo_line_to(ink, p.x, p.y);
    }
    setColour(ink, colour);
    cairo_set_line_width(ink, soundingLineWidth);
    cairo_set_line_join(ink, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(ink);
}

void drawFreezingLevel(cairo_t* ink, const FreezingLevel& freezing) {
    if (!diagram.shows(freezing.pressure)) return;
    const double y = diagram.height(freezing.pressure);
    constexpr Colour blue{0.1, 0.3, 0.85};
    constexpr double tick = 26;
    setColour(ink, blue);
    cairo_set_line_width(ink, 2);
    cairo_move_to(ink, diagram.box.right() - tick, y);
    cairo_line_to(ink, diagram.box.right(), y);
    cairo_stroke(ink);
    drawText(ink, fmt::format("0 °C  {:.0f} hPa", freezing.pressure), {diagram.box.right() - tick - 5, y},
             Anchor::right, {.size = 12.5, .colour = blue, .halo = 2.5});
}

/// The winds of as many levels as there is room for, from the ground up.
void drawWinds(cairo_t* ink, const CheckedSounding& sounding) {
    constexpr double shaft = 34;
    constexpr double leastDistance = 13;
    setColour(ink, black);
    cairo_set_line_width(ink, 0.6);
    cairo_move_to(ink, windsAt, diagram.box.top);
    cairo_line_to(ink, windsAt, diagram.box.bottom());
    cairo_stroke(ink);
    double last = diagram.box.bottom() + leastDistance;
    for (const CheckedLevel& level : sounding.levels) {
        if (!level.windDirection || !level.windSpeed || !diagram.shows(level.pressure)) continue;
        const double y = diagram.height(level.pressure);
        if (last - y < leastDistance) continue;
        last = y;
        drawWindBarb(ink, {windsAt, y}, *level.windDirection, *level.windSpeed, sounding.latitude < 0, shaft);
    }
}

void drawIndices(cairo_t* ink, const CheckedSounding& sounding) {
    constexpr double width = 205;
    constexpr double lineHeight = 22;
    constexpr Lettering lettering{.size = 13};
    const std::vector<NamedText> texts = indexTexts(sounding);
    PaperPoint place{panelAt + 10, diagram.box.top + 18};
    const double height = static_cast<double>(texts.size()) * lineHeight + 14;
    setColour(ink, black);
    cairo_set_line_width(ink, 0.9);
    cairo_rectangle(ink, panelAt, diagram.box.top, width, height);
    cairo_stroke(ink);
    for (const auto& [name, text] : texts) {
        drawText(ink, name, place, Anchor::left, lettering);
        drawText(ink, text, {panelAt + width - 10, place.y}, Anchor::right, lettering);
        place.y += lineHeight;
    }
    drawDiagramKey(ink, {panelAt, diagram.box.top + height + 28});
}

void drawPage(cairo_t* ink, const CheckedSoundings& file, const CheckedSounding& sounding) {
    drawDiagram(ink, diagram);
    cairo_save(ink);
    cairo_rectangle(ink, diagram.box.left, diagram.box.top, diagram.box.width, diagram.box.height);
    cairo_clip(ink);
    drawProfile(ink, sounding, &CheckedLevel::dewPoint, dewPointGreen);
    drawProfile(ink, sounding, &CheckedLevel::temperature, temperatureRed);
    if (sounding.freezing) drawFreezingLevel(ink, *sounding.freezing);
    cairo_restore(ink);
    drawWinds(ink, sounding);
    drawIndices(ink, sounding);
    constexpr double figuresAbove = 18;
    PaperBox underTitle = diagram.box;
    underTitle.top -= figuresAbove;
    drawTitle(ink, {pageSize, {{}, underTitle}},
              {.title = file.title,
               .subtitle = stationText(sounding) + "   " + startTimeText(file.time),
               .caption = {},
               .extremes = {},
               .hasNoData = false});
}

}  // namespace

std::string drawSoundings(const CheckedSoundings& file, const std::optional<PaperSize>& size,
                          const std::string& format) {
    const PaperSize paper = size.value_or(pageSize);
    const double scale = std::min(paper.width / pageSize.width, paper.height / pageSize.height);
    return renderPages(format, paper, file.soundings.size(), [&](cairo_t* ink, std::size_t page) {
        cairo_save(ink);
        cairo_translate(ink, (paper.width - scale * pageSize.width) / 2,
                        (paper.height - scale * pageSize.height) / 2);
        cairo_scale(ink, scale, scale);
        drawPage(ink, file, file.soundings[page]);
        cairo_restore(ink);
    });
}

}  // namespace velmar::tool
