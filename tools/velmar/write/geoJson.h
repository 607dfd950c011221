#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "read/geoPoints.h"

namespace velmar::tool {

using Json = nlohmann::ordered_json;

Json positionJson(GeoPoint point);
Json positionsJson(const GeoPoints& points);

/// A GeoJSON FeatureCollection on its way to a file, a line a feature.
class FeatureCollection {
public:
    void add(const Json& properties, const Json& geometry) { addText(properties, geometry.dump()); }
    /// The same with a geometry that is text already.
    void addText(const Json& properties, const std::string& geometry);
    std::string text() const;

private:
    std::string features_;
};

}  // namespace velmar::tool
