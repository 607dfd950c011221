#include "formats/stationValues.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>

#include "analysis/stationValues.h"
#include "frame/file.h"
#include "frame/messages.h"
#include "frame/progress.h"

namespace velmar::formats {
namespace {

using analysis::StationValuesHeader;
using frame::Failure;
using frame::GrowingBlock;
using frame::Outcome;
using frame::ResultBlock;
using frame::TextScanner;
namespace messages = frame::messages;

/// Appends the stations that can be read; returns how many. A station counts as soon as its first value is
/// there: further values that are not are 0.
int readStations(TextScanner& in, int promised, int valuesPerStation, GrowingBlock& out) {
    constexpr std::size_t placeFields = 4;
    const auto values = static_cast<std::size_t>(std::max(valuesPerStation, 0));
    // A count that the whole file could not hold is not believed for one station either.
    if (!in.mayHold(values)) return 0;
    int count = 0;
    for (; count < promised; ++count) {
        std::array<float, placeFields + 1> head{};
        if (in.read(head) < head.size()) break;
        const std::span<float> station = out.claim(placeFields + values);
        std::copy_n(head.begin(), std::min(head.size(), station.size()), station.begin());
        if (values < 2) continue;
        const std::span<float> further = station.subspan(head.size());
        std::fill(further.begin() + static_cast<std::ptrdiff_t>(in.read(further)), further.end(), 0.0F);
    }
    return count;
}

}  // namespace

Outcome<ResultBlock> readStationValues(const char* path) {
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (!file) {
        std::fputs(messages::cannotOpenWindFile, stderr);
        return Failure{-1};
    }
    TextScanner in(file->view());
    Outcome<StationValuesHeader> header = analysis::readStationValuesHeader(in);
    if (!header) {
        frame::progress(messages::unreadablePart, {-header.failure().code - 1});
        return header.failure();
    }
    int valuesPerStation = 0;
    int promised = 0;
    const int converted = scan(in, valuesPerStation, promised);
    frame::progress(messages::stationTotal, {promised});
    if (converted < 2) return Failure{-9};

    const StationValuesHeader& h = *header;
    GrowingBlock out;
    for (const int item : {h.year, h.month, h.day, h.hour, h.level, valuesPerStation, 0})
        out.append(std::array{static_cast<float>(item)});
    out.append(std::array{static_cast<float>(h.contourLevels.size())});
    out.append(h.contourLevels);
    const int count = readStations(in, promised, valuesPerStation, out);
    const std::size_t boundaryPoints = h.boundary.size() / 2;
    out.append(std::array{static_cast<float>(boundaryPoints)});
    out.append(h.boundary);
    ResultBlock block = out.finish();
    block[6] = static_cast<float>(count);
    return block;
}

}  // namespace velmar::formats
