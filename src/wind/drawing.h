#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "frame/block.h"
#include "frame/grid.h"

namespace velmar::wind {

/// Degrees.
struct Position {
    float longitude;
    float latitude;
};

/// Whether the pen is up or down on its way to a point, as results say it.
enum class Pen { up = 0, down = 1 };

/// Streamlines and arrows on their way to a result block. Points go into the block at once, as there can be
/// gigabytes of them.
class Drawing {
public:
    Drawing();

    void addPoint(Pen pen, Position position, int colour) {
        points_.append(std::array{static_cast<float>(pen), position.longitude, position.latitude,
                                  static_cast<float>(colour)});
    }
    void addArrow(Position tail, Position head, int colour);

    /// The result of streamAnalyse. Nothing can be added afterwards.
    frame::ResultBlock finish(const frame::GridView& u, const frame::GridView& v,
                              const frame::Lattice& lattice);

private:
    frame::GrowingBlock points_;
    std::vector<float> arrows_;
};

}  // namespace velmar::wind
