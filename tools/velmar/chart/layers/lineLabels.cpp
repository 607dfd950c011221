#include "chart/layers/lineLabels.h"

#include <cmath>
#include <numbers>
#include <numeric>

#include "chart/layers/lineRaster.h"
#include "chart/paper/lettering.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

// Lengths are in units of paper.
constexpr double searchStep = 8;
constexpr double gapMargin = 4;             ///< between a text and the ends of its line's gap
constexpr double labelDistance = 450;       ///< of the labels of a line
constexpr double freeMargin = 8;            ///< around a label
constexpr double leastStraightness = 0.97;  ///< chord divided by length
constexpr double mostCrowding = 0.2;
constexpr std::size_t mostLabels = 6;  ///< of a line

struct Candidate {
    double cost;
    double middle;  ///< length from the line's start
    TurnedBox box;
};

double lengthInside(const PaperLine& line, const PaperBox& box) {
    double sum = 0;
    for (const auto& [from, to] : line.stretchesInside(box)) sum += to - from;
    return sum;
}

/// The places of a line, one after another.
class LabelSearch {
public:
    LabelSearch(Page& page, const LineRaster& raster, const PaperLine& line, std::size_t index,
                PaperSize size)
        : page_(page), raster_(raster), line_(line), index_(index), size_(size) {}

    std::vector<Candidate> chosen() {
        std::vector<Candidate> places;
        const double inside = lengthInside(line_, page_.map.box);
        if (inside < 6 * size_.width) return places;
        const auto wanted = std::min(mostLabels, static_cast<std::size_t>(1 + inside / labelDistance));
        for (const Candidate& candidate : candidates()) {
            if (places.size() == wanted) break;
            if (isApart(candidate, places)) places.push_back(candidate);
        }
        for (const Candidate& place : places) page_.taken.take(widened(place.box));
        std::ranges::sort(places, {}, &Candidate::middle);
        return places;
    }

private:
    /// All possible places, the best first.
    std::vector<Candidate> candidates() const {
        std::vector<Candidate> found;
        const double half = size_.width / 2 + gapMargin;
        for (const auto& [from, to] : line_.stretchesInside(page_.map.box))
            for (double middle = from + half; middle + half <= to; middle += searchStep)
                consider(middle, half, found);
        std::ranges::stable_sort(found, {}, &Candidate::cost);
        return found;
    }

    void consider(double middle, double half, std::vector<Candidate>& found) const {
        const PaperPoint center = line_.at(middle);
        const PaperPoint chord = line_.at(middle + half) - line_.at(middle - half);
        const double straightness = length(chord) / (2 * half);
        if (straightness < leastStraightness) return;
        double angle = std::atan2(chord.y, chord.x);
        if (angle > std::numbers::pi / 2) angle -= std::numbers::pi;
        if (angle < -std::numbers::pi / 2) angle += std::numbers::pi;
        // A bend can have a long chord and still lead the line out of the label.
        const PaperPoint bow = center - 0.5 * (line_.at(middle + half) + line_.at(middle - half));
        const TurnedBox box{center - 0.5 * bow, size_, angle};
        if (length(bow) > size_.height / 4 || !isInside(widened(box), page_.map.box)) return;
        const double crowding = raster_.crowding(box, index_);
        if (crowding > mostCrowding || !page_.taken.isFree(widened(box))) return;
        const double tilt = std::fabs(angle) / (std::numbers::pi / 2);
        found.push_back({10 * crowding + 20 * (1 - straightness) + tilt, middle, box});
    }

    bool isApart(const Candidate& candidate, const std::vector<Candidate>& others) const {
        return std::ranges::none_of(others, [&](const Candidate& other) {
            return std::fabs(candidate.middle - other.middle) < 0.7 * labelDistance ||
                   distance(candidate.box.center, other.box.center) < 0.4 * labelDistance;
        });
    }

    static TurnedBox widened(TurnedBox box) {
        box.size.width += 2 * freeMargin;
        box.size.height += freeMargin;
        return box;
    }

    Page& page_;
    const LineRaster& raster_;
    const PaperLine& line_;
    std::size_t index_;
    PaperSize size_;
};

/// Bold lines first, then long ones: they are read first.
std::vector<std::size_t> byImportance(const std::vector<PaperLine>& lines, const std::vector<bool>& isBold,
                                      const PaperBox& box) {
    std::vector<double> lengths;
    lengths.reserve(lines.size());
    for (const PaperLine& line : lines) lengths.push_back(lengthInside(line, box));
    std::vector<std::size_t> order(lines.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        if (isBold[a] != isBold[b]) return static_cast<bool>(isBold[a]);
        return lengths[a] > lengths[b];
    });
    return order;
}

}  // namespace

std::vector<LineLabel> placeLabels(Page& page, const std::vector<PaperLine>& lines, const LabelStyle& style) {
    const LineRaster raster(page.map.box, lines);
    std::vector<LineLabel> labels;
    for (const std::size_t index : byImportance(lines, style.isBold, page.map.box)) {
        const std::string text = plainNumber(lines[index].value());
        PaperSize size = measureText(page.ink, text, {.size = style.size, .bold = style.isBold[index]});
        size.height *= 0.8;  // digits have no descenders
        for (const Candidate& place : LabelSearch(page, raster, lines[index], index, size).chosen()) {
            const double half = size.width / 2 + gapMargin;
            labels.push_back(
                {index, text, place.box.center, place.box.angle, {place.middle - half, place.middle + half}});
        }
    }
    return labels;
}

}  // namespace velmar::tool
