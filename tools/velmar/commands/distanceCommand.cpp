#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <numbers>

#include "cli/arguments.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "sphere/greatCircle.h"
#include "write/geoJson.h"

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

GeoPoint parsePlaceOnEarth(const std::string& name, const std::string& text) {
    const GeoPoint place = parsePlace(name, text);
    if (std::fabs(place.latitude) > 90)
        throw CLI::ValidationError(name, fmt::format("\"{}\": latitudes lie between -90 and 90", text));
    return place;
}

int tellDistance(const DistanceOptions& options) {
    const GeoPoint from = parsePlaceOnEarth("FROM", options.from);
    const GeoPoint to = parsePlaceOnEarth("TO", options.to);
    const auto [bearing, angle, distance] =
        sphere::greatCircle({from.longitude, from.latitude}, {to.longitude, to.latitude});
    constexpr double degrees = 180 / std::numbers::pi;
    if (!std::isfinite(distance) || !std::isfinite(bearing))
        throw Problem("the way has no direction: the places lie opposite each other, or one is a pole");
    const Json json{
        {"kilometres", writtenNumber(distance)}, {"bearing", bearing * degrees}, {"angle", angle * degrees}};
    if (options.json)
        writeOutput("-", json.dump(2) + "\n");
    else
        writeOutput("-", fmt::format("{:.1f} km, bearing {:.1f}°, angle {:.3f}°\n", distance,
                                     bearing * degrees, angle * degrees));
    return success;
}

}  // namespace

void addDistanceCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<DistanceOptions>();
    CLI::App* command =
        program.add_subcommand("distance", "Tell how far one place is from another, and in which direction");
    command->add_option("FROM", options->from, "Longitude,latitude in degrees")->required();
    command->add_option("TO", options->to, "Longitude,latitude in degrees")->required();
    command->add_flag("--json", options->json, "Answer in JSON");
    command->footer(explanation);
    command->callback([options, &exitCode] { exitCode = tellDistance(*options); });
}

}  // namespace velmar::tool
