#include "write/bandWriter.h"

#include "common/text.h"
#include "write/geoJson.h"

namespace velmar::tool {
namespace {

/// The places of a ring as it is written: those that the roundings of single precision have not made the same.
std::vector<base::LonLat> placesOf(const BandRing& ring, const grid::Lattice& lattice) {
    const bool mirrored = lattice.longitudeStep * lattice.latitudeStep < 0;
    std::vector<base::LonLat> places;
    for (std::size_t k = 0; k < ring.size(); ++k) {
        const shade::OutlinePoint& point = ring[mirrored ? ring.size() - 1 - k : k];
        const base::LonLat place{lattice.startLongitude + point.column * lattice.longitudeStep,
                                 lattice.startLatitude + point.row * lattice.latitudeStep};
        if (places.empty() || !(places.back() == place)) places.push_back(place);
    }
    if (places.size() > 1 && places.back() == places.front()) places.pop_back();
    return places;
}

/// Appends a ring, its last position again the first. A ring without an area is left out; returns whether it was not.
bool appendRing(std::string& text, const BandRing& ring, const grid::Lattice& lattice) {
    const std::vector<base::LonLat> places = placesOf(ring, lattice);
    if (places.size() < 3) return false;
    text += '[';
    for (const base::LonLat& place : places) {
        appendPosition(text, place);
        text += ',';
    }
    appendPosition(text, places.front());
    text += "],";
    return true;
}

/// Appends a polygon with a comma behind it, or nothing when it has no area.
void appendPolygon(std::string& text, const BandPolygon& polygon, const grid::Lattice& lattice) {
    const std::size_t before = text.size();
    text += '[';
    if (!appendRing(text, polygon.front(), lattice)) {
        text.resize(before);
        return;
    }
    for (std::size_t hole = 1; hole < polygon.size(); ++hole) appendRing(text, polygon[hole], lattice);
    text.back() = ']';
    text += ',';
}

void addBand(const Band& band, const grid::Lattice& lattice, FeatureCollection& features) {
    const auto level = [](std::optional<float> value) {
        return value ? Json(writtenNumber(*value)) : Json();
    };
    std::string polygons;
    for (const BandPolygon& polygon : band.polygons) appendPolygon(polygons, polygon, lattice);
    if (polygons.empty()) return;
    polygons.back() = ']';
    const Json properties{{"lower", level(band.lower)}, {"upper", level(band.upper)}};
    features.add(properties, "MultiPolygon", [&](std::string& text) {
        text += '[';
        text += polygons;
    });
}

}  // namespace

std::string geoJson(const BandSet& set, const grid::Lattice& lattice) {
    constexpr double nanosecondsEach = 1e6;
    return collectFeatures(
               set.bands.size(), nanosecondsEach,
               [&](std::size_t k, FeatureCollection& features) { addBand(set.bands[k], lattice, features); })
        .text();
}

}  // namespace velmar::tool
