#include "files/surfaceReports.h"

#include <span>

namespace velmar::files {

int scanSurfaceHeader(base::TextScanner& in, SurfaceHeader& header) {
    return scan(in, header.keyword, header.type, header.title, header.year, header.month, header.day,
                header.hour, header.reportCount);
}

bool readSurfaceReport(base::TextScanner& in, SurfaceReport& report) {
    const std::span<float> fields = report.fields;
    const auto readWhole = [&](float& field) {
        int value = 0;
        if (!in.read(value)) return false;
        field = static_cast<float>(value);
        return true;
    };
    const auto readAll = [&](std::span<float> some) { return in.read(some) == some.size(); };
    // The station's number and class are whole numbers.
    return readWhole(fields[0]) && readAll(fields.subspan(1, 3)) && readWhole(fields[4]) &&
           readAll(fields.subspan(5));
}

}  // namespace velmar::files
