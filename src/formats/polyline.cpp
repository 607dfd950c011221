#include "formats/polyline.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>

#include "frame/file.h"
#include "frame/firstLine.h"
#include "frame/messages.h"

namespace velmar::formats {
namespace {

using frame::ResultBlock;
using frame::TextScanner;

/// The part that the types have in common: four header integers, which may be lacking, and the points.
ResultBlock readPoints(TextScanner& in) {
    std::array<int, 4> header{};
    int points = 0;
    static_cast<void>(scan(in, header[0], header[1], header[2], header[3]));
    if (!in.read(points)) return nullptr;
    const std::size_t numbers = 2 * static_cast<std::size_t>(std::max(points, 0));
    if (!in.mayHold(numbers)) return nullptr;
    ResultBlock block = frame::allocateBlock(numbers + 6);
    frame::BlockWriter out(block);
    out.appendCount(numbers + 6);
    for (const int item : header) out.appendCount(item);
    out.appendCount(numbers / 2);
    if (in.read(out.claim(numbers)) < numbers) return nullptr;
    return block;
}

/// Reads what stands in front of the header integers, and says whether it is right.
bool readHead(TextScanner& in, PolylineKind kind) {
    const std::optional<frame::FirstLine> line = frame::readFirstLine(in);
    if (!line) return false;
    if (kind == PolylineKind::type780) return line->type == 780;
    int first = 0;
    float second = 0;
    float third = 0;
    return (line->type == 777 || line->type == 778) && scan(in, first, second, third) == 3;
}

}  // namespace

ResultBlock readPolyline(std::string_view text, PolylineKind kind) {
    TextScanner in(text);
    return readHead(in, kind) ? readPoints(in) : nullptr;
}

ResultBlock readPolylineFile(const char* path, PolylineKind kind) {
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (file) return readPolyline(file->view(), kind);
    std::fputs(frame::messages::cannotOpenMapFile, stderr);
    return nullptr;
}

}  // namespace velmar::formats
