#pragma once

#include <algorithm>
#include <vector>

#include "read/geoPoints.h"
#include "read/windFile.h"

namespace velmar::tool {

/// Streamlines in the direction of the flow, each joined from the part that was traced with the flow and the
/// part that was traced against it. Bands of speed are counted from 0.
struct StreamlineSet {
    struct Piece {
        base::LonLat end;
        int band;  ///< of the piece that ends here; 0 at the start of a line
    };
    struct Arrow {
        base::LonLat tail;
        base::LonLat head;  ///< downstream
        int band;
    };

    std::vector<float> levels;  ///< lower bounds of the bands of speed, m/s, rising; the first is 0
    std::vector<Piece> pieces;  ///< of all lines, one behind the other
    std::vector<std::size_t> firstPieces;  ///< of each line, and behind the last one the number of pieces
    std::vector<Arrow> arrows;

    int bandOf(float colour) const {
        return std::min(static_cast<int>(colour), static_cast<int>(levels.size()) - 1);
    }
    std::size_t lineCount() const { return firstPieces.size() - 1; }
    std::span<const Piece> line(std::size_t k) const {
        return std::span(pieces).subspan(firstPieces[k], firstPieces[k + 1] - firstPieces[k]);
    }
};

/// Traces the streamlines of a wind file; lines of fewer than two points are left out. A field that circles the
/// globe is closed first, so that lines reach the seam. A Problem when there is no memory for it.
///
///   density  1 to 14; 5 is usual
///   levels   of the bands of speed, m/s, rising, the first 0; 1 to 100
StreamlineSet traceStreamlines(const WindGrid& file, int density, const std::vector<float>& levels);

}  // namespace velmar::tool
