#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <locale>
#include <sstream>
#include <string>

#include "support/files.h"

namespace velmar::test {

/// A digest of a block's bytes. Its first element is its length.
inline std::uint64_t digest(const Block& block) {
    std::uint64_t hash = 1469598103934665603U;
    for (std::size_t k = 0; k < static_cast<std::size_t>(block[0]); ++k) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &block[k], sizeof bits);
        hash = (hash ^ bits) * 1099511628211U;
    }
    return hash;
}

/// Real data give the same bits on every machine. A line of the table, a file in the folder `tests`, is a
/// sample, a number that says what is made of it, and of the result element 1 (a count), element 0 and a
/// digest of the whole.
template <class Make>
void expectResultsAsIn(const std::string& table, int rows, Make&& make) {
    std::ifstream lines(VELMAR_SAMPLES "/../tests/" + table);
    int found = 0;
    for (std::string expected; std::getline(lines, expected); ++found) {
        std::istringstream row(expected);
        row.imbue(std::locale::classic());
        std::string name;
        int how = 0;
        row >> name >> how;
        const Block block(make(sample(name), how));
        ASSERT_NE(block, nullptr) << expected;
        ASSERT_GT(block[0], 0) << expected;
        std::ostringstream result;
        result.imbue(std::locale::classic());
        result << name << ' ' << how << ' ' << block[1] << ' ' << block[0] << ' ' << std::hex
               << digest(block);
        EXPECT_EQ(result.str(), expected);
    }
    EXPECT_EQ(found, rows);
}

}  // namespace velmar::test
