#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

/// Arguments of exports, made from the bytes of an input. Numbers are taken from its end, the values of grids and
/// lists from its front.
namespace velmar::fuzz {

inline constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
inline constexpr float infinity = std::numeric_limits<float>::infinity();
inline constexpr float missing = 9999;

/// Numbers that a routine may trip over.
inline constexpr float oddNumbers[] = {
    0,      -0.0F, 1,       -1,       0.5F,     0.1F,    -0.1F,    1.0F / 3, 2,         9.999F,    10,
    90,     -90,   180,     -180,     359.5F,   360,     100000,   9999,     -9999,     999999,    16777218,
    1e-45F, 1e-6F, 1.1e16F, -1.1e16F, -1.0e20F, 3.4e38F, -3.4e38F, infinity, -infinity, notANumber};

struct Size {
    int nx, ny;

    /// What a grid of this size holds.
    std::size_t values() const {
        return nx < 1 || ny < 1 ? 0 : static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny);
    }
};

class Input : public FuzzedDataProvider {
public:
    using FuzzedDataProvider::FuzzedDataProvider;

    /// From 0 to end - 1.
    int below(int end) { return ConsumeIntegralInRange(0, end - 1); }
    bool oneIn(int chances) { return below(chances) == 1; }

    float oddNumber() { return PickValueInArray(oddNumbers); }

    /// A number with one decimal between bounds.
    float between(int low, int high) {
        return static_cast<float>(ConsumeIntegralInRange(10 * low, 10 * high)) / 10;
    }

    /// A number of a likely range, seldom another.
    float number(int low, int high) { return oneIn(8) ? oddNumber() : between(low, high); }

    int oddInteger() {
        return PickValueInArray({0, -1, 1, 2, 255, -7, 65536, INT_MAX, INT_MIN, INT_MIN + 1});
    }

    /// Columns and rows: few of both; many columns, which fill more than one word of bits; up to so many of both.
    Size solidSize(int least, int most) {
        const int shape = below(4);
        if (shape == 0) return {least + below(most), least + below(most)};
        if (shape == 1) return {60 + below(80), least + below(8)};
        return {least + below(10), least + below(10)};
    }

    /// The same, but seldom sizes that hold nothing.
    Size size(int most) {
        Size size = solidSize(1, most);
        if (oneIn(16)) (below(2) == 0 ? size.nx : size.ny) = PickValueInArray({0, -1, -7, INT_MIN});
        if (oneIn(64)) size = {-3, -4};
        return size;
    }

    /// So many values: plateaus with many ties, single steps of bytes, a smooth field, any numbers; some are then
    /// replaced by odd ones. Few bytes make a pattern that is repeated.
    std::vector<float> values(std::size_t count) {
        const int kind = below(8);
        std::vector<float> field = kind == 0   ? smooth(count)
                                   : kind == 1 ? anyNumbers(count)
                                               : levelled(kind, count);
        if (field.empty()) return field;
        for (int k = below(5); k > 0; --k) {
            const auto place = ConsumeIntegralInRange<std::size_t>(0, count - 1);
            field[place] = below(2) == 0 ? missing : oddNumber();
        }
        return field;
    }

    /// Up to so many levels, mostly ascending.
    std::vector<float> levels(int most) {
        std::vector<float> list(static_cast<std::size_t>(below(most + 1)));
        const int top = PickValueInArray({4, 40, 256});
        for (float& level : list) level = number(-top / 4, top);
        if (!oneIn(4))
            std::sort(list.begin(), list.end(),
                      [](float a, float b) { return a < b || (std::isnan(b) && !std::isnan(a)); });
        return list;
    }

    std::vector<int> integers(std::size_t count, int low, int high) {
        std::vector<int> list(count);
        for (int& value : list) value = oneIn(16) ? oddInteger() : ConsumeIntegralInRange(low, high);
        return list;
    }

    /// The list, or seldom null.
    template <class T>
    const T* orNull(const std::vector<T>& list) {
        return oneIn(32) ? nullptr : list.data();
    }

private:
    /// Some bytes, at least one; a further list gets some too.
    std::vector<std::uint8_t> someBytes(std::size_t wanted) {
        auto bytes = ConsumeBytes<std::uint8_t>(std::min(wanted, (remaining_bytes() + 1) / 2));
        if (bytes.empty()) bytes.push_back(0);
        return bytes;
    }

    std::vector<float> levelled(int kind, std::size_t count) {
        const int kinds = 2 + below(5);
        const std::vector<std::uint8_t> bytes = someBytes(count);
        std::vector<float> field(count);
        for (std::size_t k = 0; k < count; ++k) {
            const int byte = bytes[k % bytes.size()];
            field[k] = kind < 4    ? static_cast<float>(byte % kinds)
                       : kind == 4 ? static_cast<float>(byte) / 8 - 10
                       : kind == 5 ? oddNumbers[static_cast<std::size_t>(byte) % std::size(oddNumbers)]
                                   : static_cast<float>(byte);
        }
        return field;
    }

    std::vector<float> smooth(std::size_t count) {
        const float a = between(0, 3);
        const float b = between(0, 3) / 20;
        const float height = PickValueInArray({1.0F, 30.0F, 500.0F, 1e-3F, 1e37F});
        std::vector<float> field(count);
        for (std::size_t k = 0; k < count; ++k) {
            const auto at = static_cast<float>(k);
            field[k] = height * (std::sin(a * at) + std::cos(b * at));
        }
        return field;
    }

    std::vector<float> anyNumbers(std::size_t count) {
        std::vector<std::uint8_t> bytes = someBytes(4 * count);
        bytes.resize((bytes.size() + 3) / 4 * 4);
        std::vector<float> field(count);
        for (std::size_t k = 0; k < count; ++k)
            std::memcpy(&field[k], &bytes[4 * k % bytes.size()], sizeof field[k]);
        return field;
    }
};

}  // namespace velmar::fuzz
