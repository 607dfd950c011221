#include "stationFile.h"

#include <fmt/format.h>

#include <cmath>

#include "analysis/selectedStations.h"
#include "analysis/stationValues.h"
#include "analysis/surfaceReports.h"
#include "frame/scanner.h"
#include "problem.h"

namespace velmar::tool {
namespace {

[[noreturn]] void refuseHeader(const char* expected) {
    throw Problem(fmt::format("its header cannot be read: {}", expected));
}

bool isOnGlobe(float longitude, float latitude) {
    constexpr float mostDegrees = 360;
    return std::fabs(longitude) <= mostDegrees && std::fabs(latitude) <= 90;
}

StationFile emptyFile(const FileHead& head) {
    StationFile file{};
    file.title = head.title;
    file.titleBytes = head.titleBytes;
    return file;
}

void setTime(frame::FieldHeader& field, int year, int month, int day, int hour) {
    field.year = year;
    field.month = month;
    field.day = day;
    field.hour = hour;
}

/// Some reports carry two more values, and say so in their last two fields.
bool skipExtraValues(frame::TextScanner& in, const analysis::SurfaceReport& report) {
    if (report.field(23) != 1 || report.field(24) != 2) return true;
    float value = 0;
    return in.read(value) && in.read(value);
}

StationFile readSurfaceReports(const FileHead& head) {
    constexpr int firstElement = 6;  // what stands before says which station it is
    constexpr int temperature = 20;
    frame::TextScanner in(head.file.view());
    analysis::SurfaceHeader header;
    if (scanSurfaceHeader(in, header) < analysis::SurfaceHeader::fieldCount)
        refuseHeader("year, month, day, hour and the number of stations are expected behind the title");
    StationFile file = emptyFile(head);
    setTime(file.field, header.year, header.month, header.day, header.hour);
    file.promised = header.reportCount;
    file.firstElement = firstElement;
    file.elementCount = static_cast<int>(analysis::SurfaceReport::fieldCount) - firstElement + 1;
    file.customaryElement = temperature;
    analysis::SurfaceReport report{};
    for (int k = 0; k < header.reportCount && readSurfaceReport(in, report) && skipExtraValues(in, report);
         ++k) {
        file.longitudes.push_back(report.longitude());
        file.latitudes.push_back(report.latitude());
        file.values.insert(file.values.end(), report.fields.begin() + firstElement - 1, report.fields.end());
    }
    return file;
}

/// Reads the values of a station behind its first one.
bool readFurtherValues(frame::TextScanner& in, int count, std::vector<float>& values) {
    for (int k = 0; k < count; ++k) {
        float value = 0;
        if (!in.read(value)) return false;
        values.push_back(value);
    }
    return true;
}

StationFile readStationValues(const FileHead& head) {
    frame::TextScanner in(head.file.view());
    auto header = analysis::readStationValuesHeader(in);
    if (!header)
        refuseHeader("a date, contour levels and the corners of a boundary are expected behind the title");
    StationFile file = emptyFile(head);
    setTime(file.field, header->year, header->month, header->day, header->hour);
    file.field.level = header->level;
    file.levels = header->contourLevels;
    file.boldValue = header->boldValue;
    file.firstElement = 1;
    file.customaryElement = 1;
    if (scan(in, file.elementCount, file.promised) < 2 || file.elementCount < 1)
        refuseHeader("the numbers of values and of stations are expected behind the boundary");
    analysis::StationValue station{};
    for (int k = 0; k < file.promised; ++k) {
        const std::size_t before = file.values.size();
        if (scanStationValue(in, station) < analysis::StationValue::fieldCount) break;
        file.values.push_back(station.value);
        if (!readFurtherValues(in, file.elementCount - 1, file.values)) {
            file.values.resize(before);
            break;
        }
        file.longitudes.push_back(station.longitude);
        file.latitudes.push_back(station.latitude);
    }
    return file;
}

}  // namespace

analysis::Stations StationFile::withValue(int element) const {
    analysis::Stations stations;
    for (std::size_t k = 0; k < stationCount(); ++k) {
        const float found = value(k, element);
        if (!analysis::isMissing(found) && std::isfinite(found) && isOnGlobe(longitudes[k], latitudes[k]))
            stations.add(longitudes[k], latitudes[k], found);
    }
    return stations;
}

StationFile readStationFile(const FileHead& head) {
    if (head.kind.type == surfaceReportsType) return readSurfaceReports(head);
    if (head.kind.type == stationValuesType) return readStationValues(head);
    throw Problem(
        fmt::format("it holds neither surface reports (type {}) nor station values (type {}): {} (type {})",
                    surfaceReportsType, stationValuesType, head.kind.name, head.kind.type));
}

}  // namespace velmar::tool
