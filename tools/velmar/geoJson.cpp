#include "geoJson.h"

#include "text.h"

namespace velmar::tool {

Json positionJson(GeoPoint point) {
    return Json::array({writtenNumber(point.longitude), writtenNumber(point.latitude)});
}

Json positionsJson(const GeoPoints& points) {
    Json positions = Json::array();
    for (std::size_t k = 0; k < points.size(); ++k) positions.push_back(positionJson(points[k]));
    return positions;
}

void FeatureCollection::add(Json properties, Json geometry) {
    const Json feature{
        {"type", "Feature"}, {"properties", std::move(properties)}, {"geometry", std::move(geometry)}};
    features_ += (features_.empty() ? "\n" : ",\n") + feature.dump();
}

std::string FeatureCollection::text() const {
    return "{\"type\":\"FeatureCollection\",\"features\":[" + features_ + "\n]}\n";
}

}  // namespace velmar::tool
