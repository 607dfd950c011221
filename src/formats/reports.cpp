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

}  // namespace

bool readReport(TextScanner& in, const ReportLayout& layout, std::span<float> report) {
    const auto fields = report.first(layout.fields);
    const auto extraFields = report.subspan(layout.fields);
    std::ranges::fill(extraFields, frame::missingInFiles);
    if (in.read(fields) < fields.size()) return false;
    const bool announced = fields[fields.size() - 2] == 1.0F && fields.back() == 2.0F;
    return !announced || in.read(extraFields) == extraFields.size();
}

frame::ResultBlock readReports(const char* path, const ReportLayout& layout) {
    const std::optional<frame::FileText> file = frame::readWholeFile(path);
    if (!file) return nullptr;
    TextScanner in(file->view());
    GrowingBlock out;
    const std::optional<int> promised = readHeader(in, layout, out);
    if (!promised) return nullptr;
    if (*promised < 1) return out.finish();

    std::vector<float> report(layout.fields + layout.extraFields);
    int count = 0;
    for (; count < *promised && readReport(in, layout, report); ++count) out.append(report);
    if (count == 0) return nullptr;
    frame::ResultBlock block = out.finish();
    block[layout.headerIntegers - 1] = static_cast<float>(count);
    return block;
}

}  // namespace velmar::formats
