#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "base/threads.h"
#include "read/geoPoints.h"

namespace velmar::tool {

using Json = nlohmann::ordered_json;

// Geometries can have very many points: a tree of JSON values would cost more than all else, so they are written as
// text.

/// Appends a number, with as many digits as tell it from others.
void appendNumber(std::string& text, float number);
/// Appends [longitude,latitude].
void appendPosition(std::string& text, base::LonLat point);
/// Appends a list of positions.
void appendPositions(std::string& text, const GeoPoints& points);

/// A GeoJSON FeatureCollection on its way to a file, a line a feature.
class FeatureCollection {
public:
    /// Adds a feature, of whose geometry `appendCoordinates` appends the coordinates to a text.
    template <class Append>
    void add(const Json& properties, std::string_view geometryType, const Append& appendCoordinates) {
        start(properties, geometryType);
        appendCoordinates(features_);
        features_ += "}}";
    }
    void append(const FeatureCollection& others);
    std::string text() const;

private:
    void start(const Json& properties, std::string_view geometryType);

    std::string features_;
};

/// Features number 0 to count - 1, shared among threads: `add(k, collection)` adds what belongs to number k.
template <class Add>
FeatureCollection collectFeatures(std::size_t count, double nanosecondsEach, const Add& add) {
    const auto runs = base::collectWork(count, nanosecondsEach, [&](std::size_t first, std::size_t last) {
        FeatureCollection features;
        for (std::size_t k = first; k < last; ++k) add(k, features);
        return features;
    });
    FeatureCollection all;
    for (const auto& [first, features] : runs) all.append(features);
    return all;
}

}  // namespace velmar::tool
