#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>

#include "contour/plain.h"
#include "grid/extremes.h"
#include "grid/refine.h"
#include "support/fields.h"

namespace {

using namespace velmar;
using grid::chooseFactors;
using grid::Extremes;
using grid::extremesOf;
using grid::refine;

TEST(Refine, EqualsThePlainWay) {
    std::mt19937 random(3);
    for (int round = 0; round < 600; ++round) {
        const int nx = 1 + static_cast<int>(random() % 12);
        const int ny = 1 + static_cast<int>(random() % 12);
        const grid::RefinementFactors factors{1 + static_cast<int>(random() % 5),
                                              1 + static_cast<int>(random() % 5)};
        auto field = test::smoothField(random, nx, ny);
        for (float& value : field) value = random() % 6 == 0 ? 9999.0F : value;
        const float missing = round % 7 == 0 ? std::numeric_limits<float>::quiet_NaN() : 9999.0F;
        const grid::GridView grid{field.data(), nx, ny};
        const grid::Grid fine = refine(grid, missing, factors);
        ASSERT_EQ(fine.values, test::plainRefine(grid, missing, factors.x, factors.y).values);
        for (int j = 0; j < ny; ++j) {
            for (int i = 0; i < nx; ++i)
                ASSERT_EQ(fine.view().at(i * factors.x, j * factors.y), grid.at(i, j));
        }
    }
}

TEST(Refine, ChoosesFactorsThatLeaveFiveAndClampToFour) {
    const auto factors = [](int nx, int ny) {
        const auto chosen = chooseFactors(nx, ny);
        return std::pair{chosen.x, chosen.y};
    };
    EXPECT_EQ(factors(40, 10), std::pair(5, 5));
    EXPECT_EQ(factors(41, 11), std::pair(4, 4));
    EXPECT_EQ(factors(33, 8), std::pair(4, 4));
    EXPECT_EQ(factors(250, 60), std::pair(1, 1));
    EXPECT_EQ(factors(1, 1), std::pair(4, 4));
    EXPECT_EQ(factors(0, -3), std::pair(1, 1));
}

TEST(ExtremesOf, AreThoseOfAWalk) {
    std::mt19937 random(1);
    const std::vector<float> stock{0.0F, -0.0F, 1, -1, 2, 9999, -3e36F, 3e36F, std::nanf(""), 0.5F};
    for (int round = 0; round < 2000; ++round) {
        std::vector<float> values(random() % 150);
        const std::size_t kinds = 1 + random() % stock.size();
        for (float& value : values) value = stock[random() % kinds];
        Extremes expected;
        for (const float value : values) {
            if (value == 9999) continue;
            if (value > expected.largest) expected.largest = value;
            if (value < expected.smallest) expected.smallest = value;
        }
        const Extremes found = extremesOf(values, 9999);
        EXPECT_EQ(std::bit_cast<unsigned>(found.largest), std::bit_cast<unsigned>(expected.largest));
        EXPECT_EQ(std::bit_cast<unsigned>(found.smallest), std::bit_cast<unsigned>(expected.smallest));
    }
}

}  // namespace
