#include "capi/stationSelection.h"

#include <algorithm>
#include <cstdio>

#include "base/messages.h"
#include "base/progress.h"
#include "files/file.h"
#include "files/firstLine.h"

namespace velmar::capi {

using analysis::StationView;
using base::Failure;
using base::Outcome;
using base::progress;
using base::TextScanner;
namespace messages = base::messages;

std::optional<analysis::StationView> stationsOf(int n, const float* lon, const float* lat,
                                                const float* value) {
    if (n < 1) return analysis::StationView{};
    if (lon == nullptr || lat == nullptr || value == nullptr) return std::nullopt;
    const auto count = static_cast<std::size_t>(n);
    return analysis::StationView{{lon, count}, {lat, count}, {value, count}};
}

void SelectedStations::add(float longitude, float latitude, float value) {
    stations.add(longitude, latitude, value);
    extent.includeLongitude(longitude);
    extent.includeLatitude(latitude);
    if (value > largest) largest = value;
    if (value < smallest) smallest = value;
}

analysis::StationView SelectedStations::used() const {
    const analysis::StationView all = stations.view();
    const std::size_t count = all.count() == 0 ? 0 : all.count() - 1;
    return {all.longitudes.first(count), all.latitudes.first(count), all.values.first(count)};
}

void SelectedStations::tell() const {
    const auto count = static_cast<long long>(stations.values.size());
    base::progress(base::messages::stationSummary, {count - 1, largest, smallest});
}

namespace {

std::vector<files::SurfaceReport> readReports(TextScanner& in, int promised) {
    std::vector<files::SurfaceReport> reports;
    reports.reserve(in.recordsAtMost(promised, files::analysedReports.fields));
    files::SurfaceReport report;
    for (int k = 0; k < promised && files::readReport(in, files::analysedReports, report.fields); ++k)
        reports.push_back(report);
    return reports;
}

}  // namespace

Outcome<SurfaceFile> readSurfaceFile(const char* path) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenReports, stderr);
        return Failure{-1};
    }
    progress(messages::readingReports, {std::string_view(path)});
    TextScanner in(file->view());
    const std::optional<files::FirstLine> line = files::readFirstLine(in);
    if (!line) return Failure{-2};
    if (line->type != 1) return Failure{-3};
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int promised = 0;
    if (scan(in, year, month, day, hour, promised) < 5) return Failure{-4};

    progress(messages::reportsPromised, {promised});
    SurfaceFile reports{promised, readReports(in, promised)};
    // For a file without any report, 1 is printed.
    progress(messages::reportsRead, {std::max<std::size_t>(reports.reports.size(), 1)});
    if (!reports.reports.empty()) reports.reports.pop_back();
    return reports;
}

SelectedStations selectStations(const std::vector<files::SurfaceReport>& reports, int element,
                                ElementChoice choose) {
    SelectedStations selected;
    for (std::size_t k = 0; k < reports.size(); ++k) {
        const files::SurfaceReport& report = reports[k];
        const std::optional<float> value = choose(report, element);
        if (!value || analysis::isMissing(*value)) continue;
        const std::size_t before = selected.stations.values.size();
        selected.add(report.longitude(), report.latitude(), *value);
        if (selected.smallest < -1000.0F)
            progress(messages::smallValue, {before, k, selected.smallest, report.field(20)});
    }
    selected.tell();
    return selected;
}

}  // namespace velmar::capi
