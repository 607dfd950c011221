#include "analysis/nearestFields.h"

#include <array>

#include "analysis/gridWriter.h"
#include "analysis/nearest.h"
#include "analysis/surfaceStations.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::analysis {

using frame::BlockWriter;
using frame::Outcome;
using frame::ResultBlock;

namespace {

std::optional<float> flaggedValue(const SurfaceReport& report, int element) {
    if (element == 1) return report.field(17);
    if (element != 0) return std::nullopt;
    const bool found = 10.0F <= report.field(19) && report.field(19) <= 12.0F;
    if (found) frame::progress(frame::messages::stationFound);
    return found ? 1.0F : -1.0F;
}

/// What makes one field differ from the other.
struct FieldKind {
    Reach reach;
    float (*valueOf)(float nearest);
    const char* diagnosticFile;
    const char* beingRead;  ///< the file of the stations; null when they come from none
};

ResultBlock makeField(const FieldKind& kind, const SelectedStations& selected, const AreaRequest& request,
                      float radius) {
    const StationView stations = selected.used();
    const AnalysisArea area = areaOf(request, selected.extent);
    const std::size_t n = area.pointCount();
    ResultBlock block = frame::allocateBlock(n + 9);
    BlockWriter out(block);
    out.appendCount(n + 9);
    const Bounds& b = area.bounds;
    out.append(std::array{b.startLongitude, b.endLongitude, b.startLatitude, b.endLatitude,
                          area.longitudeStep, area.latitudeStep});
    out.appendCount(area.size.nx);
    out.appendCount(area.size.ny);
    for (const int k : nearestStations(area.place(), area.size, stations, radius, kind.reach))
        out.append(k < 0 ? -1.0F : kind.valueOf(stations.values[static_cast<std::size_t>(k)]));
    writeDiagnosticGrid(kind.diagnosticFile, kind.beingRead, area, block.get() + 9, {5.0F, 0.0F, 5.0F});
    return block;
}

}  // namespace

Outcome<ResultBlock> flagSurfaceFile(const char* path, int element, const AreaRequest& request,
                                     float radius) {
    Outcome<SurfaceFile> file = readSurfaceFile(path);
    if (!file) return file.failure();
    const SelectedStations selected = selectStations(file->reports, element, flaggedValue);
    const auto flag = [](float nearest) { return nearest > 0.0F ? 1.0F : -1.0F; };
    return makeField({Reach::distance, flag, "OAtestttq.000", path}, selected, request, radius);
}

ResultBlock spreadNearest(const StationView& stations, const AreaRequest& request, float radius) {
    SelectedStations selected;
    for (std::size_t k = 0; k < stations.count(); ++k) {
        if (isMissing(stations.values[k])) continue;
        selected.add(stations.longitudes[k], stations.latitudes[k], stations.values[k]);
    }
    selected.tell();
    const auto valueOrNone = [](float nearest) { return nearest < 0.0F ? -1.0F : nearest; };
    return makeField({Reach::distanceAndBox, valueOrNone, "OATQQ.000", nullptr}, selected, request, radius);
}

}  // namespace velmar::analysis
