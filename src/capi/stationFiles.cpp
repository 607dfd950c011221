#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <vector>

#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "files/file.h"
#include "files/firstLine.h"
#include "files/reports.h"
#include "files/stationValues.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Failure;
using base::Outcome;
using base::TextScanner;
using files::ReportLayout;
using files::StationValuesHeader;
namespace messages = base::messages;

/// Appends the integers of the header; returns the last of them, or nullopt when the header is incomplete.
std::optional<int> readHeader(TextScanner& in, const ReportLayout& layout, base::GrowingFloats& out) {
    if (!files::readFirstLine(in)) return std::nullopt;
    int value = 0;
    for (std::size_t k = 0; k < layout.headerIntegers; ++k) {
        if (!in.read(value)) return std::nullopt;
        out.append(std::array{static_cast<float>(value)});
    }
    return value;
}

/// Reads a file of reports: the integers of its header, with the number of reports that could be read, then these.
/// Null when the file cannot be opened, when its header cannot be read, or when none of the promised reports can.
ResultBlock readReports(const char* path, const ReportLayout& layout) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) return nullptr;
    TextScanner in(file->view());
    base::GrowingFloats out;
    const std::optional<int> promised = readHeader(in, layout, out);
    if (!promised) return nullptr;
    if (*promised < 1) return out.finish();

    std::vector<float> report(layout.fields + layout.extraFields);
    int count = 0;
    for (; count < *promised && files::readReport(in, layout, report); ++count) out.append(report);
    if (count == 0) return nullptr;
    ResultBlock block = out.finish();
    block[layout.headerIntegers - 1] = static_cast<float>(count);
    return block;
}

float* reportsOf(const char* path, const ReportLayout& layout) noexcept {
    return guarded<float*>(nullptr, [&] { return readReports(path, layout).release(); });
}

/// Appends the stations that can be read, up to a number of elements; returns how many stations there are. A
/// station counts as soon as its first value is there. A further value that does not scan is 0, and the next is
/// scanned from where that scan stopped.
int readStations(TextScanner& in, int promised, int valuesPerStation, std::size_t mostElements,
                 base::GrowingFloats& out) {
    constexpr std::size_t placeFields = 4;
    const std::size_t elements = placeFields + static_cast<std::size_t>(std::max(valuesPerStation, 0));
    int count = 0;
    for (; count < promised && out.size() + elements <= mostElements; ++count) {
        std::array<float, placeFields + 1> head{};
        if (in.read(head) < head.size()) break;
        const std::span<float> station = out.claim(elements);
        std::copy_n(head.begin(), std::min(head.size(), station.size()), station.begin());
        for (std::size_t k = head.size(); k < station.size(); ++k) {
            station[k] = 0;
            in.read(station[k]);
        }
    }
    return count;
}

/// Reads a file of station values as described for ReadVelmarData3.
Outcome<ResultBlock> readStationValues(const char* path) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenWindFile, stderr);
        return Failure{-1};
    }
    TextScanner in(file->view());
    Outcome<StationValuesHeader> header = files::readStationValuesHeader(in);
    if (!header) {
        base::progress(messages::unreadablePart, {-header.failure().code - 1});
        return header.failure();
    }
    int valuesPerStation = 0;
    int promised = 0;
    const int converted = scan(in, valuesPerStation, promised);
    base::progress(messages::stationTotal, {promised});
    if (converted < 2) return Failure{-9};

    const StationValuesHeader& h = *header;
    base::GrowingFloats out;
    for (const int item : {h.year, h.month, h.day, h.hour, h.level, valuesPerStation, 0})
        out.append(std::array{static_cast<float>(item)});
    out.append(std::array{static_cast<float>(h.contourLevels.size())});
    out.append(h.contourLevels);
    const std::size_t boundaryPoints = h.boundary.size() / 2;
    // The block never has more elements than the file has bytes, whatever number of values is promised.
    const std::size_t mostElements = file->size - 1 - h.boundary.size();
    const int count = readStations(in, promised, valuesPerStation, mostElements, out);
    out.append(std::array{static_cast<float>(boundaryPoints)});
    out.append(h.boundary);
    ResultBlock block = out.finish();
    block[6] = static_cast<float>(count);
    return block;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* ReadVelmarData1(const char* path) noexcept { return reportsOf(path, files::surfaceReports); }
float* ReadVelmarData2(const char* path) noexcept { return reportsOf(path, files::upperAirReports); }
float* ReadVelmarData8(const char* path) noexcept { return reportsOf(path, files::forecastReports); }
float* ReadVelmarData16(const char* path) noexcept { return reportsOf(path, files::shortReports); }

float* ReadVelmarData3(const char* path) noexcept {
    return guardedReader(-9, [&] { return readStationValues(path); });
}
