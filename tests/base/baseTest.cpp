#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "base/progress.h"
#include "support/said.h"

namespace {

using namespace velmar::base;

TEST(Numbers, TruncateAndSaturate) {
    EXPECT_EQ(truncateToInt(2.9), 2);
    EXPECT_EQ(truncateToInt(-2.9), -2);
    EXPECT_EQ(truncateToInt(2147483647.5), INT_MAX);
    EXPECT_EQ(truncateToInt(-1e30), INT_MIN);
    EXPECT_EQ(truncateToInt(std::numeric_limits<double>::infinity()), INT_MAX);
    EXPECT_EQ(truncateToInt(std::nan("")), 0);
}

TEST(Progress, IsWrittenWhenACallEndsUnlessSwitchedOff) {
    velmar::test::CapturedOutput output;
    progress("%d|%f|%s $f\n", {-3, 0.25, std::string_view("text")});
    progress("%f %f\n", {-1e36, std::numeric_limits<double>::infinity()});
    progress("plain\n");
    setProgressEnabled(false);
    progress("silent\n");
    setProgressEnabled(true);
    flushProgress();
    EXPECT_EQ(output.text(),
              "-3|0.250000|text $f\n-1000000000000000042420637374017961984.000000 inf\nplain\n");

    velmar::test::CapturedOutput longOutput;
    const std::string line(1000, 'x');
    for (int k = 0; k < 100; ++k) progress("%s", {std::string_view(line)});
    flushProgress();
    EXPECT_EQ(longOutput.text(), std::string(100000, 'x'));
}

}  // namespace
