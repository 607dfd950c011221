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

/// Appends the stations that can be read, as long as there are no more than so many elements; returns how many. A
/// station counts as soon as its first value is there. A further value that does not scan is 0, and the next is
/// scanned from where that scan stopped.
int readStations(TextScanner& in, int promised, int valuesPerStation, std::size_t mostElements,
                 GrowingBlock& out) {
    constexpr std::size_t placeFields = 4;
    const std::size_t elements = placeFields + static_cast<std::size_t>(std::max(valuesPerStation, 0));
    int count = 0;
    for (; count < promised && out.size() + elements <= mostElements; ++count) {
        std::array<float, placeFields + 1> head{};
        if (in.read(head) < head.size()) break;
        const std::span<float> station = out.claim(elements);
        std::copy_n(head.begin(), std::min(head.size(), station.size()), station.begin());
        for (std::size_t k = head.size(); k < station.size(); ++k) {
            station[k] = 0;
            in.read(station[k]);
        }
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
    const std::size_t boundaryPoints = h.boundary.size() / 2;
    // The block never has more elements than the file has bytes, whatever number of values is promised.
    const std::size_t mostElements = file->size - 1 - h.boundary.size();
    const int count = readStations(in, promised, valuesPerStation, mostElements, out);
    out.append(std::array{static_cast<float>(boundaryPoints)});
    out.append(h.boundary);
    ResultBlock block = out.finish();
    block[6] = static_cast<float>(count);
    return block;
}

}  // namespace velmar::formats
