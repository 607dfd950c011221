#include "files/reports.h"

#include <algorithm>

#include "grid/grid.h"

namespace velmar::files {
namespace {

bool readField(base::TextScanner& in, bool isWhole, float& field) {
    if (!isWhole) return in.read(field);
    int value = 0;
    if (!in.read(value)) return false;
    field = static_cast<float>(value);
    return true;
}

}  // namespace

bool readReport(base::TextScanner& in, const ReportLayout& layout, std::span<float> report) {
    const auto fields = report.first(layout.fields);
    const auto extraFields = report.subspan(layout.fields);
    std::ranges::fill(extraFields, grid::missingInFiles);
    for (std::size_t k = 0; k < fields.size(); ++k)
        if (!readField(in, (layout.wholeFields >> k & 1U) != 0, fields[k])) return false;
    const bool announced = fields[fields.size() - 2] == 1.0F && fields.back() == 2.0F;
    return !announced || in.read(extraFields) == extraFields.size();
}

}  // namespace velmar::files
