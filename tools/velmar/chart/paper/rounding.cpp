#include "chart/paper/rounding.h"

namespace velmar::tool {

std::vector<PaperPoint> withoutDetail(const std::vector<PaperPoint>& line, double detail) {
    if (line.size() < 3) return line;
    std::vector<PaperPoint> kept{line.front()};
    bool isMiddle = true;  // the ends stay where they are
    for (std::size_t k = 1; k + 1 < line.size(); ++k) {
        if (distance(kept.back(), line[k]) >= detail) {
            kept.push_back(line[k]);
            isMiddle = false;
        } else if (!isMiddle) {
            kept.back() = 0.5 * (kept.back() + line[k]);
            isMiddle = true;
        }
    }
    kept.push_back(line.back());
    return kept;
}

void traceRounded(cairo_t* ink, const std::vector<PaperPoint>& line) {
    constexpr double leastVisible = 0.1;
    PaperPoint from = line.front();
    for (std::size_t k = 1; k + 1 < line.size(); ++k) {
        const PaperPoint corner = line[k];
        const PaperPoint to = k + 2 < line.size() ? 0.5 * (corner + line[k + 1]) : line[k + 1];
        if (distance(corner, 0.5 * (from + to)) / 2 < leastVisible) {
            cairo_line_to(ink, to.x, to.y);
        } else {
            const PaperPoint a = from + 2.0 / 3 * (corner - from);
            const PaperPoint b = to + 2.0 / 3 * (corner - to);
            cairo_curve_to(ink, a.x, a.y, b.x, b.y, to.x, to.y);
        }
        from = to;
    }
    if (line.size() == 2) cairo_line_to(ink, line.back().x, line.back().y);
}

}  // namespace velmar::tool
