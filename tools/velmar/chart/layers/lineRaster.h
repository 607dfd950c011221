#pragma once

#include <cstdint>
#include <vector>

#include "chart/paper/paperLine.h"

namespace velmar::tool {

/// Which line runs where on a map, in small squares: a quick answer to how crowded a place is.
class LineRaster {
public:
    LineRaster(const PaperBox& box, const std::vector<PaperLine>& lines);

    /// The part (0 to 1) of a rectangle through which lines other than this one run.
    double crowding(const TurnedBox& box, std::size_t ownLine) const;

private:
    std::size_t squareOf(PaperPoint point) const;
    void add(const PaperLine& line, std::uint32_t owner);

    PaperBox box_;
    std::size_t columns_;
    std::vector<std::uint32_t> owners_;
};

}  // namespace velmar::tool
