#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "gridFile.h"
#include "jobs.h"
#include "text.h"

namespace velmar::tool {
namespace {

using Json = nlohmann::ordered_json;

struct InfoOptions {
    std::vector<std::string> inputs;
    bool json = false;
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

void addGridJson(const GridFile& file, Json& json) {
    const frame::GridHeader& header = file.header;
    const frame::FieldHeader& field = header.field;
    const frame::Lattice& lattice = field.lattice;
    const Extremes extremes = findExtremes(file.values, lattice);
    json["start"] = startTimeText(field);
    json["forecastHour"] = field.forecastHour;
    if (const auto valid = validTimeText(field)) json["valid"] = *valid;
    json["level"] = field.level;
    json["longitudes"] =
        axisJson(lattice.startLongitude, lattice.endLongitude, lattice.longitudeStep, field.nx);
    json["latitudes"] = axisJson(lattice.startLatitude, lattice.endLatitude, lattice.latitudeStep, field.ny);
    json["values"] = file.values.size();
    json["missing"] = extremes.missing;
    if (extremes.present > 0) {
        json["smallest"] = extremeJson(extremes.smallest);
        json["largest"] = extremeJson(extremes.largest);
    }
    json["contours"] = {{"interval", writtenNumber(header.interval)},
                        {"start", writtenNumber(header.startValue)},
                        {"end", writtenNumber(header.endValue)},
                        {"smoothing", writtenNumber(header.smoothing)},
                        {"bold", writtenNumber(header.boldValue)}};
}

void addGridText(const GridFile& file, std::string& text) {
    const frame::GridHeader& header = file.header;
    const frame::FieldHeader& field = header.field;
    const frame::Lattice& lattice = field.lattice;
    const Extremes extremes = findExtremes(file.values, lattice);
    const auto valid = validTimeText(field);
    const auto add = [&](std::string_view name, const std::string& value) {
        fmt::format_to(std::back_inserter(text), "  {:<12}{}\n", name, value);
    };
    add("start", startTimeText(field));
    add("forecast", fmt::format("{} h{}", field.forecastHour, valid ? ", valid " + *valid : ""));
    add("level", field.level == 0 ? "0" : levelText(field.level));
    add("longitudes", fmt::format("{} from {} to {} by {}", field.nx, plainNumber(lattice.startLongitude),
                                  plainNumber(lattice.endLongitude), plainNumber(lattice.longitudeStep)));
    add("latitudes", fmt::format("{} from {} to {} by {}", field.ny, plainNumber(lattice.startLatitude),
                                 plainNumber(lattice.endLatitude), plainNumber(lattice.latitudeStep)));
    add("values", fmt::format("{}, {} of them missing", file.values.size(), extremes.missing));
    if (extremes.present > 0) {
        add("smallest", placedText(extremes.smallest));
        add("largest", placedText(extremes.largest));
    }
    add("contours", fmt::format("{} to {} by {}, bold {}, smoothing {}", plainNumber(header.startValue),
                                plainNumber(header.endValue), plainNumber(header.interval),
                                plainNumber(header.boldValue), plainNumber(header.smoothing)));
}

Json describeJson(const std::string& path) {
    const FileHead head = readFileHead(path);
    Json json{{"file", path},
              {"keyword", head.keyword},
              {"type", head.kind.type},
              {"kind", head.kind.name},
              {"title", head.title}};
    if (head.kind.type == gridFileType) addGridJson(readGridFile(path, head), json);
    return json;
}

std::string describe(const std::string& path) {
    const FileHead head = readFileHead(path);
    std::string text = fmt::format("{}\n  {:<12}{} ({} {})\n", path, "file type", head.kind.name,
                                   head.keyword, head.kind.type);
    if (!head.title.empty()) fmt::format_to(std::back_inserter(text), "  {:<12}{}\n", "title", head.title);
    if (head.kind.type == gridFileType) addGridText(readGridFile(path, head), text);
    return text;
}

int runInfo(const InfoOptions& options) {
    std::vector<Job> jobs;
    for (const std::string& input : options.inputs) jobs.push_back({input, "-", {}, {}});
    Json list = Json::array();
    std::string text;
    const int exitCode = runJobs(jobs, [&](const Job& job, Reporter&) {
        if (options.json)
            list.push_back(describeJson(job.input));
        else
            text += describe(job.input);
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
    command->callback([options, &exitCode] { exitCode = runInfo(*options); });
}

}  // namespace velmar::tool
