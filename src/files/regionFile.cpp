#include "files/regionFile.h"

#include <span>
#include <string_view>

#include "files/firstLine.h"

namespace velmar::files {
namespace {

using base::NamedOutlines;
using base::TextScanner;

/// Adds a name of at most 47 bytes.
std::size_t addName(NamedOutlines& regions, std::string_view name) {
    constexpr std::size_t longest = 47;
    const std::size_t place = regions.names.size();
    const std::string_view kept = name.substr(0, longest);
    regions.names.insert(regions.names.end(), kept.begin(), kept.end());
    regions.names.push_back('\0');
    return place;
}

/// Reads the points of a region; returns how many there are.
std::size_t readPoints(TextScanner& in, int promised, std::vector<base::LonLat>& points) {
    const std::size_t first = points.size();
    points.resize(first + in.recordsAtMost(promised, 2));
    const std::size_t count = in.read(std::span(points).subspan(first));
    points.resize(first + count);
    return count;
}

/// Reads a region; returns whether it is complete. Of an incomplete one, the points that could be read are kept.
bool readRegion(TextScanner& in, NamedOutlines& regions) {
    float unused[2];
    std::string_view name;
    int promised = 0;
    if (scan(in, unused[0], unused[1], name, promised) < 4) return false;
    const std::size_t first = regions.points.size();
    const std::size_t count = readPoints(in, promised, regions.points);
    const bool isWhole = promised <= 0 || count == static_cast<std::size_t>(promised);
    regions.runs.push_back({{first, count}, addName(regions, name), isWhole});
    return isWhole;
}

}  // namespace

std::optional<NamedOutlines> readRegions(TextScanner& in) {
    constexpr std::size_t mostRegions = 10'000'000;
    if (!readFirstLine(in)) return std::nullopt;
    NamedOutlines regions;
    while (regions.runs.size() < mostRegions && readRegion(in, regions)) {
    }
    return regions;
}

}  // namespace velmar::files
