#include "chart/layers/mapLayer.h"

#include "chart/layers/mapLines.h"
#include "chart/paper/paperLine.h"

namespace velmar::tool {
namespace {

constexpr double coastWidth = 1.1;
constexpr double borderWidth = 0.8;
constexpr double leastVisible = 0.3;

/// Adds what lies in the box to the drawing path.
void trace(cairo_t* ink, const std::vector<PaperPoint>& line, const PaperBox& box) {
    bool penIsDown = false;
    for (std::size_t k = 1; k < line.size(); ++k) {
        const auto part = partInside(line[k - 1], line[k], box);
        if (part) {
            const PaperPoint way = line[k] - line[k - 1];
            const PaperPoint from = line[k - 1] + part->from * way;
            const PaperPoint to = line[k - 1] + part->to * way;
            if (!penIsDown || part->from > 0) cairo_move_to(ink, from.x, from.y);
            cairo_line_to(ink, to.x, to.y);
        }
        penIsDown = part && part->to == 1;
    }
}

}  // namespace

void MapLayer::draw(Page& page) const {
    cairo_set_line_join(page.ink, CAIRO_LINE_JOIN_ROUND);
    for (const bool borders : {true, false}) {
        drawLines(page, borders);
        setColour(page.ink, borders ? inks_.border : inks_.coast);
        cairo_set_line_width(page.ink, borders ? borderWidth : coastWidth);
        cairo_stroke(page.ink);
    }
}

void MapLayer::drawLines(Page& page, bool borders) const {
    for (const LineMap::MapLine& line : map_.lines) {
        if (isBorder(line) != borders) continue;
        for (const PaperPieces& pieces : linesOnPaper(map_.pointsOf(line), page.map))
            for (const std::vector<PaperPoint>& piece : pieces)
                trace(page.ink, withoutDetail(piece, leastVisible), sightOf(page.map));
    }
}

void addMaps(Layers& layers, const std::vector<LineMap>& maps, const MapInks& inks) {
    for (const LineMap& map : maps) layers.push_back(std::make_unique<MapLayer>(map, inks));
}

}  // namespace velmar::tool
