#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <random>

#include "rain/rainTable.h"
#include "rain/rainTimes.h"
#include "support/files.h"
#include "support/ownFolder.h"

namespace {

using namespace velmar::test;
using velmar::rain::dateKey;
using velmar::rain::RainTable;
using velmar::rain::stepDateKey;

TEST(DateKeys, StepThroughMonthsWithALongFebruary) {
    EXPECT_EQ(stepDateKey(6, 2008071508), 2008071514);
    EXPECT_EQ(stepDateKey(6, 2009022820), 2009022902);
    EXPECT_EQ(stepDateKey(24, 2009022908), 2009030108);
    EXPECT_EQ(stepDateKey(6, 2009123120), 2010010102);
    EXPECT_EQ(stepDateKey(12, 2009043014), 2009050102);
    EXPECT_EQ(stepDateKey(48, 2009043014), 2009050138);  // one day only is carried
    // Whatever the date, time goes on.
    for (const auto key : {dateKey(2000, 0, 0, 0), dateKey(2000, 99, 99, 99), dateKey(-5, -7, -60, -70)})
        EXPECT_GT(stepDateKey(2147483647, key), key);
}

/// Every station of the table looks at every station of the file.
class PlainTable {
public:
    void add(std::vector<velmar::base::StationValue> file) {
        const bool isFirst = stations.empty();
        if (!isFirst) {
            for (auto& total : stations) {
                for (auto& station : file) {
                    if (station.number != total.number) continue;
                    if (static_cast<double>(station.value) > 0.011 && station.value != 9999.0F)
                        total.value += station.value;
                    station.number = 0;
                }
            }
        }
        for (auto& station : file) {
            if (!isFirst && station.number == 0) continue;
            stations.push_back(station);
            if (station.value == 9999.0F) stations.back().value = 0;
        }
    }

    std::vector<velmar::base::StationValue> stations;
};

TEST(RainTables, AreThoseOfThePlainMerge) {
    std::mt19937 random(73);
    for (int round = 0; round < 200; ++round) {
        RainTable table;
        PlainTable plain;
        const auto numbers = 2 + random() % 30;
        for (auto files = random() % 5; files > 0; --files) {
            std::vector<velmar::base::StationValue> file;
            for (auto k = random() % 40; k > 0; --k) {
                const float values[] = {0, 0.011F, 0.012F, 9999, 0.1F * static_cast<float>(random() % 100)};
                file.push_back({static_cast<int>(random() % numbers), static_cast<float>(files), 1, 2,
                                values[random() % 5]});
            }
            table.add(file);
            plain.add(file);
        }
        ASSERT_EQ(table.stations().size(), plain.stations.size());
        for (std::size_t k = 0; k < plain.stations.size(); ++k) {
            ASSERT_EQ(table.stations()[k].number, plain.stations[k].number);
            ASSERT_EQ(table.stations()[k].longitude, plain.stations[k].longitude);
            ASSERT_EQ(table.stations()[k].value, plain.stations[k].value) << round << ' ' << k;
        }
    }
}

/// A folder with files of rain.
class RainFiles : public InOwnFolder {
protected:
    static void write(const std::string& name, const std::string& stations, int count,
                      const std::string& head = "diamond 3 rain 8 7 15 8 0 2 1.0 2.0 0 0 1 5.0 6.0 1 ") {
        std::ofstream(name) << head << std::to_string(count) << '\n' << stations;
    }

    static Block add(int startHour, int endHour, int step, const char* directory = ".") {
        return Block(DiscreteAdd(8, 7, 15, startHour, 2008, 7, 15, endHour, directory, step));
    }

