#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "base/progress.h"
#include "support/files.h"

namespace velmar::test {

/// The arguments of one shading call. Positions in a grid count from 1.
struct Field {
    std::vector<float> values;
    int nx, ny;
    std::vector<float> levels;
    std::vector<int> colours;
    int stripRows = 1;
    float missing = 9999;
    float x0 = 1, y0 = 1, dx = 1, dy = 1;  // polygons then have grid positions

    int levelCount() const { return static_cast<int>(levels.size()); }
    float at(int i, int j) const { return values[static_cast<std::size_t>((j - 1) * nx + i - 1)]; }
    bool known(int i, int j) const { return std::isfinite(at(i, j)) && at(i, j) != missing; }
    bool knownCell(int i, int j) const {
        return i >= 1 && j >= 1 && i < nx && j < ny && known(i, j) && known(i + 1, j) && known(i, j + 1) &&
               known(i + 1, j + 1);
    }
    /// The last row of the strip that starts with the given one.
    int stripTop(int bottom) const {
        return stripRows < 1 || stripRows > ny - bottom ? ny : bottom + stripRows;
    }
};

struct Position {
    float x, y;
    bool operator==(const Position&) const = default;
};

struct Polygon {
    float level;
    int colour;
    std::vector<Position> points;
    bool operator==(const Polygon&) const = default;
};

inline Block shade(const Field& f) {
    return Block(velmarCntrShad(f.values.data(), f.nx, f.ny, f.levels.data(), f.colours.data(),
                                f.levelCount(), f.missing, f.x0, f.y0, f.dx, f.dy, f.stripRows));
}

/// The polygons of a result; what follows them goes to `rest` up to the element that is never written.
inline std::vector<Polygon> polygonsOf(const Block& block, std::vector<float>* rest = nullptr) {
    if (!block) return {};
    std::vector<Polygon> polygons(static_cast<std::size_t>(block[1]));
    const float* in = block.get() + 2;
    for (Polygon& polygon : polygons) {
        polygon = {in[1], static_cast<int>(in[2]), std::vector<Position>(static_cast<std::size_t>(in[0]))};
        in += 3;
        for (Position& point : polygon.points) {
            point = {in[0], in[1]};
            in += 2;
        }
    }
    if (rest != nullptr)
        rest->assign(in, static_cast<const float*>(block.get() + static_cast<int>(block[0])));
    return polygons;
}

/// What is printed for a polygon when it joins the list.
inline std::string listing(const Polygon& polygon) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << std::fixed;
    const std::size_t count = polygon.points.size();
    for (std::size_t k = 0; k < count; ++k) {
        const Position& point = polygon.points[k / 2];
        text << ' ' << count << "  " << k << "  " << (k % 2 == 0 ? point.x : point.y);
    }
    text << '\n';
    return text.str();
}

/// A number of rounds, times the factor that a long search sets in the environment.
inline int searched(int rounds) {
    const char* factor = std::getenv("VELMAR_SEARCH");
    return factor == nullptr ? rounds : static_cast<int>(rounds * std::atof(factor));
}

/// A test of many calls, without what they print.
class SilentTest : public testing::Test {
protected:
    void SetUp() override { base::setProgressEnabled(false); }
    void TearDown() override { base::setProgressEnabled(true); }
};

}  // namespace velmar::test
