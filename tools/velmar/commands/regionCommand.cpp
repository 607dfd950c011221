#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/arguments.h"
#include "cli/jobs.h"
#include "cli/output.h"
#include "commands/commands.h"
#include "common/text.h"
#include "files/regionFile.h"
#include "read/fileHead.h"
#include "read/lineMap.h"
#include "regions/regions.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

struct RegionOptions {
    std::string input;
    std::vector<GeoPoint> places;
    bool list = false;  ///< also without places
    bool json = false;
};

regions::RegionTable readTable(const std::string& path, Reporter& reporter) {
    const FileHead head = readFileHead(path);
    if (head.kind.type != regionFileType)
        throw Problem(fmt::format("it holds no regions: {} (type {})", head.kind.name, head.kind.type));
    base::TextScanner in(head.file.view());
    base::NamedOutlines outlines = files::readRegions(in).value_or(base::NamedOutlines{});
    if (outlines.runs.empty()) throw Problem("no region of it can be read");
    if (!outlines.runs.back().isWhole)
        reporter.tell(path, fmt::format("the file breaks off in region {}", outlines.runs.size()));
    return regions::RegionTable(std::move(outlines));
}

std::string nameIn(const regions::RegionTable& table, const regions::Region& region) {
    return gbkToUtf8(table.nameOf(region));
}

/// The name of the region that holds a place; a place on a map of 0 to 360 degrees may be west of Greenwich.
std::string nameAt(const regions::RegionTable& table, const GeoPoint& place) {
    for (const float circles : {0.0F, 360.0F, -360.0F})
        if (const regions::Region* region =
                regions::findRegion(table, {place.longitude + circles, place.latitude}))
            return nameIn(table, *region);
    return {};
}

std::string placesText(const regions::RegionTable& table, const std::vector<GeoPoint>& places, bool asJson) {
    Json json = Json::array();
    std::string text;
    for (const GeoPoint& place : places) {
        const std::string name = nameAt(table, place);
        json.push_back({{"longitude", writtenNumber(place.longitude)},
                        {"latitude", writtenNumber(place.latitude)},
                        {"region", name.empty() ? Json() : Json(name)}});
        text += fmt::format("{}\n", name.empty() ? "(no region)" : name);
    }
    return asJson ? json.dump(2) + "\n" : text;
}

std::string listText(const regions::RegionTable& table, bool asJson) {
    Json json = Json::array();
    std::string text;
    for (const regions::Region& region : table.runs) {
        const auto& [west, east, south, north] = region.bounds;
        const std::string name = nameIn(table, region);
        Json entry{{"region", name}, {"points", region.pointCount}};
        std::string bounds = "nowhere";
        if (west <= east && south <= north) {
            for (const float bound : {west, east, south, north})
                entry["bounds"].push_back(writtenNumber(bound));
            bounds = fmt::format("{} to {}, {} to {}", plainNumber(west), plainNumber(east),
                                 plainNumber(south), plainNumber(north));
        }
        json.push_back(entry);
        text += fmt::format("{}  {} points, {}\n", name, region.pointCount, bounds);
    }
    return asJson ? json.dump(2) + "\n" : text;
}

int runRegion(const RegionOptions& options) {
    return runJobs({{options.input, "-", {}, {}}}, 1, [&](const Job& job, Reporter& reporter) {
        const regions::RegionTable table = readTable(job.input, reporter);
        writeOutput("-", options.places.empty() ? listText(table, options.json)
                                                : placesText(table, options.places, options.json));
    });
}

}  // namespace

void addRegionCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<RegionOptions>();
    CLI::App* command = program.add_subcommand("region", "Say in which region of a file a place lies");
    command->add_option("FILE", options->input, "A region file (diamond 10)")->required();
    CLI::Option* at = command->add_option_function<std::vector<std::string>>(
        "--at",
        [options](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) options->places.push_back(parsePlace("--at", text));
        },
        "A place, as longitude,latitude in degrees; may be given more than once");
    at->allow_extra_args(false);
    command->add_flag("--list", options->list, "List the regions (also without --at)")->excludes(at);
    command->add_flag("--json", options->json, "Answer in JSON");
    command->callback([options, &exitCode] { exitCode = runRegion(*options); });
}

}  // namespace velmar::tool
