#include <algorithm>
#include <cstdio>
#include <new>
#include <optional>
#include <utility>

#include "base/messages.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "files/diagnosticFile.h"
#include "files/file.h"
#include "files/mapFile.h"
#include "files/polyline.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::TextScanner;
using files::MapForm;
using files::MapLine;
using files::MapLines;
using files::tell;
namespace messages = base::messages;

ResultBlock packPolyline(const files::Polyline& line) {
    const std::size_t elements = 2 * line.points.size() + 6;
    ResultBlock block = base::allocateFloats(elements);
    BlockWriter out(block);
    out.appendCount(elements);
    for (const int item : line.header) out.appendCount(item);
    out.appendCount(line.points.size());
    out.append(line.points);
    return block;
}

float* polylineOf(const char* path, files::PolylineKind kind) noexcept {
    return guarded<float*>(nullptr, [&]() -> float* {
        const std::optional<files::FileText> file = files::readWholeFile(path);
        if (!file) {
            std::fputs(messages::cannotOpenMapFile, stderr);
            return nullptr;
        }
        const std::optional<files::Polyline> line = files::readPolyline(file->view(), kind);
        return line ? packPolyline(*line).release() : nullptr;
    });
}

/// The log has this very name on every platform. Where it does not name a drive, it is in the current directory.
constexpr const char* logName = "C:\\readmap9.txt";

/// The counts that a result announces. Lines of the diamond form are never counted: hosts find 1 and 0 at the front,
/// and then the lines.
struct MapCounts {
    std::size_t lines = 0;
    std::size_t points = 0;

    std::size_t lastIndex() const { return 3 * lines + 2 * points + 1; }
};

MapCounts countLines(const MapLines& lines) { return {lines.runs.size(), lines.points.size()}; }

ResultBlock pack(const MapLines& lines, const MapCounts& told, std::FILE* logFile) try {
    tell(logFile, messages::mapResultSize, told.lastIndex());
    // The block holds the announced number of lines even when fewer are there, for hosts that step through them.
    MapCounts there = countLines(lines);
    there.lines = std::max(there.lines, told.lines);
    const std::size_t size = std::max(told.lastIndex(), there.lastIndex()) + 1;
    ResultBlock block = base::allocateFloats(size);
    std::fill_n(block.get(), size, 0.0F);
    BlockWriter out(block);
    out.appendCount(told.lastIndex());
    out.appendCount(told.lines);
    for (const MapLine& line : lines.runs) {
        tell(logFile, messages::mapLineWritten, line.pointCount);
        out.appendCount(line.pointCount);
        out.appendCount(line.attribute1);
        out.appendCount(line.attribute2);
        out.append(lines.pointsOf(line));
    }
    return block;
} catch (const std::bad_alloc&) {
    tell(logFile, messages::noMemoryForMap);
    throw;
}

/// Reads a map file as described for ReadMap9; null when that fails.
ResultBlock readMap(const char* path, MapState& state) {
    files::OpenFile logFile = files::openDiagnosticFile(logName, path);
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        // Where standard error is closed, the log may have its descriptor.
        logFile.reset();
        std::fputs(messages::cannotOpenMapFile, stderr);
        return nullptr;
    }
    TextScanner in(file->view());
    const std::optional<MapForm> form = files::readMapHead(in);
    if (!form) return nullptr;

    // The state changes only when nothing can fail any more: a call that runs out of memory does not count.
    MapLines own;
    if (!files::readMapLines(in, *form, own, logFile.get())) {
        if (!state.hasFirstMap) state = {true, std::move(own)};
        return nullptr;
    }
    const MapCounts told = *form == MapForm::march ? countLines(own) : MapCounts{};
    tell(logFile.get(), messages::mapWriting);
    // Every result is made of what is left of the first map of the process, which it then empties.
    const MapLines& handedOut = state.hasFirstMap ? state.firstMap : own;
    ResultBlock block = pack(handedOut, told, logFile.get());
    tell(logFile.get(), messages::mapReleasing);
    for (const MapLine& line : handedOut.runs)
        tell(logFile.get(), messages::mapLineReleased, line.pointCount);
    tell(logFile.get(), messages::mapReleased);
    state = {true, {}};
    return block;
}

}  // namespace
}  // namespace velmar::capi

using namespace velmar;
using namespace velmar::capi;

float* ReadVelmarData780(const char* path) noexcept { return polylineOf(path, files::PolylineKind::type780); }
float* ReadVelmarData777(const char* path) noexcept { return polylineOf(path, files::PolylineKind::type777); }

float* ReadMap9(const char* path) noexcept {
    return guarded<float*>(nullptr, [&] { return readMap(path, state().maps).release(); });
}

void deleteMap9Ptr(float* block) noexcept { base::releaseFloats(block); }
