#include <random>
#include <sstream>

#include "base/progress.h"
#include "shade/curveModel.h"
#include "support/said.h"

namespace {

using namespace velmar;
using test::Field;
using test::searched;
using Random = std::mt19937;

std::string describe(const Field& f, const std::vector<test::Polygon>& got, const test::ShadingModel& model) {
    std::ostringstream text;
    text << "strips of " << f.stripRows << " rows, levels";
    for (const float level : f.levels) text << ' ' << level;
    for (std::size_t k = 0; k < f.values.size(); ++k) {
        text << (k % static_cast<std::size_t>(f.nx) == 0 ? '\n' : ' ') << f.values[k];
    }
    text << "\ngot\n";
    for (const test::Polygon& polygon : got) text << test::listing(polygon);
    text << (model.full ? "expected to fail\n" : "expected\n");
    for (const test::Polygon& polygon : model.polygons) text << test::listing(polygon);
    return text.str();
}

void expectAsModelled(const Field& f) {
    const test::ShadingModel model(f);
    const auto polygons = test::polygonsOf(test::shade(f));
    ASSERT_TRUE(polygons == (model.full ? std::vector<test::Polygon>{} : model.polygons))
        << describe(f, polygons, model);
}

using CurveModel = test::SilentTest;

/// Missing rows behind a grid give its traces room in the point buffer, which has the size of the grid.
void addMissingRows(Field& f, int rows) {
    f.ny += rows;
    f.values.resize(static_cast<std::size_t>(f.nx * f.ny), f.missing);
}

/// The pattern's digits to the base 4 tell below, equal, above and missing. In strips of ny - 1 rows the rows
/// added are no neighbours of the grid; in one strip they are.
void expectPatternAsModelled(std::uint32_t pattern, int nx, int ny) {
    Field f{{}, nx, ny, {1}, {7}};
    const float stock[] = {0, 1, 3, f.missing};
    for (int k = 0; k < nx * ny; ++k) f.values.push_back(stock[pattern >> (2 * k) & 3U]);
    f.stripRows = ny - 1;
    expectAsModelled(f);
    addMissingRows(f, 2);
    expectAsModelled(f);
    f.stripRows = 0;
    expectAsModelled(f);
}

TEST_F(CurveModel, AgreesOnSmallPatterns) {
    struct Size {
        int nx;
        int ny;
        std::uint32_t step;  // of a short search; a long one leaves out no pattern
    };
    for (const auto [nx, ny, step] : {Size{3, 3, 3}, Size{4, 3, 1999}, Size{3, 4, 1999}}) {
        const std::uint32_t patterns = 1U << static_cast<unsigned>(2 * nx * ny);
        for (std::uint32_t pattern = 0; pattern<patterns; pattern += searched(1)> 1 ? 1 : step) {
            expectPatternAsModelled(pattern, nx, ny);
            if (HasFatalFailure()) return;
        }
    }
    Random random(1);
    for (int round = 0; round < searched(10000) && !HasFatalFailure(); ++round) {
        expectPatternAsModelled(static_cast<std::uint32_t>(random()), 4, 4);
    }
}

Field randomField(Random& random) {
    const auto below = [&](unsigned end) { return static_cast<int>(random() % end); };
    Field f{{}, 2 + below(random() % 50 == 0 ? 200 : 11), 2 + below(11), {}, {}};
    const auto kinds = 2 + random() % 4;
    const auto wholeOf4 = random() % 5;
    const auto missingOf100 = random() % 2 * (random() % 60);
    for (int k = 0; k < f.nx * f.ny; ++k) {
        const bool whole = random() % 4 < wholeOf4;
        f.values.push_back(whole ? static_cast<float>(random() % kinds)
                                 : static_cast<float>(random() % 10000 * kinds) / 10000);
        if (random() % 100 < missingOf100) f.values.back() = random() % 4 == 0 ? NAN : f.missing;
    }
    for (int k = 1 + below(5); k > 0; --k) {
        f.levels.push_back(static_cast<float>(random() % (2 * kinds)) / 2);
        f.colours.push_back(below(110) - 5);
    }
    if (random() % 8 != 0) std::sort(f.levels.begin(), f.levels.end());
    f.stripRows = below(4);
    if (random() % 4 != 0) addMissingRows(f, f.ny);
    f.x0 = static_cast<float>(below(360));
    f.y0 = -90;
    f.dx = random() % 2 == 0 ? 0.1F : 2.5F;
    f.dy = random() % 2 == 0 ? 1 : -1.25F;
    return f;
}

TEST_F(CurveModel, AgreesOnRandomFields) {
    Random random(2);
    for (int round = 0; round < searched(30000) && !HasFatalFailure(); ++round) {
        expectAsModelled(randomField(random));
    }
}

/// Shades some fields and compares all that is printed meanwhile.
void expectPrintedAsModelled(Random& random) {
    std::string expected;
    test::CapturedOutput output;
    for (int round = 0; round < 500; ++round) {
        const Field f = randomField(random);
        const test::ShadingModel model(f);
        for (const test::Polygon& polygon : model.polygons) expected += test::listing(polygon);
        if (model.full) expected += "Error in velmarCntrShad\n";
        test::shade(f);
    }
    const std::string printed = output.text();
    const auto [one, other] = std::mismatch(printed.begin(), printed.end(), expected.begin(), expected.end());
    ASSERT_TRUE(printed == expected) << std::string(one, std::min(one + 200, printed.end()))
                                     << "\ninstead of\n"
                                     << std::string(other, std::min(other + 200, expected.end()));
}

TEST_F(CurveModel, AgreesOnWhatIsPrinted) {
    base::setProgressEnabled(true);
    Random random(3);
    for (int round = 0; round < searched(2) && !HasFatalFailure(); ++round) expectPrintedAsModelled(random);
}

}  // namespace
