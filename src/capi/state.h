#pragma once

#include <array>
#include <optional>

#include "capi/block.h"
#include "contour/trace.h"
#include "files/mapFile.h"
#include "files/soundings.h"
#include "grid/refine.h"
#include "regions/regions.h"
#include "shade/polygons.h"
#include "shade/trace.h"
#include "triangles/stationLevels.h"

namespace velmar::capi {

/// Contour lines on their way to a result, and the memory used to trace them.
struct ContourWork {
    contour::ContourLines lines;
    contour::ContourBuffers buffers;

    std::size_t bytes() const { return lines.bytes() + buffers.bytes(); }

    /// Releases the memory. The size of the work buffer, that of the largest grid until now, is kept.
    void release() {
        lines = {};
        buffers = {{}, {}, buffers.workBufferFloats};
    }
};

/// Polygons on their way to a result, and the memory used to trace them.
struct ShadeWork {
    shade::ShadePolygons polygons;
    shade::ShadeBuffers buffers;

    std::size_t bytes() const { return polygons.bytes() + buffers.bytes(); }
    void release() { *this = {}; }
};

/// The maps that ReadMap9 has read.
struct MapState {
    bool hasFirstMap = false;
    /// Lines of the first map, when it could not be read to its end: the next result hands them out. Lines of later
    /// maps are never handed out, so they are not kept.
    files::MapLines firstMap;
};

/// What the C interface keeps between calls. Lives as long as the process.
struct State {
    /// Bold-line value of the last grid file whose header could be read; every contour result carries it.
    float lastBoldValue = 0.0F;

    ContourWork contours;
    /// Factors of the last contour2D call. contour2DRaw divides its positions by them too.
    grid::RefinementFactors factors;
    /// Centres of the last grid file that was contoured with automatic levels.
    ResultBlock lastCenters;

    ShadeWork shading;

    /// Number of points that the last clipping by a single edge left.
    int lastClipCount = 0;
    /// The filled outline of the last small polygon, pairs x, y. The host may read it until the next call of
    /// polygonfill for a small polygon.
    std::array<float, 40> smallOutline{};

    /// Levels of the last SanJiao call: they are printed beside those of the next.
    triangles::LevelTable stationLevels;

    /// Where the grids of the last wind file lie, rows from south to north. streamAnalyse gets its grids without a
    /// place and takes them to lie here.
    grid::Lattice windLattice{};
    /// Colour of the last piece of streamline that was coloured. The first points of the next call carry it.
    int streamlineColour = 0;

    MapState maps;
    /// The soundings of the last file: no export hands them out.
    files::SoundingFile soundings;
    /// The regions of the first region file of the process. It is never changed: hosts hold pointers into it.
    std::optional<regions::RegionTable> regions;
};

inline State& state() {
    static State instance;
    return instance;
}

}  // namespace velmar::capi
