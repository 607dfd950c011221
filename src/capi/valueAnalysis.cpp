#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <string_view>

#include "analysis/methods.h"
#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/stationSelection.h"
#include "files/file.h"
#include "files/stationValues.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Failure;
using base::Outcome;
using base::progress;
using base::TextScanner;
namespace messages = base::messages;

constexpr float undefinedPoint = -1.0e20F;

/// The stations of a file, those without a value left out.
struct KeptStations {
    analysis::Stations stations;
    std::vector<float> numbers;
    std::vector<float> heights;
    base::LonLatBox extent;  ///< of all stations, also of those without a value

    void keep(const base::StationValue& station) {
        stations.add(station.longitude, station.latitude, station.value);
        numbers.push_back(static_cast<float>(station.number));
        heights.push_back(station.height);
    }
    std::size_t count() const { return numbers.size(); }
    void resize(std::size_t count) {
        for (auto* list : {&stations.longitudes, &stations.latitudes, &stations.values, &numbers, &heights})
            list->resize(count);
    }
};

/// Reads as many of the promised stations as there are.
KeptStations readStations(TextScanner& in, int promised) {
    KeptStations kept;
    // A station is read over the one before it if that has no value, so that items that do not convert keep its items.
    base::StationValue station{};
    for (int k = 0; k < promised; ++k) {
        const int converted = files::scanStationValue(in, station);
        // The position counts for the extent even when the record is cut off after it.
        if (converted >= 2) kept.extent.includeLongitude(station.longitude);
        if (converted >= 3) kept.extent.includeLatitude(station.latitude);
        if (converted < base::StationValue::fieldCount) {
            // In a list that is cut off, stations without a value deliberately keep their places: they follow
            // the others, the first as what was read last, the rest as zeros, and are analysed like them.
            const auto complete = static_cast<std::size_t>(k);
            if (kept.count() < complete) kept.keep(station);
            kept.resize(complete);
            break;
        }
        if (analysis::isMissing(station.value)) continue;
        kept.keep(station);
        station = {};
    }
    return kept;
}

/// The analysed grid, or null where it stays undefined.
ResultBlock run(analysis::Method method, const analysis::AnalysisArea& area,
                const analysis::StationView& stations, float maskRadius) {
    switch (method) {
        case analysis::Method::cressman:
            progress(messages::griddingValues,
                     {area.bounds.west, area.bounds.east, stations.count(), area.size.nx, area.size.ny});
            return analysis::runCressman(area, stations, maskRadius);
        case analysis::Method::barnes: {
            progress(messages::firstGuess);
            analysis::BarnesParameters parameters = barnesForHosts(analysis::barnesParameters);
            parameters.radius /= 2.0F;  // of what surface reports get, deliberately
            return analysis::runBarnes(parameters, area, stations, maskRadius);
        }
        default:
            return nullptr;
    }
}

/// The block of levels, stations and grid. It is asked for before the analysis is made.
ResultBlock analyseAndPack(analysis::Method method, const std::vector<float>& levels,
                           const KeptStations& kept, const analysis::AnalysisArea& area, float maskRadius) {
    const std::size_t points = area.pointCount();
    const std::size_t stationCount = kept.count();
    const std::size_t total = points + 5 * stationCount + levels.size() + 11;
    ResultBlock block = base::allocateFloats(total);
    BlockWriter out(block);
    out.appendCount(total);
    out.appendCount(stationCount);
    out.appendCount(area.size.nx);
    out.appendCount(area.size.ny);
    const base::LonLatBox& b = area.bounds;
    out.append(std::array{b.west, b.east, b.south, b.north, area.longitudeStep, area.latitudeStep});
    out.appendCount(levels.size());
    out.append(levels);
    const analysis::Stations& s = kept.stations;
    for (std::size_t k = 0; k < stationCount; ++k)
        out.append(
            std::array{kept.numbers[k], kept.heights[k], s.longitudes[k], s.latitudes[k], s.values[k]});
    const std::span<float> values = out.claim(points);
    if (const ResultBlock grid = run(method, area, s.view(), maskRadius))
        std::copy_n(grid.get(), points, values.begin());
    else
        std::fill(values.begin(), values.end(), undefinedPoint);
    progress(messages::resultSize, {total});
    return block;
}

Outcome<ResultBlock> analyseStationValues(const char* path, analysis::Method method,
                                          const analysis::AreaRequest& request, float maskRadius) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenWindFile, stderr);
        return Failure{-1};
    }
    progress(messages::openedFile, {std::string_view(path)});
    TextScanner in(file->view());
    Outcome<files::StationValuesHeader> header = files::readStationValuesHeader(in);
    if (!header) {
        progress(messages::unreadablePart, {-header.failure().code - 1});
        return header.failure();
    }
    int valuesPerStation = 0;
    int promised = 0;
    const int converted = scan(in, valuesPerStation, promised);
    progress(messages::stationTotal, {promised});
    if (valuesPerStation != 1) return Failure{-8};
    if (converted != 2) return Failure{-9};

    const KeptStations kept = readStations(in, promised);
    const bool hasGrid = static_cast<int>(method) >= 0;
    const analysis::AnalysisArea area =
        hasGrid ? analysis::areaOf(request, kept.extent)
                : analysis::AnalysisArea{request.bounds, request.longitudeStep, request.latitudeStep, {0, 0}};
    return analyseAndPack(method, header->contourLevels, kept, area, maskRadius);
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* OAReadVelmar3(const char* path, int method, int autoBounds, float startLon, float endLon,
                     float startLat, float endLat, float latStep, float lonStep, float maskRadius) noexcept {
    return guardedReader(-9, [&] {
        const auto request = areaRequest(autoBounds, startLon, endLon, startLat, endLat, latStep, lonStep);
        return analyseStationValues(path, analysis::Method{method}, request, maskRadius);
    });
}
