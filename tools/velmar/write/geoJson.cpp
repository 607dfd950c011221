#include "write/geoJson.h"

#include "common/text.h"

namespace velmar::tool {

Json positionJson(GeoPoint point) {
    return Json::array({writtenNumber(point.longitude), writtenNumber(point.latitude)});
}

Json positionsJson(const GeoPoints& points) {
    Json positions = Json::array();
    for (std::size_t k = 0; k < points.size(); ++k) positions.push_back(positionJson(points[k]));
    return positions;
}

void FeatureCollection::addText(const Json& properties, const std::string& geometry) {
    features_ += features_.empty() ? "\n" : ",\n";
    features_ += R"({"type":"Feature","properties":)" + properties.dump() + R"(,"geometry":)";
    features_ += geometry;
    features_ += '}';
}

std::string FeatureCollection::text() const {
    return "{\"type\":\"FeatureCollection\",\"features\":[" + features_ + "\n]}\n";
}

}  // namespace velmar::tool
