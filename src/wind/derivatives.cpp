#include "wind/derivatives.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/elementary.h"
#include "base/threads.h"
#include "base/wideVectors.h"

namespace velmar::wind {
namespace {

/// Established results depend on this value of pi.
constexpr double pi = 3.1416;
constexpr double radiansPerDegree = pi / 180;
constexpr float earthRadius = 6.37e6F;
/// No point is computed where the earth's radius times the cosine of latitude, in metres, is not above this.
constexpr double singular = 1e-10;

/// Single precision, in radians, of row or column k. The degrees are rounded once, from double.
float position(int k, float step, float start) {
    const auto degrees = static_cast<float>(static_cast<double>(k) * step + start);
    return static_cast<float>(degrees * radiansPerDegree);
}

/// What is needed of an inner row. Pointers are to the first elements of rows.
struct Row {
    const float* p;
    const float* southernQ;
    const float* northernQ;
    double southernCosine;
    double northernCosine;
    double latitudeSpan;  ///< between the neighbouring rows, radians; negated for the vorticity
    float circle;         ///< earth's radius times the cosine of latitude, metres
};

VELMAR_WIDE_VECTORS
void differentiateRow(const Row& row, const double* longitudeSpans, int nx, float missing, float* out) {
    const auto [p, southernQ, northernQ, southernCosine, northernCosine, latitudeSpan, circle] = row;
    for (int i = 1; i < nx - 1; ++i) {
        const double west = p[i - 1];
        const double east = p[i + 1];
        const auto alongLongitude = static_cast<float>((east - west) / longitudeSpans[i]);
        const double alongLatitude =
            (northernCosine * northernQ[i] - southernCosine * southernQ[i]) / latitudeSpan;
        const float sum = static_cast<float>(alongLongitude + alongLatitude);
        const bool hasData =
            p[i - 1] != missing && southernQ[i] != missing && p[i + 1] != missing && northernQ[i] != missing;
        out[i] = hasData ? sum / circle : missing;
    }
}

/// The distance between the two neighbours of each inner column, radians.
std::vector<double> longitudeSpansOf(int nx, const grid::GridPlace& place) {
    std::vector<double> spans(static_cast<std::size_t>(nx));
    for (int i = 1; i < nx - 1; ++i) {
        spans[static_cast<std::size_t>(i)] =
            static_cast<double>(position(i + 1, place.longitudeStep, place.startLongitude)) -
            static_cast<double>(position(i - 1, place.longitudeStep, place.startLongitude));
    }
    return spans;
}

/// A row of results: missing throughout on the first and the last row and where the earth's circle is none.
void differentiateRowOf(const WindPair& wind, int j, const grid::GridPlace& place, WindDerivative derivative,
                        const double* longitudeSpans, float* out) {
    const auto& [p, q, missing] = wind;
    const double latitude = static_cast<double>(position(j, place.latitudeStep, place.startLatitude));
    const float circle = static_cast<float>(base::cosine(latitude)) * earthRadius;
    if (j == 0 || j == p.ny - 1 || circle <= singular) {
        std::fill_n(out, p.nx, missing);
        return;
    }
    const double south = position(j - 1, place.latitudeStep, place.startLatitude);
    const double north = position(j + 1, place.latitudeStep, place.startLatitude);
    const double span = derivative == WindDerivative::divergence ? north - south : south - north;
    const Row row{p.row(j), q.row(j - 1), q.row(j + 1), base::cosine(south), base::cosine(north),
                  span,     circle};
    out[0] = out[p.nx - 1] = missing;
    differentiateRow(row, longitudeSpans, p.nx, missing, out);
}

}  // namespace

base::Floats differentiate(const WindPair& wind, const grid::GridPlace& place, WindDerivative derivative) {
    const grid::GridView& p = wind.p;
    if (p.size() == 0) return nullptr;
    base::Floats result = base::allocateFloats(p.size());
    const std::vector<double> longitudeSpans = longitudeSpansOf(p.nx, place);
    const double nanosecondsEach = 1.5 * p.nx;
    base::shareWork(
        static_cast<std::size_t>(p.ny), nanosecondsEach, [&](std::size_t first, std::size_t last) {
            for (std::size_t j = first; j < last; ++j)
                differentiateRowOf(wind, static_cast<int>(j), place, derivative, longitudeSpans.data(),
                                   result.get() + j * static_cast<std::size_t>(p.nx));
        });
    return result;
}

}  // namespace velmar::wind
