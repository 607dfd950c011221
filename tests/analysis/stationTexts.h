#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/progress.h"
#include "support/files.h"
#include "support/ownFolder.h"
#include "support/plainLocale.h"
#include "support/said.h"

namespace velmar::test {

/// Progress texts are silenced, except where a test looks at them.
class StationFiles : public InOwnFolder {
protected:
    void SetUp() override {
        InOwnFolder::SetUp();
        base::setProgressEnabled(false);
    }
    void TearDown() override {
        base::setProgressEnabled(true);
        InOwnFolder::TearDown();
    }
};

/// A surface report: its position and the fields that are not 7000 plus their number.
struct Report {
    float longitude;
    float latitude;
    std::map<int, std::string> fields;
};

inline std::string surfaceText(const std::vector<Report>& reports, const std::string& count = "") {
    const PlainLocale plain;
    std::string text =
        "any 1 title\n2008 7 15 8 " + (count.empty() ? std::to_string(reports.size()) : count) + "\n";
    for (const Report& report : reports) {
        text += "54511 " + std::to_string(report.longitude) + ' ' + std::to_string(report.latitude);
        for (int number = 4; number <= 24; ++number) {
            const auto field = report.fields.find(number);
            text += ' ' + (field == report.fields.end() ? std::to_string(7000 + number) : field->second);
        }
        text += '\n';
    }
    return text;
}

/// Reports with these values of one field, at places that are all different.
inline std::vector<Report> reportsOf(int field, const std::vector<std::string>& values) {
    std::vector<Report> reports;
    for (const std::string& value : values) {
        const auto k = static_cast<float>(reports.size());
        reports.push_back(
            {100.5F + 1.5F * k, 31.25F + static_cast<float>(reports.size() % 3), {{field, value}}});
    }
    return reports;
}

/// What the analyses themselves make of stations, on a grid of 8 columns from 100.25 to 127.25 E, where no station
/// reaches all, and 3 rows from 31 to 33 N.
inline std::vector<float> analysedGrid(int method, const std::vector<float>& lon,
                                       const std::vector<float>& lat, const std::vector<float>& value,
                                       float maskRadius = 0, float barnesRadius = 20) {
    const std::vector<float> radii{25, 10, 5, 2, 1};
    const auto n = static_cast<int>(value.size());
    const Block grid(method == 0 ? cressman(5, radii.data(), 8, 3, 100.25F, 127.25F, 31, 33, n, lon.data(),
                                            lat.data(), value.data(), maskRadius)
                                 : barnes(0.25F, barnesRadius, 0.3F, 8, 3, 100, 127, 31, 33, n, lon.data(),
                                          lat.data(), value.data(), maskRadius));
    return {grid.get(), grid.get() + 24};
}

/// The values of a block that starts with its length.
inline std::vector<float> all(const Block& block) {
    return {block.get(), block.get() + static_cast<std::ptrdiff_t>(block[0])};
}

}  // namespace velmar::test
