#include <gtest/gtest.h>

#include "base/progress.h"
#include "support/samples.h"

namespace velmar {
namespace {

/// The number in the table is that of rows in a strip.
TEST(ShadedSamples, StayAsTheyAre) {
    base::setProgressEnabled(false);
    test::expectResultsAsIn("shade/samples.txt", 20, [](const std::string& path, int stripRows) {
        const bool image = path.ends_with(".img");
        return image ? readByteShadData(path.c_str(), stripRows, 0, 0)
                     : readCntrShadData(path.c_str(), 0, stripRows);
    });
    base::setProgressEnabled(true);
}

}  // namespace
}  // namespace velmar
