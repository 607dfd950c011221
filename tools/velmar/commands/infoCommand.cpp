#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/jobs.h"
#include "cli/text.h"
#include "commands/commands.h"
#include "describe/infoLines.h"
#include "describe/mapInfo.h"
#include "describe/soundingInfo.h"
#include "describe/stationInfo.h"
#include "describe/windInfo.h"
#include "read/byteImageFile.h"
#include "read/gridFile.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

struct InfoOptions {
    std::vector<std::string> inputs;
    bool json = false;
    std::size_t workers = 0;
};

Json extremeJson(const PlacedValue& extreme) {
    return {{"value", writtenNumber(extreme.value)},
            {"longitude", extreme.longitude},
            {"latitude", extreme.latitude}};
}

Json axisJson(float start, float end, float step, int count) {
    return {{"start", writtenNumber(start)},
            {"end", writtenNumber(end)},
            {"step", writtenNumber(step)},
            {"count", count}};
}

void addTimesJson(const files::FieldHeader& field, Json& json) {
    json["start"] = startTimeText(field);
    json["forecastHour"] = field.forecastHour;
    if (const auto valid = validTimeText(field)) json["valid"] = *valid;
    json["level"] = field.level;
}

void addTimesText(const files::FieldHeader& field, std::string& text) {
    const auto valid = validTimeText(field);
    addLine(text, "start", startTimeText(field));
    addLine(text, "forecast", fmt::format("{} h{}", field.forecastHour, valid ? ", valid " + *valid : ""));
    addLine(text, "level", field.level == 0 ? "0" : levelText(field.level));
}

/// Where a grid or picture lies and how many values it has.
void addPlaceJson(const grid::GridView& grid, const grid::Lattice& lattice, std::size_t missing, Json& json) {
    json["longitudes"] =
        axisJson(lattice.startLongitude, lattice.endLongitude, lattice.longitudeStep, grid.nx);
    json["latitudes"] = axisJson(lattice.startLatitude, lattice.endLatitude, lattice.latitudeStep, grid.ny);
    json["values"] = grid.size();
    json["missing"] = missing;
}

/// Where a grid or picture lies and what it holds.
void addContentJson(const grid::GridView& grid, const grid::Lattice& lattice, Json& json) {
    const Extremes extremes = findExtremes(grid, lattice);
    addPlaceJson(grid, lattice, extremes.missing, json);
    if (extremes.present > 0) {
        json["smallest"] = extremeJson(extremes.smallest);
        json["largest"] = extremeJson(extremes.largest);
    }
}

std::string axisText(float start, float end, float step, int count) {
    return fmt::format("{} from {} to {} by {}", count, plainNumber(start), plainNumber(end),
                       plainNumber(step));
}

void addPlaceText(const grid::GridView& grid, const grid::Lattice& lattice, std::size_t missing,
                  std::string& text) {
    const double share = 100.0 * static_cast<double>(missing) / static_cast<double>(grid.size());
    const std::string percent = missing > 0 ? fmt::format(" ({:.1f}%)", share) : "";
    addLine(text, "longitudes",
            axisText(lattice.startLongitude, lattice.endLongitude, lattice.longitudeStep, grid.nx));
    addLine(text, "latitudes",
            axisText(lattice.startLatitude, lattice.endLatitude, lattice.latitudeStep, grid.ny));
    addLine(text, "values", fmt::format("{}, {} of them missing{}", grid.size(), missing, percent));
}

void addContentText(const grid::GridView& grid, const grid::Lattice& lattice, std::string& text) {
    const Extremes extremes = findExtremes(grid, lattice);
    addPlaceText(grid, lattice, extremes.missing, text);
    if (extremes.present > 0) {
        addLine(text, "smallest", placedText(extremes.smallest));
        addLine(text, "largest", placedText(extremes.largest));
    }
}

void addGridJson(const GridFile& file, Json& json) {
    const files::GridHeader& header = file.header;
    addTimesJson(header.field, json);
    addContentJson(file.values, header.field.lattice, json);
    json["contours"] = {{"interval", writtenNumber(header.interval)},
                        {"start", writtenNumber(header.startValue)},
                        {"end", writtenNumber(header.endValue)},
                        {"smoothing", writtenNumber(header.smoothing)},
                        {"bold", writtenNumber(header.boldValue)}};
}

