#include <map>
#include <random>

#include "shade/ground.h"
#include "support/fields.h"

namespace {

using namespace velmar;
using test::Field;
using test::Ground;
using test::Polygon;
using test::Position;

constexpr int bare = -1;  // no polygon, or no level below the value

/// What strips of several rows paint wrongly, by its cause.
enum class Fault { island, missingArea, besideMissingArea, misreadHollow, belowLowestLevel, unknown };

struct Tally {
    int samples = 0;
    std::map<Fault, int> faults;
};

bool inside(const Polygon& polygon, Position p) {
    bool odd = false;
    for (std::size_t k = 0; k + 1 < polygon.points.size(); ++k) {
        const auto [ax, ay] = polygon.points[k];
        const auto [bx, by] = polygon.points[k + 1];
        if ((ay > p.y) == (by > p.y)) continue;
        odd ^= p.x < ax + double{p.y - ay} / (double{by} - ay) * (double{bx} - ax);
    }
    return odd;
}

int painted(const std::vector<Polygon>& polygons, Position p) {
    const auto on = std::find_if(polygons.rbegin(), polygons.rend(), [&](auto& q) { return inside(q, p); });
    return on == polygons.rend() ? bare : on->colour;
}

/// A position in the strip by what it is to each level.
class Sample {
public:
    Sample(const Field& field, const std::vector<Ground>& grounds, int i, int j, Position p)
        : colours_(field.colours), missing_(!field.knownCell(i, j)) {
        for (const Ground& ground : grounds) {
            const std::size_t node = ground.nodeAt(i, j, p);
            // Beside a curve, or where the curves of two levels cross in a saddle.
            isClear &= node != Ground::none && !(ground.high(node) && !high_.empty() && !high_.back());
            if (!isClear) return;
            high_.push_back(ground.high(node));
            around_.emplace_back();
            for (const Ground::Hollow& hollow : ground.hollows()) {
                if (hollow.reach[node]) around_.back().push_back(&hollow);
            }
            if (high_.back()) colour = field.colours[high_.size() - 1];
        }
    }

    bool isClear = true;
    int colour = bare;

    Fault faultOf(int painted) const {
        const auto possible = paintedColours();
        if (std::find(possible.begin(), possible.end(), painted) == possible.end()) return Fault::unknown;
        if (missing_) return Fault::missingArea;
        if (colour == bare && painted == 0) return Fault::belowLowestLevel;
        Fault fault = Fault::unknown;
        for (std::size_t k = 0; k < high_.size(); ++k) {
            for (const Ground::Hollow* hollow : around_[k]) {
                if (high_[k] && !hollow->meetsMissing) return Fault::island;
                if (!high_[k] && hollow->leftmostAtPoint) fault = Fault::misreadHollow;
                if (!high_[k] && hollow->meetsMissing) fault = Fault::besideMissingArea;
            }
        }
        return fault;
    }

private:
    /// The colours that the order of painting can leave here: high ground with all that it rings, level by
    /// level, then the hollows from the last level to the first. A hollow whose outline touches missing
    /// ground is no hole, and one whose leftmost crossing is at a grid point need not be taken for one.
    std::vector<int> paintedColours() const {
        std::vector<int> colours{bare};
        for (std::size_t k = 0; k < high_.size(); ++k) {
            if (high_[k] || !around_[k].empty()) colours = {colours_[k]};
        }
        for (std::size_t k = high_.size(); k-- > 0;) {
            for (const Ground::Hollow* hollow : around_[k]) {
                if (hollow->meetsMissing) continue;
                if (!hollow->leftmostAtPoint) colours.clear();
                colours.push_back(k == 0 ? 0 : colours_[k - 1]);
            }
        }
        return colours;
    }

    const std::vector<int>& colours_;
    bool missing_;
    std::vector<bool> high_;
    std::vector<std::vector<const Ground::Hollow*>> around_;
};

class Paint : public test::SilentTest {
protected:
    void checkCell(const Field& f, const std::vector<Ground>& grounds, const std::vector<Polygon>& polygons,
                   int i, int j) {
        const auto within = [&](int from) {
            return static_cast<float>(from) + static_cast<float>(1 + random_() % 998) / 999;
        };
        const Position p{within(i), within(j)};
        const Sample sample(f, grounds, i, j, p);
        const int colour = painted(polygons, p);
        tally_.samples += sample.isClear;
        if (!sample.isClear || colour == sample.colour) return;
        const Fault fault = sample.faultOf(colour);
        ++tally_.faults[fault];
        ASSERT_TRUE(fault != Fault::unknown)
            << "colour " << colour << " instead of " << sample.colour << " at " << p.x << ", " << p.y
            << " in strips of " << f.stripRows << " rows, " << f.nx << " columns, values "
            << testing::PrintToString(f.values);
    }

    void checkPaint(const Field& f) {
        const auto polygons = test::polygonsOf(test::shade(f));
        if (polygons.empty() && test::ShadingModel(f).full) return;
        for (int bottom = 1; bottom < f.ny; bottom = f.stripTop(bottom)) {
            std::vector<Ground> grounds;
            for (const float level : f.levels) grounds.emplace_back(f, bottom, f.stripTop(bottom), level);
            for (int j = bottom; j < f.stripTop(bottom); ++j) {
                for (int i = 1; i < f.nx && !HasFatalFailure(); ++i) checkCell(f, grounds, polygons, i, j);
            }
        }
    }

    /// Rings of high and low ground round the middle, with some noise.
    std::vector<float> ringedField(int nx, int ny) {
        std::vector<float> field;
        for (int k = 0; k < nx * ny; ++k) {
            const double distance = std::hypot(k % nx - nx / 2, k / nx - ny / 2);
            field.push_back(static_cast<float>(std::floor(2.5 + 2.5 * std::cos(1.2 * distance))) +
                            static_cast<float>(random_() % 2));
        }
        return field;
    }

    /// Fields of whole values with plateaus and saddles, some of them with missing points, some ringed.
    void paintNoise(int stripRows, int rounds) {
        for (int round = 0; round < test::searched(rounds) && !HasFatalFailure(); ++round) {
            const int nx = 4 + static_cast<int>(random_() % 17);
            const int ny = 4 + static_cast<int>(random_() % 17);
            const auto kinds = static_cast<unsigned>(3 + round % 4);
            const auto missingEvery = static_cast<unsigned>(round % 2 * (5 + round % 20));
            const auto values = round % 5 == 0 ? ringedField(nx, ny)
                                               : test::steppedField(random_, nx, ny, kinds, missingEvery);
            checkPaint({values, nx, ny, {0.5F, 1, 2, 4.25F}, {10, 20, 30, 40}, stripRows});
        }
    }

    std::mt19937 random_{5};
    Tally tally_;
};

TEST_F(Paint, IsRightInStripsOfOneRow) {
    paintNoise(1, 200);
    EXPECT_GT(tally_.samples, 10000);
    EXPECT_TRUE(tally_.faults.empty());
}

TEST_F(Paint, IsWrongInTallerStripsWhereItsOrderMakesItSo) {
    for (const int rows : {2, 3, 0}) paintNoise(rows, 200);
    EXPECT_EQ(tally_.faults.size(), 5U) << "each of the causes occurs";
}

}  // namespace
