#include "analysis/surfaceStations.h"

#include <algorithm>
#include <cstdio>

#include "frame/file.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::analysis {

using frame::Failure;
using frame::FileText;
using frame::Outcome;
using frame::progress;
using frame::TextScanner;
namespace messages = frame::messages;

namespace {

std::vector<SurfaceReport> readReports(TextScanner& in, int promised) {
    std::vector<SurfaceReport> reports;
    reports.reserve(in.recordsAtMost(promised, SurfaceReport::fieldCount));
    SurfaceReport report;
    for (int k = 0; k < promised && readSurfaceReport(in, report); ++k) reports.push_back(report);
    return reports;
}

}  // namespace

Outcome<SurfaceFile> readSurfaceFile(const char* path) {
    const std::optional<FileText> file = frame::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenReports, stderr);
        return Failure{-1};
    }
    progress(messages::readingReports, {std::string_view(path)});
    TextScanner in(file->view());
    SurfaceHeader header;
    const int converted = scanSurfaceHeader(in, header);
    if (converted < SurfaceHeader::firstLineCount) return Failure{-2};
    if (header.type != 1) return Failure{-3};
    if (converted < SurfaceHeader::fieldCount) return Failure{-4};

    progress(messages::reportsPromised, {header.reportCount});
    SurfaceFile reports{header.reportCount, readReports(in, header.reportCount)};
    // A file without a single report is told to have one.
    progress(messages::reportsRead, {std::max<std::size_t>(reports.reports.size(), 1)});
    if (!reports.reports.empty()) reports.reports.pop_back();
    return reports;
}

SelectedStations selectStations(const std::vector<SurfaceReport>& reports, int element,
                                ElementChoice choose) {
    SelectedStations selected;
    for (std::size_t k = 0; k < reports.size(); ++k) {
        const SurfaceReport& report = reports[k];
        const std::optional<float> value = choose(report, element);
        if (!value || isMissing(*value)) continue;
        const std::size_t before = selected.stations.values.size();
        selected.add(report.longitude(), report.latitude(), *value);
        if (selected.smallest < -1000.0F)
            progress(messages::smallValue, {before, k, selected.smallest, report.field(20)});
    }
    selected.tell();
    return selected;
}

}  // namespace velmar::analysis
