#include "formats/reports.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "frame/file.h"
#include "frame/firstLine.h"

namespace velmar::formats {
namespace {

using frame::GrowingBlock;
using frame::TextScanner;

/// Appends the integers of the header; returns the last of them, nothing when the header is incomplete.
std::optional<int> readHeader(TextScanner& in, const ReportLayout& layout, GrowingBlock& out) {
    if (!frame::readFirstLine(in)) return std::nullopt;
    int value = 0;
    for (std::size_t k = 0; k < layout.headerIntegers; ++k) {
        if (!in.read(value)) return std::nullopt;
        out.append(std::array{static_cast<float>(value)});
    }
    return value;
}

/// Reads a record; says whether it is complete. Extra fields are there where the last two fields are 1 and 2.
bool readRecord(TextScanner& in, const ReportLayout& layout, std::span<float> record) {
    const auto fields = record.first(layout.fields);
    const auto extras = record.subspan(layout.fields);
    if (in.read(fields) < fields.size()) return false;
    std::ranges::fill(extras, frame::missingInFiles);
    const bool announced = fields[fields.size() - 2] == 1.0F && fields.back() == 2.0F;
    return !announced || in.read(extras) == extras.size();
}

}  // namespace

frame::ResultBlock readReports(const char* path, const ReportLayout& layout) {
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (!file) return nullptr;
    TextScanner in(file->view());
    GrowingBlock out;
    const std::optional<int> promised = readHeader(in, layout, out);
    if (!promised) return nullptr;
    if (*promised < 1) return out.finish();

    std::vector<float> record(layout.fields + layout.extraFields);
    int count = 0;
    for (; count < *promised && readRecord(in, layout, record); ++count) out.append(record);
    if (count == 0) return nullptr;
    frame::ResultBlock block = out.finish();
    block[layout.headerIntegers - 1] = static_cast<float>(count);
    return block;
}

}  // namespace velmar::formats
