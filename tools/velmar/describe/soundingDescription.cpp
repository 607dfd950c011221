#include "describe/soundingInfo.h"

#include <fmt/format.h>

#include "cli/text.h"
#include "describe/infoLines.h"

namespace velmar::tool {

void addSoundingsJson(const SoundingFile& file, Json& json) {
    json["start"] = startTimeText(file.time);
    json["promised"] = file.promised;
    json["soundings"] = Json::array();
    for (const Sounding& sounding : file.soundings)
        json["soundings"].push_back({{"station", sounding.number},
                                     {"longitude", writtenNumber(sounding.longitude)},
                                     {"latitude", writtenNumber(sounding.latitude)},
                                     {"height", writtenNumber(sounding.height)},
                                     {"levels", sounding.levels.size()}});
}

void addSoundingsText(const SoundingFile& file, std::string& text) {
    addLine(text, "start", startTimeText(file.time));
    addLine(text, "soundings", std::to_string(file.soundings.size()));
    for (const Sounding& sounding : file.soundings) {
        const std::string place =
            fmt::format("{} {}", latitudeText(sounding.latitude), longitudeText(sounding.longitude));
        const std::string levels =
            sounding.levels.empty()
                ? "no levels"
                : fmt::format("{} levels from {} to {} hPa", sounding.levels.size(),
                              sounding.levels.front().pressure, sounding.levels.back().pressure);
        addLine(text, std::to_string(sounding.number),
                fmt::format("{}, {} m, {}", place, plainNumber(sounding.height), levels));
    }
}

}  // namespace velmar::tool
