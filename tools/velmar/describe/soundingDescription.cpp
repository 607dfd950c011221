#include <fmt/format.h>

#include "common/text.h"
#include "describe/description.h"
#include "read/soundingFile.h"

namespace velmar::tool {
namespace {

std::string textOf(const CheckedSounding& sounding) {
    const std::string levels =
        sounding.levels.empty()
            ? "no levels"
            : fmt::format("{} levels from {} to {} hPa", sounding.levels.size(),
                          sounding.levels.front().pressure, sounding.levels.back().pressure);
    return fmt::format("{} {}, {} m, {}", latitudeText(sounding.latitude), longitudeText(sounding.longitude),
                       plainNumber(sounding.height), levels);
}

}  // namespace

void describeSoundings(const FileHead& head, FileDescription& description) {
    const CheckedSoundings file = readSoundingFile(head);
    description.notice = file.notice();
    Json& json = description.json;
    json["start"] = startTimeText(file.time);
    json["promised"] = file.promised;
    json["soundings"] = Json::array();
    description.addLine("start", startTimeText(file.time));
    description.addLine("soundings", std::to_string(file.soundings.size()));
    for (const CheckedSounding& sounding : file.soundings) {
        json["soundings"].push_back({{"station", sounding.number},
                                     {"longitude", writtenNumber(sounding.longitude)},
                                     {"latitude", writtenNumber(sounding.latitude)},
                                     {"height", writtenNumber(sounding.height)},
                                     {"levels", sounding.levels.size()}});
        description.addLine(std::to_string(sounding.number), textOf(sounding));
    }
}

}  // namespace velmar::tool
