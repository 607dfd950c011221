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
    auto& [header, points] = line;
    int promised = 0;
    static_cast<void>(scan(in, header[0], header[1], header[2], header[3]));
    if (!in.read(promised)) return std::nullopt;
    const auto count = static_cast<std::size_t>(std::max(promised, 0));
    if (!in.mayHold(2 * count)) return std::nullopt;
    points.resize(count);
    if (in.read(points) < count) return std::nullopt;
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
