#include "analysis/valueAnalysis.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>

#include "analysis/selectedStations.h"
#include "analysis/stationValues.h"
#include "frame/file.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::analysis {

using frame::BlockWriter;
using frame::Failure;
using frame::FileText;
using frame::Outcome;
using frame::progress;
using frame::ResultBlock;
using frame::TextScanner;
namespace messages = frame::messages;

namespace {

constexpr float undefinedPoint = -1.0e20F;

/// The stations of a file, those without a value left out.
struct KeptStations {
    Stations stations;
    std::vector<float> numbers;
    std::vector<float> heights;
    Extent extent;  ///< of all stations, also of those without a value

    void keep(const StationValue& station) {
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
    // A station is read over one without a value before it, so that what does not convert is still that one's.
    StationValue station{};
    for (int k = 0; k < promised; ++k) {
        const int converted = scanStationValue(in, station);
        // Also the position of a record that is cut off behind it counts for the extent.
        if (converted >= 2) kept.extent.addLongitude(station.longitude);
        if (converted >= 3) kept.extent.addLatitude(station.latitude);
        if (converted < StationValue::fieldCount) {
            // In a list that is cut off, stations without a value deliberately keep their places: they follow
            // the others, the first as what was read last, the rest as zeros, and are analysed like them.
            const auto complete = static_cast<std::size_t>(k);
            if (kept.count() < complete) kept.keep(station);
            kept.resize(complete);
            break;
        }
        if (isMissing(station.value)) continue;
        kept.keep(station);
        station = {};
    }
    return kept;
}

/// The analysed grid, or null where it stays undefined.
ResultBlock run(Method method, const AnalysisArea& area, const StationView& stations, float maskRadius) {
    switch (method) {
        case Method::cressman:
            progress(messages::griddingValues, {area.bounds.startLongitude, area.bounds.endLongitude,
                                                stations.count(), area.size.nx, area.size.ny});
            return runCressman(area, stations, maskRadius);
        case Method::barnes:
            progress(messages::firstGuess);
            // Half the radius that surface reports get, deliberately.
            return runBarnes(barnesParameters.radius / 2.0F, area, stations, maskRadius);
        default:
            return nullptr;
    }
}

/// The block of levels, stations and grid. It is asked for before the analysis is made.
ResultBlock analyseAndPack(Method method, const std::vector<float>& levels, const KeptStations& kept,
                           const AnalysisArea& area, float maskRadius) {
    const std::size_t points = area.pointCount();
    const std::size_t stationCount = kept.count();
    const std::size_t total = points + 5 * stationCount + levels.size() + 11;
    ResultBlock block = frame::allocateBlock(total);
    BlockWriter out(block);
    out.appendCount(total);
    out.appendCount(stationCount);
    out.appendCount(area.size.nx);
    out.appendCount(area.size.ny);
    const Bounds& b = area.bounds;
    out.append(std::array{b.startLongitude, b.endLongitude, b.startLatitude, b.endLatitude,
                          area.longitudeStep, area.latitudeStep});
    out.appendCount(levels.size());
    out.append(levels);
    const Stations& s = kept.stations;
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

}  // namespace

Outcome<ResultBlock> analyseStationValues(const char* path, Method method, const AreaRequest& request,
                                          float maskRadius) {
    const std::optional<FileText> file = frame::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenWindFile, stderr);
        return Failure{-1};
    }
    progress(messages::openedFile, {std::string_view(path)});
    TextScanner in(file->view());
    Outcome<StationValuesHeader> header = readStationValuesHeader(in);
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
    const AnalysisArea area =
        hasGrid ? areaOf(request, kept.extent)
                : AnalysisArea{request.bounds, request.longitudeStep, request.latitudeStep, {0, 0}};
    return analyseAndPack(method, header->contourLevels, kept, area, maskRadius);
}

}  // namespace velmar::analysis
