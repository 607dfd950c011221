#include "contours.h"

#include <cmath>

#include "problem.h"

namespace velmar::tool {
namespace {

/// Reads the elements of a block one after another.
class BlockReader {
public:
    explicit BlockReader(const float* next) : next_(next) {}
    float value() { return *next_++; }
    std::size_t count() { return static_cast<std::size_t>(value()); }
    std::span<const float> values(std::size_t count) {
        const std::span<const float> view(next_, count);
        next_ += count;
        return view;
    }

private:
    const float* next_;
};

Isoline readLine(BlockReader& in) {
    const std::size_t points = in.count();
    const float level = in.value();
    in.value();
    return {.value = level, .coordinates = in.values(2 * points)};
}

void requireUsable(const frame::Lattice& lattice) {
    const float sum = lattice.startLongitude + lattice.endLongitude + lattice.longitudeStep +
                      lattice.startLatitude + lattice.endLatitude + lattice.latitudeStep;
    if (!std::isfinite(sum))
        throw Problem("the longitudes and latitudes of its header are not all finite numbers");
}

}  // namespace

bool Isoline::closed() const {
    return size() > 2 && coordinates[0] == coordinates[2 * size() - 2] &&
           coordinates[1] == coordinates[2 * size() - 1];
}

bool ContourSet::circlesGlobe() const {
    constexpr double tolerance = 0.5;
    return std::fabs(std::fabs(lattice.endLongitude - lattice.startLongitude) - 360.0) < tolerance;
}

ContourSet drawContours(const std::string& path, const LevelPlan& plan) {
    // The list must not be null even when it is empty.
    const float noLevel = 0;
    const float* const levels = plan.list.empty() ? &noLevel : plan.list.data();
    ContourSet set{};
    set.block = checkedBlock(readCntrData(path.c_str(), static_cast<int>(plan.mode), plan.count, levels));

    BlockReader in(set.block.get() + 1);
    const std::size_t lineCount = in.count();
    set.lines.reserve(lineCount);
    for (std::size_t k = 0; k < lineCount; ++k) set.lines.push_back(readLine(in));
    in.value();  // the separator
    set.grid.nx = static_cast<int>(in.value());
    set.grid.ny = static_cast<int>(in.value());
    frame::Lattice& lattice = set.lattice;
    for (float* field : {&lattice.startLongitude, &lattice.startLatitude, &lattice.endLongitude,
                         &lattice.endLatitude, &lattice.longitudeStep, &lattice.latitudeStep})
        *field = in.value();
    set.grid.values = in.values(set.grid.size()).data();
    requireUsable(lattice);
    return set;
}

}  // namespace velmar::tool
