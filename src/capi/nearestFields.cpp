#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "analysis/nearestStation.h"
#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/stationSelection.h"
#include "files/gridWriter.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Outcome;

std::optional<float> flaggedValue(const files::SurfaceReport& report, int element) {
    if (element == 1) return report.field(17);
    if (element != 0) return std::nullopt;
    const bool found = 10.0F <= report.field(19) && report.field(19) <= 12.0F;
    if (found) base::progress(base::messages::stationFound);
    return found ? 1.0F : -1.0F;
}

/// In what the two kinds of fields differ.
struct FieldKind {
    analysis::Reach reach;
    float (*valueOf)(float nearest);
    const char* diagnosticFile;
    const char* beingRead;  ///< the file of the stations; null when they come from the host
};

ResultBlock makeField(const FieldKind& kind, const SelectedStations& selected,
                      const analysis::AreaRequest& request, float radius) {
    const analysis::StationView stations = selected.used();
    const analysis::AnalysisArea area = analysis::areaOf(request, selected.extent);
    const std::size_t n = area.pointCount();
    ResultBlock block = base::allocateFloats(n + 9);
    BlockWriter out(block);
    out.appendCount(n + 9);
    const base::LonLatBox& b = area.bounds;
    out.append(std::array{b.west, b.east, b.south, b.north, area.longitudeStep, area.latitudeStep});
    out.appendCount(area.size.nx);
    out.appendCount(area.size.ny);
    const std::span<float> values = out.claim(n);
    const auto valueAt = [&](int k) {
        return k < 0 ? -1.0F : kind.valueOf(stations.values[static_cast<std::size_t>(k)]);
    };
    analysis::findNearestStations(area.place(), area.size, stations, radius, kind.reach,
                                  [&](std::size_t firstPoint, std::span<const int> nearest) {
                                      std::ranges::transform(nearest, &values[firstPoint], valueAt);
                                  });
    const grid::GridView field{values.data(), area.size.nx, area.size.ny};
    files::writeDiagnosticGrid(kind.diagnosticFile, kind.beingRead, {field, area.lattice()},
                               {5.0F, 0.0F, 5.0F});
    return block;
}

Outcome<ResultBlock> flagSurfaceFile(const char* path, int element, const analysis::AreaRequest& request,
                                     float radius) {
    Outcome<SurfaceFile> file = readSurfaceFile(path);
    if (!file) return file.failure();
    const SelectedStations selected = selectStations(file->reports, element, flaggedValue);
    const auto flag = [](float nearest) { return nearest > 0.0F ? 1.0F : -1.0F; };
    return makeField({analysis::Reach::distance, flag, "OAtestttq.000", path}, selected, request, radius);
}

ResultBlock spreadNearest(const analysis::StationView& stations, const analysis::AreaRequest& request,
                          float radius) {
    SelectedStations selected;
    for (std::size_t k = 0; k < stations.count(); ++k) {
        if (analysis::isMissing(stations.values[k])) continue;
        selected.add(stations.longitudes[k], stations.latitudes[k], stations.values[k]);
    }
    selected.tell();
    const auto valueOrNone = [](float nearest) { return nearest < 0.0F ? -1.0F : nearest; };
    return makeField({analysis::Reach::distanceAndBox, valueOrNone, "OATQQ.000", nullptr}, selected, request,
                     radius);
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* ReadVelmar1Tqq(const char* path, int /*unused*/, int element, int autoBounds, float startLon,
                      float endLon, float startLat, float endLat, float latStep, float lonStep,
                      float radius) noexcept {
    return guardedReader(-4, [&] {
        const auto request = areaRequest(autoBounds, startLon, endLon, startLat, endLat, latStep, lonStep);
        return flagSurfaceFile(path, element, request, radius);
    });
}

float* TqqOA(const float* lon, const float* lat, const float* value, int n, int autoBounds, float startLon,
             float endLon, float startLat, float endLat, float latStep, float lonStep,
             float radius) noexcept {
    const std::optional<analysis::StationView> stations = stationsOf(n, lon, lat, value);
    if (!stations) return nullptr;
    return guarded<float*>(nullptr, [&] {
        const auto request = areaRequest(autoBounds, startLon, endLon, startLat, endLat, latStep, lonStep);
        return spreadNearest(*stations, request, radius).release();
    });
}
