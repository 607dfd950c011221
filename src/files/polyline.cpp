#include "files/polyline.h"

#include <algorithm>
#include <optional>

#include "files/firstLine.h"

namespace velmar::files {
namespace {

using base::TextScanner;

/// The part that the types have in common: four header integers, which may be missing, and the points.
std::optional<Polyline> readPoints(TextScanner& in) {
    Polyline line;
    auto& [header, coordinates] = line;
    int points = 0;
    static_cast<void>(scan(in, header[0], header[1], header[2], header[3]));
    if (!in.read(points)) return std::nullopt;
    const std::size_t numbers = 2 * static_cast<std::size_t>(std::max(points, 0));
    if (!in.mayHold(numbers)) return std::nullopt;
    coordinates.resize(numbers);
    if (in.read(coordinates) < numbers) return std::nullopt;
    return line;
}

/// Reads what precedes the header integers; returns whether it is as it should be.
bool readHead(TextScanner& in, PolylineKind kind) {
    const std::optional<FirstLine> line = readFirstLine(in);
    if (!line) return false;
    if (kind == PolylineKind::type780) return line->type == 780;
    int first = 0;
    float second = 0;
    float third = 0;
    return (line->type == 777 || line->type == 778) && scan(in, first, second, third) == 3;
}

}  // namespace

std::optional<Polyline> readPolyline(std::string_view text, PolylineKind kind) {
    TextScanner in(text);
    return readHead(in, kind) ? readPoints(in) : std::nullopt;
}

}  // namespace velmar::files
