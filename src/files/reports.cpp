#include "files/reports.h"

#include <algorithm>

#include "grid/grid.h"

namespace velmar::files {

bool readReport(base::TextScanner& in, const ReportLayout& layout, std::span<float> report) {
    const auto fields = report.first(layout.fields);
    const auto extraFields = report.subspan(layout.fields);
    std::ranges::fill(extraFields, grid::missingInFiles);
    if (in.read(fields) < fields.size()) return false;
    const bool announced = fields[fields.size() - 2] == 1.0F && fields.back() == 2.0F;
    return !announced || in.read(extraFields) == extraFields.size();
}

}  // namespace velmar::files
