#include "analysis/surfaceAnalysis.h"

#include "analysis/gridWriter.h"
#include "analysis/surfaceStations.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::analysis {

using frame::Outcome;
using frame::ResultBlock;

namespace {

/// Codes 2, 3 and 4 deliberately share a field.
std::optional<float> analysedValue(const SurfaceReport& report, int element) {
    switch (element) {
        case 0:
            return report.field(13) >= 9999.0F ? -1.0F : report.field(13);
        case 1:
            return report.field(20);
        case 2:
        case 3:
        case 4:
            return report.field(8);
        default:
            return std::nullopt;
    }
}

/// The values of the stations used, at the positions of as many reports from the start of the file. The two
/// deliberately fall out of step behind a report without a value.
Stations stationsInFileOrder(const std::vector<SurfaceReport>& reports, const StationView& used) {
    Stations stations;
    for (std::size_t k = 0; k < used.count(); ++k)
        stations.add(reports[k].longitude(), reports[k].latitude(), used.values[k]);
    return stations;
}

ResultBlock run(Method method, const AnalysisArea& area, int promised, const StationView& stations,
                float maskRadius) {
    switch (method) {
        case Method::cressman:
            frame::progress(frame::messages::griddingReports,
                            {area.bounds.startLongitude, area.bounds.endLongitude, promised});
            return runCressman(area, stations, maskRadius);
        case Method::barnes:
            return runBarnes(barnesParameters.radius, area, stations, maskRadius);
        default:
            return nullptr;
    }
}

}  // namespace

Outcome<ResultBlock> analyseSurfaceFile(const char* path, Method method, int element,
                                        const AreaRequest& request, float maskRadius) {
    Outcome<SurfaceFile> file = readSurfaceFile(path);
    if (!file) return file.failure();
    const SelectedStations selected = selectStations(file->reports, element, analysedValue);
    const Stations stations = stationsInFileOrder(file->reports, selected.used());
    const AnalysisArea area = areaOf(request, selected.extent);
    ResultBlock grid = run(method, area, file->promised, stations.view(), maskRadius);
    if (grid)
        writeDiagnosticGrid("OAtestC.000", path, area, grid.get(),
                            {5.0F, selected.smallest, selected.largest});
    return grid;
}

}  // namespace velmar::analysis
