#include "chart/layers/lineRaster.h"

#include <cmath>

namespace velmar::tool {
namespace {

constexpr double squareSide = 3;
constexpr std::uint32_t nobody = 0;
constexpr std::uint32_t several = 1;

std::uint32_t ownerNumber(std::size_t line) { return static_cast<std::uint32_t>(line) + 2; }

std::size_t squaresAlong(double length) { return static_cast<std::size_t>(length / squareSide) + 1; }

}  // namespace

LineRaster::LineRaster(const PaperBox& box, const std::vector<PaperLine>& lines)
    : box_(box), columns_(squaresAlong(box.width)), owners_(columns_ * squaresAlong(box.height), nobody) {
    for (std::size_t k = 0; k < lines.size(); ++k) add(lines[k], ownerNumber(k));
}

std::size_t LineRaster::squareOf(PaperPoint point) const {
    const auto column = static_cast<std::size_t>((point.x - box_.left) / squareSide);
    const auto row = static_cast<std::size_t>((point.y - box_.top) / squareSide);
    return row * columns_ + column;
}

void LineRaster::add(const PaperLine& line, std::uint32_t owner) {
    for (const auto& [from, to] : line.stretchesInside(box_)) {
        const auto steps = static_cast<int>((to - from) / (squareSide / 2));
        for (int k = 0; k <= steps; ++k) {
            const PaperPoint point = line.at(from + k * squareSide / 2);
            if (!box_.contains(point)) continue;  // by a rounding
            std::uint32_t& square = owners_[squareOf(point)];
            square = square == nobody || square == owner ? owner : several;
        }
    }
}

double LineRaster::crowding(const TurnedBox& box, std::size_t ownLine) const {
    const auto along = static_cast<int>(box.size.width / squareSide);
    const auto across = static_cast<int>(box.size.height / squareSide);
    int crowded = 0;
    int looked = 0;
    for (int i = 0; i <= along; ++i) {
        for (int j = 0; j <= across; ++j) {
            const PaperPoint point = box.at(2.0 * i / along - 1, 2.0 * j / across - 1);
            if (!box_.contains(point)) continue;
            const std::uint32_t owner = owners_[squareOf(point)];
            ++looked;
            if (owner != nobody && owner != ownerNumber(ownLine)) ++crowded;
        }
    }
    return looked > 0 ? static_cast<double>(crowded) / looked : 1;
}

}  // namespace velmar::tool