void addGridText(const GridFile& file, std::string& text) {
    const files::GridHeader& header = file.header;
    addTimesText(header.field, text);
    addContentText(file.values, header.field.lattice, text);
    addLine(text, "contours",
            fmt::format("{} to {} by {}, bold {}, smoothing {}", plainNumber(header.startValue),
                        plainNumber(header.endValue), plainNumber(header.interval),
                        plainNumber(header.boldValue), plainNumber(header.smoothing)));
}

void addImageJson(const ByteImageFile& image, Json& json) {
    if (!image.time.empty()) json["time"] = image.time;
    addContentJson(image.grid.view(), image.lattice, json);
}

void addImageText(const ByteImageFile& image, std::string& text) {
    if (!image.time.empty()) addLine(text, "time", image.time);
    addContentText(image.grid.view(), image.lattice, text);
}

void addWindFileJson(const WindFile& file, Json& json) {
    const WindSummary summary = summarise(file);
    addTimesJson(file.header, json);
    addPlaceJson(file.u, file.header.lattice, summary.missing, json);
    addWindJson(summary, json);
}

void addWindFileText(const WindFile& file, std::string& text) {
    const WindSummary summary = summarise(file);
    addTimesText(file.header, text);
    addPlaceText(file.u, file.header.lattice, summary.missing, text);
    addWindText(summary, text);
}

LineMap readMap(const std::string& path, const FileHead& head, Reporter& reporter) {
    LineMap map = readLineMap(head);
    reporter.tell(path, map.notice);
    return map;
}

SoundingFile readSoundings(const std::string& path, const FileHead& head, Reporter& reporter) {
    SoundingFile file = readSoundingFile(head);
    reporter.tell(path, file.notice());
    return file;
}

Json describeJson(const std::string& path, Reporter& reporter) {
    const FileHead head = readFileHead(path);
    Json json{{"file", path},
              {"keyword", head.keyword},
              {"type", head.kind.type},
              {"kind", head.kind.name},
              {"title", head.title}};
    if (head.kind.type == gridFileType) addGridJson(readGridFile(head), json);
    if (isByteImage(head)) addImageJson(readByteImageFile(head), json);
    if (isStationFile(head)) addStationsJson(readStationFile(head), json);
    if (isWindFile(head)) addWindFileJson(readWindFile(head), json);
    if (isLineMap(head)) addMapJson(readMap(path, head, reporter), json);
    if (isSoundingFile(head)) addSoundingsJson(readSoundings(path, head, reporter), json);
    return json;
}

std::string describe(const std::string& path, Reporter& reporter) {
    const FileHead head = readFileHead(path);
    std::string text = path + "\n";
    addLine(text, "file type", fmt::format("{} ({} {})", head.kind.name, head.keyword, head.kind.type));
    if (!head.title.empty()) addLine(text, "title", head.title);
    if (head.kind.type == gridFileType) addGridText(readGridFile(head), text);
    if (isByteImage(head)) addImageText(readByteImageFile(head), text);
    if (isStationFile(head)) addStationsText(readStationFile(head), text);
    if (isWindFile(head)) addWindFileText(readWindFile(head), text);
    if (isLineMap(head)) addMapText(readMap(path, head, reporter), text);
    if (isSoundingFile(head)) addSoundingsText(readSoundings(path, head, reporter), text);
    return text;
}

int runInfo(const InfoOptions& options) {
    std::vector<Job> jobs;
    for (const std::string& input : options.inputs) jobs.push_back({input, "-", {}, {}});
    Json list = Json::array();
    std::string text;
    const int exitCode = runJobs(jobs, options.workers, [&](const Job& job, Reporter& reporter) {
        const Json json = options.json ? describeJson(job.input, reporter) : Json();
        const std::string lines = options.json ? std::string() : describe(job.input, reporter);
        reporter.awaitTurn();
        if (options.json) list.push_back(json);
        text += lines;
    });
    if (options.json && (jobs.size() > 1 || !list.empty())) {
        const Json& result = jobs.size() > 1 ? list : list.front();
        // A file's name can be in any encoding.
        text = result.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    }
    writeOutput("-", text);
    return exitCode;
}

}  // namespace

void addInfoCommand(CLI::App& program, int& exitCode) {
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* command = program.add_subcommand("info", "Say what files are and what is in them");
    command->add_option("FILE", options->inputs, "Files of the diamond family")->required();
    command->add_flag("--json", options->json,
                      "Answer in JSON: an object for one file, an array for several");
    addWorkersOption(*command, options->workers);
    command->callback([options, &exitCode] { exitCode = runInfo(*options); });
}

}  // namespace velmar::tool
