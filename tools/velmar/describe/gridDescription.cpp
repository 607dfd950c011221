#include <fmt/format.h>

#include <cmath>

#include "common/text.h"
#include "describe/description.h"
#include "read/byteImageFile.h"
#include "read/windFile.h"

namespace velmar::tool {
namespace {

Json axisJson(float start, float end, float step, int count) {
    return {{"start", writtenNumber(start)},
            {"end", writtenNumber(end)},
            {"step", writtenNumber(step)},
            {"count", count}};
}

std::string axisText(float start, float end, float step, int count) {
    return fmt::format("{} from {} to {} by {}", count, plainNumber(start), plainNumber(end),
                       plainNumber(step));
}

void addTimes(const files::FieldHeader& field, FileDescription& description) {
    const auto valid = validTimeText(field);
    Json& json = description.json;
    json["start"] = startTimeText(field);
    json["forecastHour"] = field.forecastHour;
    if (valid) json["valid"] = *valid;
    json["level"] = field.level;
    description.addLine("start", startTimeText(field));
    description.addLine("forecast",
                        fmt::format("{} h{}", field.forecastHour, valid ? ", valid " + *valid : ""));
    description.addLine("level", field.level == 0 ? "0" : levelText(field.level));
}

/// Adds where a grid or picture lies and how many values it has.
void addPlace(const grid::GridView& grid, const grid::Lattice& lattice, std::size_t missing,
              FileDescription& description) {
    const auto& [west, east, across, south, north, up] = lattice;
    Json& json = description.json;
    json["longitudes"] = axisJson(west, east, across, grid.nx);
    json["latitudes"] = axisJson(south, north, up, grid.ny);
    json["values"] = grid.size();
    json["missing"] = missing;
    const double share = 100.0 * static_cast<double>(missing) / static_cast<double>(grid.size());
    const std::string percent = missing > 0 ? fmt::format(" ({:.1f}%)", share) : "";
    description.addLine("longitudes", axisText(west, east, across, grid.nx));
    description.addLine("latitudes", axisText(south, north, up, grid.ny));
    description.addLine("values", fmt::format("{}, {} of them missing{}", grid.size(), missing, percent));
}

void addExtreme(const char* name, const PlacedValue& extreme, FileDescription& description) {
    description.json[name] = {{"value", writtenNumber(extreme.value)},
                              {"longitude", extreme.longitude},
                              {"latitude", extreme.latitude}};
    description.addLine(name, placedText(extreme));
}

/// Adds where a grid or picture lies and what it holds.
void addContent(const grid::GridView& grid, const grid::Lattice& lattice, FileDescription& description) {
    const PlacedExtremes extremes = findExtremes(grid, lattice);
    addPlace(grid, lattice, extremes.missing, description);
    if (extremes.present == 0) return;
    addExtreme("smallest", extremes.smallest, description);
    addExtreme("largest", extremes.largest, description);
}

/// The winds of a field. The strongest is the first of its speed, row after row from the south.
struct WindSummary {
    std::size_t present = 0;
    std::size_t missing = 0;  ///< points that lack a component
    double meanSpeed = 0;
    PlacedValue strongest{};
    /// From which the strongest blows: 1 to 360 degrees clockwise from north, 0 for a calm.
    int direction = 0;
};

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

WindSummary summarise(const WindGrid& file) {
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

}  // namespace

void describeGrid(const FileHead& head, FileDescription& description) {
    const GridFile file = readGridFile(head);
    const files::GridHeader& header = file.header;
    addTimes(header.field, description);
    addContent(file.values, header.field.lattice, description);
    description.json["contours"] = {{"interval", writtenNumber(header.interval)},
                                    {"start", writtenNumber(header.startValue)},
                                    {"end", writtenNumber(header.endValue)},
                                    {"smoothing", writtenNumber(header.smoothing)},
                                    {"bold", writtenNumber(header.boldValue)}};
    description.addLine("contours",
                        fmt::format("{} to {} by {}, bold {}, smoothing {}", plainNumber(header.startValue),
                                    plainNumber(header.endValue), plainNumber(header.interval),
                                    plainNumber(header.boldValue), plainNumber(header.smoothing)));
}

void describeByteImage(const FileHead& head, FileDescription& description) {
    const ByteImageFile image = readByteImageFile(head);
    if (!image.time.empty()) {
        description.json["time"] = image.time;
        description.addLine("time", image.time);
    }
    addContent(image.grid.view(), image.lattice, description);
}

void describeWind(const FileHead& head, FileDescription& description) {
    const WindGrid file = readWindFile(head);
    const WindSummary summary = summarise(file);
    addTimes(file.header, description);
    addPlace(file.u, file.header.lattice, summary.missing, description);
    if (summary.present == 0) return;
    const PlacedValue& strongest = summary.strongest;
    description.json["meanSpeed"] = summary.meanSpeed;
    description.json["strongest"] = {{"speed", writtenNumber(strongest.value)},
                                     {"direction", summary.direction},
                                     {"longitude", strongest.longitude},
                                     {"latitude", strongest.latitude}};
    description.addLine("mean speed", fmt::format("{:.3g} m/s", summary.meanSpeed));
    description.addLine("strongest",
                        fmt::format("{:.3g} m/s from {}° at {} {}", strongest.value, summary.direction,
                                    latitudeText(strongest.latitude), longitudeText(strongest.longitude)));
}

}  // namespace velmar::tool
