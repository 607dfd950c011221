#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "cli/arguments.h"
#include "cli/command.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "sphere/greatCircle.h"
#include "write/geoJson.h"
#include "write/jsonText.h"

namespace velmar::tool {
namespace {

constexpr const char* explanation =
    "On a sphere of 6371.11 km. The bearing is that at the first place, clockwise from north. Distances of\n"
    "1000 km are right to a few metres, those of 100 km to 40 m, and those of 10 km to 400 m.";

struct DistanceOptions {
    std::string from;
    std::string to;
    bool json = false;
};

base::LonLat parsePlaceOnEarth(const std::string& name, const std::string& text) {
    const base::LonLat place = parsePlace(name, text);
    if (std::fabs(place.latitude) > 90)
        throw UsageError(name, fmt::format("\"{}\": latitudes lie between -90 and 90", text));
    return place;
}

int tellDistance(const DistanceOptions& options) {
    const base::LonLat from = parsePlaceOnEarth("FROM", options.from);
    const base::LonLat to = parsePlaceOnEarth("TO", options.to);
    const auto [bearing, angle, distance] = sphere::greatCircle(from, to);
    constexpr double degrees = 180 / std::numbers::pi;
    if (!std::isfinite(distance) || !std::isfinite(bearing))
        throw Problem("the way has no direction: the places lie opposite each other, or one is a pole");
    const Json json{
        {"kilometres", writtenNumber(distance)}, {"bearing", bearing * degrees}, {"angle", angle * degrees}};
    if (options.json)
        writeOutput("-", jsonText(json));
    else
        writeOutput("-", fmt::format("{:.1f} km, bearing {:.1f}°, angle {:.3f}°\n", distance,
                                     bearing * degrees, angle * degrees));
    return success;
}

}  // namespace

void addDistanceCommand(Program& program) {
    const auto options = std::make_shared<DistanceOptions>();
    Command command =
        program.addCommand("distance", "Tell how far one place is from another, and in which direction");
    command.addOption("FROM", options->from, "Longitude,latitude in degrees").required();
    command.addOption("TO", options->to, "Longitude,latitude in degrees").required();
    command.addFlag("--json", options->json, "Answer in JSON");
    command.explain(explanation);
    command.onRun([options] { return tellDistance(*options); });
}

}  // namespace velmar::tool
