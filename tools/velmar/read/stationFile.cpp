#include "read/stationFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "analysis/stations.h"
#include "base/scanner.h"
#include "common/text.h"
#include "files/reports.h"
#include "files/stationValues.h"

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
    file.type = head.kind.type;
    file.title = head.title;
    file.titleBytes = head.titleBytes;
    return file;
}

void setTime(files::FieldHeader& field, int year, int month, int day, int hour) {
    field.year = year;
    field.month = month;
    field.day = day;
    field.hour = hour;
}

/// A type of file whose records are rows of numbers. The fields in front of the first element say which station
/// it is.
struct ReportType {
    int type;
    files::ReportLayout layout;
    int files::FieldHeader::*
        fifthItem;  ///< what stands between the hour and the number of stations, if anything
    int firstElement;
    int customaryElement;
};

constexpr std::array reportTypes{
    ReportType{surfaceReportsType, files::surfaceReports, nullptr, 6, 20},
    ReportType{upperAirReportsType, files::upperAirReports, &files::FieldHeader::level, 6, 7},
    ReportType{forecastReportsType, files::forecastReports, &files::FieldHeader::forecastHour, 5, 9},
    ReportType{stationListType, files::shortReports, nullptr, 4, 4},
};

const ReportType* reportTypeOf(const FileHead& head) {
    const auto* const found = std::ranges::find(reportTypes, head.kind.type, &ReportType::type);
    return found == reportTypes.end() ? nullptr : found;
}

/// Reads what stands in front of the reports.
void readReportsHeader(base::TextScanner& in, const ReportType& type, StationFile& file) {
    std::string_view word;
    int number = 0;
    std::array<int, 6> items{};
    const auto header = std::span(items).first(type.layout.headerIntegers);
    if (scan(in, word, number, word) < 3 ||
        !std::ranges::all_of(header, [&](int& item) { return in.read(item); }))
        refuseHeader(type.layout.headerIntegers == 1
                         ? "the number of stations is expected behind the title"
                         : "year, month, day, hour and the number of stations are expected behind the title");
    file.promised = header.back();
    if (header.size() > 1) setTime(file.field, items[0], items[1], items[2], items[3]);
    if (type.fifthItem) file.field.*type.fifthItem = items[4];
}

StationFile readReports(const FileHead& head, const ReportType& type) {
    constexpr std::size_t longitude = 1;
    constexpr std::size_t latitude = 2;
    base::TextScanner in(head.file.view());
    StationFile file = emptyFile(head);
    readReportsHeader(in, type, file);
    std::vector<float> report(type.layout.fields + type.layout.extraFields);
    const auto elements = std::span(report).subspan(static_cast<std::size_t>(type.firstElement - 1));
    file.firstElement = type.firstElement;
    file.elementCount = static_cast<int>(elements.size());
    file.customaryElement = type.customaryElement;
    for (int k = 0; k < file.promised && files::readReport(in, type.layout, report); ++k) {
        file.longitudes.push_back(report[longitude]);
        file.latitudes.push_back(report[latitude]);
        file.values.insert(file.values.end(), elements.begin(), elements.end());
    }
    return file;
}

/// Reads the values of a station behind its first one.
bool readFurtherValues(base::TextScanner& in, int count, std::vector<float>& values) {
    for (int k = 0; k < count; ++k) {
        float value = 0;
        if (!in.read(value)) return false;
        values.push_back(value);
    }
    return true;
}

StationFile readStationValues(const FileHead& head) {
    base::TextScanner in(head.file.view());
    auto header = files::readStationValuesHeader(in);
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
    base::StationValue station{};
    for (int k = 0; k < file.promised; ++k) {
        const std::size_t before = file.values.size();
        if (files::scanStationValue(in, station) < base::StationValue::fieldCount) break;
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

bool StationFile::hasValue(std::size_t station, int element) const {
    const float found = value(station, element);
    return !analysis::isMissing(found) && std::isfinite(found) &&
           isOnGlobe(longitudes[station], latitudes[station]);
}

analysis::Stations StationFile::withValue(int element) const {
    analysis::Stations stations;
    for (std::size_t k = 0; k < stationCount(); ++k)
        if (hasValue(k, element)) stations.add(longitudes[k], latitudes[k], value(k, element));
    return stations;
}

StationFile readStationFile(const FileHead& head) {
    if (head.kind.type == stationValuesType) return readStationValues(head);
    if (const ReportType* const type = reportTypeOf(head)) return readReports(head, *type);
    throw Problem(fmt::format("it is no file of stations: {} (type {})", head.kind.name, head.kind.type));
}

std::string lackOfStations(const StationFile& file) {
    if (file.promised <= 0 || file.stationCount() >= static_cast<std::size_t>(file.promised)) return {};
    return fmt::format("its header promises {} stations, but only {} can be read", file.promised,
                       file.stationCount());
}

int chooseElement(const StationFile& file, std::optional<int> asked) {
    const int element = asked.value_or(file.customaryElement);
    if (element < file.firstElement || element > file.lastElement())
        throw Problem(fmt::format("its stations have no element {}, only {} to {}", element,
                                  file.firstElement, file.lastElement()));
    return element;
}

}  // namespace velmar::tool
