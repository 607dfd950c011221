#include <gtest/gtest.h>

#include <functional>

#include "formats/state.h"
#include "support/files.h"
#include "support/ownFolder.h"

namespace {

using namespace velmar::test;

/// A reader that hands a block to nobody.
using Reading = std::function<void(const char*)>;

void release(float* block) { freecPointer(block); }

struct Case {
    std::string text;
    Reading read;
};

std::vector<Case> cases() {
    const std::string surface = "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 1 2 3 4 ";
    return {
        {"diamond 1 a 1 2 3 4 2 " + surface + surface, [](auto path) { release(ReadVelmarData1(path)); }},
        {"diamond 2 a 1 2 3 4 5 1 1 2 3 4 5 6 7 8 9 10", [](auto path) { release(ReadVelmarData2(path)); }},
        {"diamond 3 a 1 2 3 4 5 1 10 1 5 1 7 8 2 1 1 2 3 4 5 6",
         [](auto path) { release(ReadVelmarData3(path)); }},
        {"diamond 8 a 1 2 3 4 5 1 1 2 3 4 5 6 7 8 9 10 11 12",
         [](auto path) { release(ReadVelmarData8(path)); }},
        {"diamond 16 a 2 1 2 3 4 5 6 7 8", [](auto path) { release(ReadVelmarData16(path)); }},
        {"diamond 780 a 1 2 3 4 2 5 6 7 8", [](auto path) { release(ReadVelmarData780(path)); }},
        {"diamond 777 a 9 1.5 2.5 1 2 3 4 2 5 6 7 8", [](auto path) { release(ReadVelmarData777(path)); }},
        {"diamond 9 1 2 3 4 5 6 7 8 9 10 2 land 1 2 3 4 5 6 7",
         [](auto path) { deleteMap9Ptr(ReadMap9(path)); }},
        {"March 9 a 1 2 3 4 5 6 7 8 9 10 1 1 2 3 4 5 a b 6 7",
         [](auto path) { deleteMap9Ptr(ReadMap9(path)); }},
        {"diamond 5 a 1 2 3 4 1 44 5.5 6.5 7 12 1000 2 3 4 5 6 850 8 -9 10 11 12",
         [](auto path) { readVelmarData5(path); }},
        {"diamond 10 a 1 2 A 3 0 0 5 5 0 5 3 4 B 1 7 7",
         [](auto path) {
             velmar::formats::state().regions.reset();
             readRegionData(path);
             countyNameFromRegion(1, 2);
             release(getAllRegionBoundaryByName("A", nullptr));
         }},
    };
}

class HostileFiles : public InOwnFolder {};

/// What is read must be right by the other tests; here it is enough that each call returns, and what the sanitizers
/// see.
TEST_F(HostileFiles, AreReadToAnEnd) {
    const std::string odd[] = {"-1",
                               "0",
                               "2147483647",
                               "-2147483648",
                               "nan",
                               "1e39",
                               std::string(1 << 20, 'a'),
                               std::string("\xC3\xFF\0\x1A", 4)};
    for (const auto& [text, read] : cases()) {
        for (std::size_t end = 0; end <= text.size(); ++end) {
            read(TemporaryFile(text.substr(0, end)).path().c_str());
            if (end < text.size() && text[end] != ' ') continue;
            const std::size_t start = text.rfind(' ', end - 1) + 1;
            for (const std::string& word : odd)
                read(TemporaryFile(text.substr(0, start) + word + text.substr(end)).path().c_str());
        }
    }
}

}  // namespace
