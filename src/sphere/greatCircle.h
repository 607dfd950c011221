#pragma once

#include "base/points.h"

namespace velmar::sphere {

/// The path from one place to another along a great circle.
struct GreatCircle {
    float bearing;   ///< at the start, radians clockwise from north, 0 to 2 pi
    float angle;     ///< at the earth's centre, radians
    float distance;  ///< kilometres
};

/// By the cosine rule of spherical triangles, on a sphere of 6371.11 km. Results depend on these roundings to single
/// precision:
///
///   radians             of each longitude and latitude, and their difference
///   sines, cosines      of the difference and of both latitudes
///   cosine of the angle, terms of the bearing  their sums, products and quotients are in double
///   angle, bearing, metres, kilometres         each
///
/// The cosine of a small angle is nearly 1, so that the angle is lost in it. Largest errors of the distance, each over
/// 200,000 paths between 80 S and 80 N, against a formula in double precision that is accurate for all angles:
///
///   angle, degrees       0.01  0.03  0.1   0.3   1     3     10    30    90    150   170   179
///   distance, km         1     3     11    33    111   334   1112  3336  10008 16680 18903 19904
///   largest error, km    8.0   1.1   0.35  0.15  0.04  0.013 0.004 0.002 0.003 0.003 0.008 0.04
///
/// Places whose cosine rounds to above 1 come out 9 km apart, and opposite ones below -1 as not-a-number.
GreatCircle greatCircle(base::LonLat from, base::LonLat to);

}  // namespace velmar::sphere
