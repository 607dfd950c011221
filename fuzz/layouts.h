#pragma once

#include <sanitizer/allocator_interface.h>

#include <cmath>
#include <cstddef>
#include <memory>

#include "harness.h"
#include "velmarBaseA.h"

/// Walks through result blocks by their layouts, as docs/results.md draws them: a block must end where its layout
/// does.
namespace velmar::fuzz {

struct Release {
    void operator()(float* block) const { freecPointer(block); }
};
using Block = std::unique_ptr<float[], Release>;

inline std::size_t lengthOf(const Block& block) {
    return __sanitizer_get_allocated_size(block.get()) / sizeof(float);
}

/// A cursor that does not leave the block.
class Walk {
public:
    explicit Walk(const Block& block) : next_(block.get()), left_(lengthOf(block)) {}

    float next() {
        require(left_ > 0, "a block is shorter than its layout");
        --left_;
        return *next_++;
    }

    /// The next element as a number of things, which may be as many as are left.
    std::size_t count() {
        const float value = next();
        require(value >= 0 && value <= static_cast<float>(left_), "a count is beyond its block");
        require(value == std::trunc(value), "a count is not whole");
        return static_cast<std::size_t>(value);
    }

    /// A number of columns or rows, as it was given.
    int extent() {
        const float value = next();
        return value < 1 ? 0 : value > 1e9F ? INT_MAX : static_cast<int>(value);
    }

    /// Reads elements whatever they hold.
    void skip(std::size_t elements) {
        require(elements <= left_, "a block is shorter than its layout");
        for (; elements > 0; --elements) last_ = next();
    }

    void end() const { require(left_ == 0, "a block is longer than its layout"); }

private:
    const float* next_;
    std::size_t left_;
    volatile float last_ = 0;  // so that every element is read
};

/// Whether there is a result. An error code stands alone and is one of -1 to -9.
inline bool isResult(const Block& block) {
    if (block == nullptr) return false;
    if (lengthOf(block) > 1 || !(block[0] < 0)) return true;
    require(block[0] >= -9 && block[0] == std::trunc(block[0]), "an error code is none");
    return false;
}

inline void walkAll(const Block& block) {
    if (block != nullptr) Walk(block).skip(lengthOf(block));
}

inline void walkBare(const Block& block, std::size_t elements) {
    if (block == nullptr) return;
    require(lengthOf(block) == elements, "a bare grid has another length");
    walkAll(block);
}

inline void requireLength(const Block& block, float element) {
    require(element == static_cast<float>(lengthOf(block)), "the element count is not the block's");
}

/// nx, ny, so many numbers, and the values.
inline void skipGrid(Walk& in, std::size_t numbersBetween, std::size_t valuesEach = 1) {
    const int nx = in.extent();
    const Size size{nx, in.extent()};
    in.skip(numbersBetween + valuesEach * size.values());
}

inline void walkGridFile(const Block& block) {
    if (!isResult(block)) return;
    Walk in(block);
    requireLength(block, in.next());
    skipGrid(in, 8);
    in.skip(5);
    in.end();
}

/// Contour lines or shading: a number of outlines, a grid, and so many elements behind it.
inline void walkOutlines(const Block& block, std::size_t behind) {
    if (!isResult(block)) return;
    Walk in(block);
    requireLength(block, in.next());
    for (std::size_t left = in.count(); left > 0; --left) {
        const std::size_t points = in.count();
        require(points > 0, "an outline has no points");
        in.skip(2 + 2 * points);
    }
    require(in.next() == -1, "the end of the outlines is not marked");
    skipGrid(in, 6);
    in.skip(behind);
    in.end();
}
inline void walkContours(const Block& block) { walkOutlines(block, 4); }
inline void walkShading(const Block& block) { walkOutlines(block, 1); }

inline void walkCentres(const Block& block) {
    if (!isResult(block)) return;
    Walk in(block);
    in.skip(7 * in.count() + 1);
    in.end();
}

inline void walkNearestField(const Block& block) {
    if (!isResult(block)) return;
    Walk in(block);
    requireLength(block, in.next());
    in.skip(6);
    skipGrid(in, 0);
    in.end();
}

inline void walkStreamlines(const Block& block) {
    if (!isResult(block)) return;
    require(block[0] == static_cast<float>(lengthOf(block) - 1), "the last index is not the block's");
    Walk in(block);
    in.skip(1);
    const auto end = static_cast<std::size_t>(in.next());
    for (std::size_t at = 2; at < end;) {
        const float flag = in.next();
        require(flag == 0 || flag == 1 || flag == 2, "a record is of no kind");
        const std::size_t elements = flag == 2 ? 6 : 4;
        in.skip(elements - 1);
        at += elements;
    }
    require(in.next() == 0 && in.next() == -1, "the end of the records is not marked");
    skipGrid(in, 6, 2);
    in.end();
}

/// Lines to the end: a number of points, so many elements, and the points.
inline void walkLinesToEnd(const Block& block) {
    if (!isResult(block)) return;
    Walk in(block);
    requireLength(block, in.next());
    for (std::size_t at = 1; at < lengthOf(block);) {
        const std::size_t points = in.count();
        in.skip(1 + 2 * points);
        at += 2 + 2 * points;
    }
    in.end();
}

}  // namespace velmar::fuzz
