// What a trace does when its start or its flags contradict each other: it gives up with the right text and
// does not run on. No grid leads there, so the tests spoil the flags of a sound one.
#include <gmock/gmock.h>

#include <limits>

#include "base/progress.h"
#include "shade/trace.h"
#include "support/said.h"

namespace velmar::shade {
namespace {

/// A strip of 6 x 5 points, all above the level 0.5 but those without data.
class Consistency : public testing::Test {
protected:
    static constexpr int nx = 6;
    static constexpr int ny = 5;
    static constexpr float missing = 9999;

    /// Makes the points of the list undefined.
    void prepare(std::initializer_list<std::pair<int, int>> undefinedPoints = {}) {
        for (const auto& [i, j] : undefinedPoints) at(i, j) = missing;
        buffers_.index.build({values_.data(), nx, ny}, {missing});
        buffers_.strip.begin(buffers_.index, strip_);
        buffers_.strip.beginLevel(buffers_.index, strip_, 0.5F);
    }

    /// What a trace prints that fails.
    std::string failureOf(StartKind kind, int i, int j) {
        test::CapturedOutput output;
        RegionTracer tracer(buffers_.index, strip_, {0.5F, 1, 0}, {0, 0, 1, 1}, buffers_.strip, polygons_);
        EXPECT_FALSE(tracer.traceRegion({kind, i, j}));
        base::flushProgress();
        EXPECT_TRUE(polygons_.runs.empty());
        return output.text();
    }

    float& at(int i, int j) { return values_[static_cast<std::size_t>(j * nx + i)]; }

    std::vector<float> values_ = std::vector<float>(nx * ny, 1.0F);
    Strip strip_{0, ny - 1};
    ShadeBuffers buffers_;
    ShadePolygons polygons_;
};

TEST_F(Consistency, CellsOutsideTheStripAreNotEntered) {
    prepare();
    EXPECT_EQ(failureOf(StartKind::cellBottom, 1, ny), "logic error 12 in velmarCntrShad\n  side1, 2 6 \n");
    EXPECT_EQ(failureOf(StartKind::cellRight, -2, 1), "logic error 12 in velmarCntrShad\n  side2, -1 2 \n");
    EXPECT_EQ(failureOf(StartKind::cellTop, 1, -2), "logic error 12 in velmarCntrShad\n  side3, 2 -1 \n");
    EXPECT_EQ(failureOf(StartKind::cellLeft, nx, 1),
              "logic error 12 in velmarCntrShad\n  side4, 7 2 \n imax, jmax = 6 5 \n");
}

TEST_F(Consistency, StartsOfNoKindAndBlockedSidesAndCellsWithoutAnExit) {
    prepare({{1, 1}});
    EXPECT_EQ(failureOf(static_cast<StartKind>(11), 1, 1), "Logic error 40 in velmarCntrShad\n");
    EXPECT_EQ(failureOf(StartKind::cellBottom, 0, 1), "Logic error 4 in velmarCntrShad: 1 2\n");
    EXPECT_EQ(failureOf(StartKind::cellLeft, 1, 0),
              "Logic error 4 in velmarCntrShad: 2 1\nSide 4, entered 4 \n");
    EXPECT_EQ(failureOf(StartKind::cellLeft, 3, 2), "Logic error 8 in velmarCntrShad\n");
}

TEST_F(Consistency, BoundariesThatEndOrForkInTheWrongPlace) {
    prepare();
    EXPECT_EQ(failureOf(StartKind::undefinedAlongRow, 2, 0), "Logic error 16 in velmarCntrShad\n");
    EXPECT_EQ(failureOf(StartKind::undefinedAlongColumn, 0, 2), "Logic error 16 in velmarCntrShad\n");
    EXPECT_EQ(failureOf(StartKind::undefinedAlongRow, 2, 2), "Logic error 24 in velmarCntrShad\n");
    EXPECT_EQ(failureOf(StartKind::undefinedAlongColumn, 2, ny - 1), "Logic error 20 in velmarCntrShad\n");

    // A strip's edge that is blocked where no undefined boundary leads inward.
    buffers_.strip.sides.alongRow.usable.clear(3, 0);
    EXPECT_EQ(failureOf(StartKind::bottomEdge, 2, 0), "Logic error 24 in velmarCntrShad\n");
}

TEST_F(Consistency, UndefinedCellsThatTouchAtAPointWithoutADiagonal) {
    const auto crossBoundariesAt = [&](int i, int j) {
        for (const int k : {i - 1, i}) buffers_.strip.sides.alongRow.boundary.set(k, j);
        for (const int k : {j - 1, j}) buffers_.strip.sides.alongColumn.boundary.set(i, k);
    };
    prepare();
    crossBoundariesAt(2, 2);
    EXPECT_EQ(failureOf(StartKind::undefinedAlongRow, 2, 2), "Logic error 36 in velmarCntrShad\n");

    // The walk comes in from the left below the undefined upper left cell. Of the pair that it finds, the
    // other one would have to be undefined.
    prepare({{1, 1}, {3, 3}});
    buffers_.strip.sides.definedCells.clear(1, 2);
    EXPECT_EQ(failureOf(StartKind::undefinedAlongRow, 2, 2), "Logic error 28 in velmarCntrShad\n");

    // A strip that reaches beyond the grid's rows cannot be; one that ends below the last row can.
    strip_ = {0, ny};
    buffers_.strip.above.resize(nx, strip_.rows());
    buffers_.strip.sides.resize(nx, strip_);
    crossBoundariesAt(2, ny - 1);
    EXPECT_EQ(failureOf(StartKind::undefinedAlongRow, 2, ny - 1), "Logic error 32 in velmarCntrShad\n");
}

}  // namespace
}  // namespace velmar::shade
