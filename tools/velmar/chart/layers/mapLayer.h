#pragma once

#include <vector>

#include "chart/paper/page.h"
#include "read/lineMap.h"

namespace velmar::tool {

struct MapInks {
    Colour coast;
    Colour border;
};

// Inks that can be seen on what lies below the lines and are not taken for what lies above them.
inline constexpr MapInks mapOnWhite{{0.40, 0.33, 0.24}, {0.66, 0.60, 0.52}};
inline constexpr MapInks mapOnColours{{0.15, 0.15, 0.15}, {0.42, 0.42, 0.42}};
inline constexpr MapInks mapOnGreys{{0.05, 0.80, 0.30}, {0.05, 0.62, 0.75}};

/// Whether a line is a border on land and not a coast.
inline bool isBorder(const LineMap::MapLine& line) { return line.attribute1 == 2; }

/// Coasts, borders and outlines.
class MapLayer : public Layer {
public:
    MapLayer(const LineMap& map, const MapInks& inks) : map_(map), inks_(inks) {}
    void draw(Page& page) const override;

private:
    void drawLines(Page& page, bool borders) const;

    const LineMap& map_;
    MapInks inks_;
};

void addMaps(Layers& layers, const std::vector<LineMap>& maps, const MapInks& inks);

}  // namespace velmar::tool
