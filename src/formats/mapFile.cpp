#include "formats/mapFile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <new>
#include <utility>

#include "frame/diagnosticFile.h"
#include "frame/messages.h"

namespace velmar::formats {
namespace {

using frame::ResultBlock;
using frame::TextScanner;
namespace messages = frame::messages;

/// The log has this very name on every platform. Where it names no drive, it stands in the current directory.
constexpr const char* logName = "C:\\readmap9.txt";

struct LineHead {
    int points = 0;
    int attribute1 = 1;
    int attribute2 = 0;
};

/// Writes to the log, if there is one.
void tell(std::FILE* file, const char* text) {
    if (file != nullptr) std::fputs(text, file);
}

template <class... Values>
void tell(std::FILE* file, const char* format, Values... values) {
    if (file != nullptr) std::fprintf(file, format, values...);
}

enum class LineHeadResult { read, atEnd, failed };

/// Reads the head of a line. A head that the end of the file cuts off has failed, unless nothing of it is there.
LineHeadResult readLineHead(TextScanner& in, MapForm form, LineHead& head, std::FILE* logFile) {
    std::array<int, 3> others{};
    int converted = 0;
    int wanted = 0;
    if (form == MapForm::diamond) {
        frame::LowerCaseWord word;
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

bool readPoints(TextScanner& in, std::size_t points, std::vector<float>& coordinates) {
    if (!in.mayHold(2 * points)) return false;
    const std::size_t first = coordinates.size();
    coordinates.resize(first + 2 * points);
    const std::span<float> read = std::span(coordinates).subspan(first);
    if (in.read(read) < read.size()) {
        coordinates.resize(first);
        coordinates.shrink_to_fit();  // The lines so far may stay as long as the process.
        return false;
    }
    for (std::size_t k = 0; k < read.size(); k += 2)
        if (read[k] < 0) read[k] += 360.0F;
    return true;
}

/// What a result says about the lines of its file. The diamond form has never been counted: hosts find no lines
/// and 1 there, and the lines behind.
struct MapCounts {
    std::size_t lines = 0;
    std::size_t points = 0;

    std::size_t lastIndex() const { return 3 * lines + 2 * points + 1; }
};

MapCounts countLines(const MapLines& lines) { return {lines.lines.size(), lines.coordinates.size() / 2}; }

ResultBlock pack(const MapLines& lines, const MapCounts& told, std::FILE* logFile) try {
    tell(logFile, messages::mapResultSize, told.lastIndex());
    // A host that steps through as many lines as it is told stays within the block, even when others are there.
    MapCounts there = countLines(lines);
    there.lines = std::max(there.lines, told.lines);
    const std::size_t size = std::max(told.lastIndex(), there.lastIndex()) + 1;
    ResultBlock block = frame::allocateBlock(size);
    std::fill_n(block.get(), size, 0.0F);
    frame::BlockWriter out(block);
    out.appendCount(told.lastIndex());
    out.appendCount(told.lines);
    const float* points = lines.coordinates.data();
    for (const MapLines::Line& line : lines.lines) {
        tell(logFile, messages::mapLineWritten, line.points);
        out.appendCount(line.points);
        out.appendCount(line.attribute1);
        out.appendCount(line.attribute2);
        out.append(std::span(points, 2 * line.points));
        points += 2 * line.points;
    }
    return block;
} catch (const std::bad_alloc&) {
    tell(logFile, messages::noMemoryForMap);
    throw;
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
        const auto points = static_cast<std::size_t>(std::max(head.points, 0));
        if (!readPoints(in, points, lines.coordinates)) return false;
        lines.lines.push_back({points, head.attribute1, head.attribute2});
    }
}

ResultBlock readMap(const char* path, MapState& state) {
    frame::OpenFile logFile = frame::openDiagnosticFile(logName, path);
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (!file) {
        // Where standard error is closed, the log may have its descriptor.
        logFile.reset();
        std::fputs(messages::cannotOpenMapFile, stderr);
        return nullptr;
    }
    TextScanner in(file->view());
    const std::optional<MapForm> form = readMapHead(in);
    if (!form) return nullptr;

    // The state changes when nothing can fail any more: a call that lacks memory does not count.
    MapLines own;
    if (!readMapLines(in, *form, own, logFile.get())) {
        if (!state.hasFirstMap) state = {true, std::move(own)};
        return nullptr;
    }
    const MapCounts told = *form == MapForm::march ? countLines(own) : MapCounts{};
    tell(logFile.get(), messages::mapWriting);
    // Every result is made of what is left of the first map of the process, which it then empties.
    const MapLines& handedOut = state.hasFirstMap ? state.firstMap : own;
    ResultBlock block = pack(handedOut, told, logFile.get());
    tell(logFile.get(), messages::mapReleasing);
    for (const MapLines::Line& line : handedOut.lines)
        tell(logFile.get(), messages::mapLineReleased, line.points);
    tell(logFile.get(), messages::mapReleased);
    state = {true, {}};
    return block;
}

}  // namespace velmar::formats
