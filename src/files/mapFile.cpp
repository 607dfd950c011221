#include "files/mapFile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string_view>
#include <vector>

#include "base/messages.h"

namespace velmar::files {
namespace {

using base::TextScanner;
namespace messages = base::messages;

struct LineHead {
    int points = 0;
    int attribute1 = 1;
    int attribute2 = 0;
};

enum class LineHeadResult { read, atEnd, failed };

/// Reads the header of a line. One that is cut off by the end of the file is a failure, unless nothing of it is there.
LineHeadResult readLineHead(TextScanner& in, MapForm form, LineHead& head, std::FILE* logFile) {
    std::array<int, 3> others{};
    int converted = 0;
    int wanted = 0;
    if (form == MapForm::diamond) {
        base::LowerCaseWord word;
        wanted = 5;
        converted = scan(in, head.points, word, others[0], others[1], others[2]);
    } else {
        std::string_view first;
        std::string_view second;
        wanted = 8;
        converted = scan(in, head.points, head.attribute1, head.attribute2, others[0], others[1], others[2],
                         first, second);
        if (converted == wanted)
            tell(logFile, messages::mapLineRead, head.points, static_cast<int>(second.size()), second.data());
    }
    if (converted == wanted) return LineHeadResult::read;
    return converted == 0 && in.remaining() == 0 ? LineHeadResult::atEnd : LineHeadResult::failed;
}

bool readPoints(TextScanner& in, std::size_t count, std::vector<base::LonLat>& points) {
    if (!in.mayHold(2 * count)) return false;
    const std::size_t first = points.size();
    points.resize(first + count);
    const std::span<base::LonLat> added = std::span(points).subspan(first);
    if (in.read(added) < count) {
        points.resize(first);
        points.shrink_to_fit();  // The lines read until now may be kept for the life of the process.
        return false;
    }
    for (base::LonLat& point : added)
        if (point.longitude < 0) point.longitude += 360.0F;
    return true;
}

}  // namespace

std::optional<MapForm> readMapHead(TextScanner& in) {
    std::string_view keyword;
    int type = 0;
    if (scan(in, keyword, type) < 2 || type != 9) return std::nullopt;
    const MapForm form = keyword == "diamond" ? MapForm::diamond : MapForm::march;
    if (form == MapForm::march) {
        std::string_view name;
        if (keyword != "March" || !in.read(name)) return std::nullopt;
    }
    constexpr int headerIntegers = 10;
    int unused = 0;
    for (int k = 0; k < headerIntegers; ++k)
        if (!in.read(unused)) return std::nullopt;
    return form;
}

bool readMapLines(TextScanner& in, MapForm form, MapLines& lines, std::FILE* logFile) {
    for (;;) {
        LineHead head;
        const LineHeadResult result = readLineHead(in, form, head, logFile);
        if (result != LineHeadResult::read) return result == LineHeadResult::atEnd;
        const auto count = static_cast<std::size_t>(std::max(head.points, 0));
        const std::size_t first = lines.points.size();
        if (!readPoints(in, count, lines.points)) return false;
        lines.runs.push_back({{first, count}, head.attribute1, head.attribute2});
    }
}

}  // namespace velmar::files
