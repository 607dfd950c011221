#include "shade/outlines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "base/progress.h"
#include "support/fields.h"
#include "support/files.h"
#include "velmarBaseA.h"

namespace {

using velmar::shade::AreaOutlines;
using velmar::shade::outlineBands;
using velmar::shade::ValueBand;

constexpr float missing = 9999;
const std::vector<float> levels{0.5F, 1, 2.25F, 4.75F};

/// The area inside, holes left out.
double areaOf(const AreaOutlines& outlines) {
    double sum = 0;
    for (const auto& run : outlines.runs) {
        const auto ring = outlines.pointsOf(run);
        for (std::size_t n = 0; n < ring.size(); ++n) {
            const auto& a = ring[n];
            const auto& b = ring[(n + 1) % ring.size()];
            sum += (double{a.column} * b.row - double{b.column} * a.row) / 2;
        }
    }
    return sum;
}

/// The area of the polygons of a block; their orientation tells nothing.
double areaOf(const velmar::test::Block& block) {
    double sum = 0;
    const float* next = block.get() + 2;
    for (int k = 0; k < static_cast<int>(block[1]); ++k) {
        const int points = static_cast<int>(*next);
        next += 3;
        double area = 0;
        for (int n = 1; n < points; ++n)
            area += double{next[2 * n - 2]} * next[2 * n + 1] - double{next[2 * n]} * next[2 * n - 1];
        sum += std::fabs(area) / 2;
        next += std::ptrdiff_t{2} * points;
    }
    return sum;
}

TEST(BandOutlines, CoverWhatStripsOfOneRowDoAndDivideTheGrid) {
    velmar::base::setProgressEnabled(false);
    std::mt19937 random(7);
    for (int round = 0; round < 80; ++round) {
        const int nx = 8 + round % 70;
        const int ny = 3 + round % 9;
        const std::vector<float> field =
            velmar::test::steppedField(random, nx, ny, 6, round % 3 == 0 ? 0 : 9);
        std::vector<ValueBand> bands{{-INFINITY, levels.front()}};
        std::vector<ValueBand> above{{-INFINITY}};
        for (std::size_t k = 0; k < levels.size(); ++k) {
            bands.push_back({levels[k], k + 1 < levels.size() ? levels[k + 1] : INFINITY});
            above.push_back({levels[k]});
        }
        const auto areasAbove = outlineBands({field.data(), nx, ny}, missing, above);
        double sum = 0;
        for (const AreaOutlines& band : outlineBands({field.data(), nx, ny}, missing, bands))
            sum += areaOf(band);
        EXPECT_NEAR(sum, areaOf(areasAbove[0]), 1e-3) << round;
        for (std::size_t k = 0; k < levels.size(); ++k) {
            const int colour = 1;
            const velmar::test::Block strips(
                velmarCntrShad(field.data(), nx, ny, &levels[k], &colour, 1, missing, 0, 0, 1, 1, 1));
            EXPECT_NEAR(areaOf(areasAbove[k + 1]), strips.get() == nullptr ? 0 : areaOf(strips), 1e-3)
                << round;
        }
    }
}

TEST(BandOutlines, GoRoundHolesTheOtherWayAndTellCornersOfTheData) {
    // High ground around a hollow, without data in a corner.
    std::vector<float> field(5 * 5, 2);
    field[12] = 0;
    field[24] = missing;
    const AreaOutlines above =
        outlineBands({field.data(), 5, 5}, missing, std::vector<ValueBand>{{1}}).front();
    ASSERT_EQ(above.runs.size(), 2U);
    EXPECT_NEAR(areaOf(above), 15 - 0.5, 1e-6);
    EXPECT_EQ(above.pointsOf(above.runs[0]).size(), 6U);
    for (const auto& point : above.pointsOf(above.runs[0])) EXPECT_TRUE(point.sharp);
    for (const auto& point : above.pointsOf(above.runs[1])) EXPECT_FALSE(point.sharp);
}

}  // namespace
