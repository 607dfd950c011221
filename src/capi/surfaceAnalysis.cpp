#include <optional>
#include <vector>

#include "analysis/methods.h"
#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/stationSelection.h"
#include "files/gridWriter.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Outcome;

/// Codes 2, 3 and 4 deliberately share a field.
std::optional<float> analysedValue(const files::SurfaceReport& report, int element) {
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
/// deliberately fall out of step after a report without a value.
analysis::Stations stationsInFileOrder(const std::vector<files::SurfaceReport>& reports,
                                       const analysis::StationView& used) {
    analysis::Stations stations;
    for (std::size_t k = 0; k < used.count(); ++k)
        stations.add(reports[k].longitude(), reports[k].latitude(), used.values[k]);
    return stations;
}

ResultBlock run(analysis::Method method, const analysis::AnalysisArea& area, int promised,
                const analysis::StationView& stations, float maskRadius) {
    switch (method) {
        case analysis::Method::cressman:
            base::progress(base::messages::griddingReports, {area.bounds.west, area.bounds.east, promised});
            return analysis::runCressman(area, stations, maskRadius);
        case analysis::Method::barnes:
            return analysis::runBarnes(barnesForHosts(analysis::barnesParameters), area, stations,
                                       maskRadius);
        default:
            return nullptr;
    }
}

Outcome<ResultBlock> analyseSurfaceFile(const char* path, analysis::Method method, int element,
                                        const analysis::AreaRequest& request, float maskRadius) {
    Outcome<SurfaceFile> file = readSurfaceFile(path);
    if (!file) return file.failure();
    const SelectedStations selected = selectStations(file->reports, element, analysedValue);
    const analysis::Stations stations = stationsInFileOrder(file->reports, selected.used());
    const analysis::AnalysisArea area = analysis::areaOf(request, selected.extent);
    ResultBlock grid = run(method, area, file->promised, stations.view(), maskRadius);
    if (grid)
        files::writeDiagnosticGrid("OAtestC.000", path,
                                   {{grid.get(), area.size.nx, area.size.ny}, area.lattice()},
                                   {5.0F, selected.smallest, selected.largest});
    return grid;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* OAReadVelmar1(const char* path, int method, int element, int autoBounds, float startLon, float endLon,
                     float startLat, float endLat, float latStep, float lonStep, float maskRadius) noexcept {
    return guardedReader(-4, [&] {
        const auto request = areaRequest(autoBounds, startLon, endLon, startLat, endLat, latStep, lonStep);
        return analyseSurfaceFile(path, analysis::Method{method}, element, request, maskRadius);
    });
}
