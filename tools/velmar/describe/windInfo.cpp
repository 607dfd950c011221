#include "describe/windInfo.h"

#include <fmt/format.h>

#include <cmath>

#include "cli/text.h"
#include "describe/infoLines.h"

namespace velmar::tool {
namespace {

int directionFrom(float u, float v) {
    constexpr double degrees = 57.29577951308232;
    if (u == 0 && v == 0) return 0;
    const int direction = static_cast<int>(std::lround(degrees * std::atan2(-u, -v)));
    return direction > 0 ? direction : direction + 360;
}

PlacedValue placedAt(std::size_t point, float speed, const files::FieldHeader& header) {
    const auto nx = static_cast<std::size_t>(header.nx);
    const std::size_t row = point / nx;
    const grid::Lattice& lattice = header.lattice;
    return {speed, lattice.startLongitude + static_cast<double>(point % nx) * lattice.longitudeStep,
            lattice.startLatitude + static_cast<double>(row) * lattice.latitudeStep};
}

}  // namespace

WindSummary summarise(const WindFile& file) {
    WindSummary summary;
    double sum = 0;
    for (std::size_t k = 0; k < file.u.size(); ++k) {
        const float speed = windSpeed(file.u.values[k], file.v.values[k]);
        if (!isPresent(speed)) {
            ++summary.missing;
            continue;
        }
        sum += speed;
        if (summary.present++ > 0 && speed <= summary.strongest.value) continue;
        summary.strongest = placedAt(k, speed, file.header);
        summary.direction = directionFrom(file.u.values[k], file.v.values[k]);
    }
    if (summary.present > 0) summary.meanSpeed = sum / static_cast<double>(summary.present);
    return summary;
}

void addWindJson(const WindSummary& summary, Json& json) {
    if (summary.present == 0) return;
    json["meanSpeed"] = summary.meanSpeed;
    json["strongest"] = {{"speed", writtenNumber(summary.strongest.value)},
                         {"direction", summary.direction},
                         {"longitude", summary.strongest.longitude},
                         {"latitude", summary.strongest.latitude}};
}

void addWindText(const WindSummary& summary, std::string& text) {
    if (summary.present == 0) return;
    const PlacedValue& place = summary.strongest;
    addLine(text, "mean speed", fmt::format("{:.3g} m/s", summary.meanSpeed));
    addLine(text, "strongest",
            fmt::format("{:.3g} m/s from {}° at {} {}", place.value, summary.direction,
                        latitudeText(place.latitude), longitudeText(place.longitude)));
}

}  // namespace velmar::tool
