#include "wind/lineColours.h"

#include <algorithm>

namespace velmar::wind {
namespace {

constexpr int colourWithoutTable = 1;

/// The first band that holds the value, from band 1 on; the last where none does.
std::size_t firstBand(std::span<const float> levels, float value) {
    for (std::size_t k = 1; k + 1 < levels.size(); ++k)
        if (levels[k] <= value && value < levels[k + 1]) return k;
    return levels.size() - 1;
}

/// Whether levels ascend. Those with a value that is not a number do not.
bool isRising(std::span<const float> levels) {
    const auto falls = [](float lower, float upper) { return !(lower <= upper); };
    return std::ranges::adjacent_find(levels, falls) == levels.end();
}

}  // namespace

ColourTable::ColourTable(std::span<const float> levels, std::span<const int> colours)
    : levels_(levels), colours_(colours), rising_(levels.size() > 1 && isRising(levels.subspan(1))) {}

int ColourTable::operator()(float value) {
    if (colours_.empty()) return colourWithoutTable;
    if (colours_.size() == 1 || value < levels_[1]) return colours_[0];
    if (!rising_) return colours_[firstBand(levels_, value)];
    const bool sameBand = lastBand_ > 0 && lastBand_ + 1 < levels_.size() && levels_[lastBand_] <= value &&
                          value < levels_[lastBand_ + 1];
    if (!sameBand) {
        const auto next = std::upper_bound(levels_.begin() + 1, levels_.end(), value);
        lastBand_ = static_cast<std::size_t>(next - levels_.begin()) - 1;
    }
    return colours_[lastBand_];
}

}  // namespace velmar::wind