    static std::vector<float> totals(const Block& block) {
        std::vector<float> values;
        for (std::size_t k = 5; k < static_cast<std::size_t>(block[0]); k += 5) values.push_back(block[k]);
        return values;
    }
};

TEST_F(RainFiles, AreReadFromTheStepAfterTheStartToTheFirstNotBeforeTheEnd) {
    write("08071508.000", "broken", 1);
    write("08071514.000", "7 100.5 30 12 5.0  9 101 31 13 9999", 2);
    write("08071520.000", "9 1 1 1 0.01  7 1 1 1 0.25  8 102 32 14 0.01", 3);
    const Block block = add(8, 20, 6);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(elements(block, 16),
              (std::vector<float>{16, 7, 100.5F, 30, 12, 5.25F, 9, 101, 31, 13, 0, 8, 102, 32, 14, 0.01F}));
}

#if !defined(_WIN32)  // where backslashes separate
TEST_F(RainFiles, MayHaveBackslashesInTheirNames) {
    write(".\\08071514.000", "7 100.5 30 12 1.0", 1);
    write("08071514.000", "7 100.5 30 12 2.0", 1);
    EXPECT_EQ(totals(add(8, 14, 6)), (std::vector<float>{1}));
}
#endif

TEST_F(RainFiles, AreAddedBetweenHoursOfObservationOnly) {
    for (const char* name : {"08071508.000", "08071511.000", "08071505.000", "08071506.000"})
        write(name, "7 100.5 30 12 2.0", 1);
    EXPECT_EQ(add(5, 8, 3), nullptr);
    EXPECT_NE(add(2, 5, 3), nullptr);
    EXPECT_NE(Block(DiscreteAdd(8, 7, 14, 5, 8, 7, 15, 5, ".", 24)), nullptr);
    EXPECT_EQ(add(3, 8, 5), nullptr);
    EXPECT_NE(add(5, 6, 1), nullptr);
    EXPECT_EQ(add(8, 11, 3), nullptr);
    EXPECT_EQ(add(8, 8, 6), nullptr);
    EXPECT_EQ(add(8, 2, 6), nullptr);
    EXPECT_EQ(add(8, 14, 0), nullptr);
    EXPECT_EQ(add(8, 14, 3, nullptr), nullptr);
}

TEST_F(RainFiles, MustAllBeThereAndWhole) {
    write("08071514.000", "7 100.5 30 12 2.0", 1);
    testing::internal::CaptureStderr();
    EXPECT_EQ(add(8, 20, 6), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Cannot open wind data file.\n");
    for (const char* head : {"diamond 4 rain 8 7 15 8 0 0 0 0 0 1 ", "Diamond 3 rain 8 7 15 8 0 0 0 0 0 1 ",
                             "diamond 3 rain 8 7 15 8 0 x", "diamond 3 rain 8 7 15 8 0 2 1 x",
                             "diamond 3 rain 8 7 15 8 0 0 0 0 x", "diamond 3 rain 8 7 15 8 0 0 0 0 1 2 x",
                             "diamond 3 rain 8 7 15 8 0 0 0 0 0 2 "}) {
        write("08071514.000", "7 100.5 30 12 2.0", 1, head);
        EXPECT_EQ(add(8, 14, 6), nullptr) << head;
    }
    write("08071514.000", "", 0);
    EXPECT_EQ(add(8, 14, 6), nullptr);
    write("08071514.000", "7 100.5 30 12 2.0 8 x", 2147483647);
    EXPECT_EQ(totals(add(8, 14, 6)), (std::vector<float>{2}));
}

TEST(RainSamples, CrossTheEndOfFebruary) {
    const Block block(DiscreteAdd(2012, 2, 26, 20, 12, 3, 3, 20, sample("rain24h").c_str(), 24));
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block[0], 11);
    const Block hours(DiscreteAdd(95, 3, 18, 2, 1995, 3, 19, 2, sample("rain6h").c_str(), 6));
    EXPECT_EQ(hours, nullptr) << "95 means 2095";
    EXPECT_NE(Block(DiscreteAdd(1995, 3, 18, 2, 1995, 3, 19, 2, sample("rain6h").c_str(), 6)), nullptr);
}

}  // namespace
