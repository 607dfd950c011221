#include "write/soundingWriter.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <iterator>

#include "common/text.h"
#include "compute/soundingIndices.h"

namespace velmar::tool {
namespace {

struct IndexKind {
    const char* key;
    const char* name;
    const char* unit;
    std::optional<double> SoundingIndices::*value;
};

constexpr std::array indexKinds{
    IndexKind{"k", "K index", "", &SoundingIndices::k},
    IndexKind{"totalTotals", "Total totals", "", &SoundingIndices::totalTotals},
    IndexKind{"showalter", "Showalter index", "", &SoundingIndices::showalter},
    IndexKind{"lifted", "Lifted index", "", &SoundingIndices::lifted},
    IndexKind{"precipitableWater", "Precipitable water", " mm", &SoundingIndices::precipitableWater},
};

/// As a person writes it, without the digits that no sounding has.
double rounded(double value, double parts) { return std::round(value * parts) / parts + 0.0; }

std::string shown(const std::optional<float>& value, const char* missing) {
    return value ? plainNumber(*value) : missing;
}

Json jsonOf(const std::optional<float>& value) { return value ? Json(writtenNumber(*value)) : Json(); }

Json levelJson(const CheckedLevel& level) {
    return {{"pressure", level.pressure},
            {"height", jsonOf(level.height)},
            {"temperature", jsonOf(level.temperature)},
            {"dewPoint", jsonOf(level.dewPoint)},
            {"windDirection", jsonOf(level.windDirection)},
            {"windSpeed", jsonOf(level.windSpeed)}};
}

Json indicesJson(const SoundingIndices& indices) {
    Json json = Json::object();
    for (const IndexKind& kind : indexKinds)
        if (const auto value = indices.*kind.value) json[kind.key] = rounded(*value, 100);
    return json;
}

Json stationJson(const CheckedSounding& sounding) {
    Json json{{"station", sounding.number},
              {"longitude", writtenNumber(sounding.longitude)},
              {"latitude", writtenNumber(sounding.latitude)},
              {"height", writtenNumber(sounding.height)}};
    if (const auto& freezing = sounding.freezing)
        json["freezing"] = {{"height", rounded(freezing->height, 10)},
                            {"pressure", rounded(freezing->pressure, 10)}};
    json["indices"] = indicesJson(indicesOf(sounding.levels));
    json["levels"] = Json::array();
    for (const CheckedLevel& level : sounding.levels) json["levels"].push_back(levelJson(level));
    return json;
}

void addSounding(const CheckedSounding& sounding, std::string& text) {
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "\n{}\n", stationText(sounding));
    fmt::format_to(out, "{:>8}{:>8}{:>13}{:>11}{:>11}{:>7}\n", "hPa", "height", "temperature", "dew point",
                   "wind from", "m/s");
    for (const CheckedLevel& level : sounding.levels)
        fmt::format_to(out, "{:>8}{:>8}{:>13}{:>11}{:>11}{:>7}\n", level.pressure, shown(level.height, "-"),
                       shown(level.temperature, "-"), shown(level.dewPoint, "-"),
                       shown(level.windDirection, "-"), shown(level.windSpeed, "-"));
    for (const auto& [name, value] : indexTexts(sounding)) fmt::format_to(out, "  {:<20}{}\n", name, value);
}

}  // namespace

const char* const soundingHeading =
    "time,station,longitude,latitude,pressure,height,temperature,dewPoint,windDirection,windSpeed\n";

std::vector<NamedText> indexTexts(const CheckedSounding& sounding) {
    const SoundingIndices indices = indicesOf(sounding.levels);
    std::vector<NamedText> texts;
    for (const IndexKind& kind : indexKinds) {
        const auto value = indices.*kind.value;
        texts.push_back({kind.name, value ? fmt::format("{:.1f}{}", rounded(*value, 10), kind.unit) : "-"});
    }
    const auto& freezing = sounding.freezing;
    texts.push_back({"Freezing level", freezing ? fmt::format("{:.0f} hPa", freezing->pressure) : "-"});
    texts.push_back({"Freezing height", freezing ? fmt::format("{:.0f}", freezing->height) : "-"});
    return texts;
}

std::string stationText(const CheckedSounding& sounding) {
    return fmt::format("station {}   {} {}   {} m", sounding.number, latitudeText(sounding.latitude),
                       longitudeText(sounding.longitude), plainNumber(sounding.height));
}

std::string soundingText(const CheckedSoundings& file) {
    std::string text = fmt::format("{}   {}\n", file.title, startTimeText(file.time));
    for (const CheckedSounding& sounding : file.soundings) addSounding(sounding, text);
    return text;
}

Json soundingJson(const CheckedSoundings& file) {
    Json json{{"title", file.title}, {"start", startTimeText(file.time)}, {"soundings", Json::array()}};
    for (const CheckedSounding& sounding : file.soundings) json["soundings"].push_back(stationJson(sounding));
    return json;
}

std::string soundingRows(const CheckedSoundings& file) {
    std::string text;
    const std::string time = startTimeText(file.time);
    for (const CheckedSounding& sounding : file.soundings)
        for (const CheckedLevel& level : sounding.levels)
            fmt::format_to(std::back_inserter(text), "{},{},{},{},{},{},{},{},{},{}\n", time, sounding.number,
                           sounding.longitude, sounding.latitude, level.pressure, shown(level.height, ""),
                           shown(level.temperature, ""), shown(level.dewPoint, ""),
                           shown(level.windDirection, ""), shown(level.windSpeed, ""));
    return text;
}

}  // namespace velmar::tool
