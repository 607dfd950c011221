#include "write/geoJson.h"

#include <array>
#include <charconv>

namespace velmar::tool {

void appendNumber(std::string& text, float number) {
    std::array<char, 32> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), end);
}

void appendPosition(std::string& text, base::LonLat point) {
    text += '[';
    appendNumber(text, point.longitude);
    text += ',';
    appendNumber(text, point.latitude);
    text += ']';
}

void appendPositions(std::string& text, const GeoPoints& points) {
    text += '[';
    for (std::size_t k = 0; k < points.size(); ++k) {
        if (k > 0) text += ',';
        appendPosition(text, points[k]);
    }
    text += ']';
}

void FeatureCollection::start(const Json& properties, std::string_view geometryType) {
    features_ += features_.empty() ? "\n" : ",\n";
    features_ += R"({"type":"Feature","properties":)";
    features_ += properties.dump();
    features_ += R"(,"geometry":{"type":")";
    features_ += geometryType;
    features_ += R"(","coordinates":)";
}

void FeatureCollection::append(const FeatureCollection& others) {
    if (!features_.empty() && !others.features_.empty()) features_ += ',';
    features_ += others.features_;
}

std::string FeatureCollection::text() const {
    return "{\"type\":\"FeatureCollection\",\"features\":[" + features_ + "\n]}\n";
}

}  // namespace velmar::tool
