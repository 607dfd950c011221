#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "files/diagnosticFile.h"
#include "files/gridWriter.h"
#include "support/ownFolder.h"
#include "support/plainLocale.h"

namespace {

using namespace velmar::files;
using velmar::grid::Lattice;

constexpr const char* name = "grid.000";
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
const Lattice small{70, 75, 2.5F, 15.25F, 12.75F, -2.5F};

using GridWriter = velmar::test::InOwnFolder;

std::string written(const Lattice& lattice, int nx, int ny, const std::vector<float>& values,
                    DrawingHints hints = {5, 0, 5}) {
    writeDiagnosticGrid(name, nullptr, {{values.data(), nx, ny}, lattice}, hints);
    return velmar::test::textOf(name);
}

TEST_F(GridWriter, WritesGridFiles) {
    const std::vector<float> values{-9999, 123456.789F, 0.125F, -0.001F, infinity, -nan};
    const std::string expected =
        "diamond 4 \xBF\xCD\xB9\xDB\xB7\xD6\xCE\xF6\xB3\xA1\n2006 6 2 8 0 1000\n"
        "2.500000 -2.500000 70.000000 75.000000 15.250000 12.750000\n"
        "3 2 5.000000 -0.2 10000000272564224.0 0 0.0\n"
        "-9999.00\n123456.79\n    0.12\n\n   -0.00\n     inf\n    -nan\n\n";
    EXPECT_EQ(written(small, 3, 2, values, {5, -0.25F, 1e16F}), expected);
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_TRUE(written({}, 3, 0, {}).ends_with("\n3 0 5.000000 0.0 5.0 0 0.0\n"));
    EXPECT_TRUE(written({}, -2, most, {}).ends_with("\n-2 2147483647 5.000000 0.0 5.0 0 0.0\n"));
}

/// Values of all sizes, and many that lie half way between two hundredths.
TEST_F(GridWriter, FormatsValuesAsPrintfDoes) {
    const velmar::test::PlainLocale plain;
    std::mt19937 random(5);
    std::vector<float> values;
    std::string expected = "0 0.0\n";
    for (int k = 0; k < 100000; ++k) {
        const auto bits = static_cast<std::uint32_t>(random());
        const float eighths = static_cast<float>(bits % 100000) / 8 - 6000;
        const auto any = std::bit_cast<float>(bits);
        values.push_back(k % 2 == 0 || !std::isfinite(any) ? eighths : any);
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "%8.2f\n", static_cast<double>(values.back()));
        expected += line.data();
    }
    EXPECT_TRUE(written({}, 100000, 1, values).ends_with(expected + "\n"));
}

using DiagnosticFile = velmar::test::InOwnFolder;

TEST_F(DiagnosticFile, IsWrittenOverNothingElse) {
    namespace fs = std::filesystem;
    std::ofstream("kept") << "data";
    EXPECT_EQ(openDiagnosticFile("kept", "./kept"), nullptr) << "the file that is being read";
    fs::create_hard_link("kept", "link");
    EXPECT_EQ(openDiagnosticFile("link"), nullptr);
    fs::remove("link");
    for (const char* target : {"kept", "nothing"}) {
        std::error_code notAllowed;  // as for most users of Windows
        fs::create_symlink(target, "link", notAllowed);
        if (!notAllowed) {
            EXPECT_EQ(openDiagnosticFile("link"), nullptr) << target;
        }
        fs::remove("link");
    }
    EXPECT_FALSE(fs::exists("nothing"));
    EXPECT_EQ(velmar::test::textOf("kept"), "data");
    EXPECT_NE(openDiagnosticFile("kept", "nothing"), nullptr);
    EXPECT_EQ(velmar::test::textOf("kept"), "") << "it begins anew";
}

}  // namespace
