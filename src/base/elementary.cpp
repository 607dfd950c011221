#include "base/elementary.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>

namespace velmar::base {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double halfPi = 0x1.921fb54442d18p+0;
constexpr double halfPiRest = 0x1.1a62633145c07p-54;  // pi/2 less its double

/// A number in two parts, the second far smaller than the first: together they hold twice the digits of a double.
struct TwoPartNumber {
    double high;
    double low;
};

/// The sum of any two doubles, exactly (Knuth 1969).
TwoPartNumber exactSum(double a, double b) {
    const double sum = a + b;
    const double partOfB = sum - a;
    return {sum, (a - (sum - partOfB)) + (b - partOfB)};
}

/// The product of two doubles of moderate size, exactly (Dekker 1971).
TwoPartNumber exactProduct(double a, double b) {
    const auto upperHalf = [](double x) {
        const double scaled = 134217729.0 * x;  // 2^27 + 1
        return scaled - (scaled - x);
    };
    const double product = a * b;
    const double aHigh = upperHalf(a);
    const double bHigh = upperHalf(b);
    const double aLow = a - aHigh;
    const double bLow = b - bHigh;
    return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

/// The value at x of a polynomial whose coefficients begin with that of the highest power.
constexpr double polynomial(double x, std::initializer_list<double> coefficients) {
    double value = 0.0;
    for (const double coefficient : coefficients) value = value * x + coefficient;
    return value;
}

/// An angle minus the nearest whole number of right angles.
struct ReducedAngle {
    TwoPartNumber rest;    ///< from -pi/4 to pi/4
    unsigned rightAngles;  ///< modulo 4
};

constexpr double largestNearAngle = 1600.0;

/// pi/2 is taken in three parts, of which the first two are so short that their products with up to 1024 are exact
/// (Cody and Waite 1980).
ReducedAngle reducedNear(double x) {
    constexpr double perHalfPi = 0x1.45f306dc9c883p-1;
    constexpr double first = 0x1.921fb54442c00p+0;
    constexpr double second = 0x1.18469898cc400p-44;
    constexpr double third = 0x1.1701b839a2520p-88;
    constexpr double rounder = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to a whole number
    const double shifted = x * perHalfPi + rounder;
    const double k = shifted - rounder;
    TwoPartNumber rest = exactSum(x - k * first, -(k * second));
    rest.low -= k * third;
    return {rest, static_cast<unsigned>(std::bit_cast<std::uint64_t>(shifted) % 4)};
}

/// The first binary digits of 2/pi after the point.
constexpr std::array<std::uint32_t, 40> digitsOf2PerPi{
    0xA2F9836E, 0x4E441529, 0xFC2757D1, 0xF534DDC0, 0xDB629599, 0x3C439041, 0xFE5163AB, 0xDEBBC561,
    0xB7246E3A, 0x424DD2E0, 0x06492EEA, 0x09D1921C, 0xFE1DEB1C, 0xB129A73E, 0xE88235F5, 0x2EBB4484,
    0xE99C7026, 0xB45F7E41, 0x3991D639, 0x835339F4, 0x9C845F8B, 0xBDF9283B, 0x1FF897FF, 0xDE05980F,
    0xEF2F118B, 0x5A0A6D1F, 0x6D367ECF, 0x27CB09B7, 0x4F463F66, 0x9E5FEA2D, 0x7527BAC7, 0xEBE5F17B,
    0x3D0739F7, 0x8A5292EA, 0x6BFB5FB1, 0x1F8D5D08, 0x56033046, 0xFC7B6BAB, 0xF0CFBC20, 0x9AF4361D};

/// 32 binary digits of 2/pi after the first `position` ones, which may be negative: there are zeros before the point.
std::uint32_t digitsOf2PerPiFrom(int position) {
    const auto word = [](int k) { return k < 0 ? 0 : digitsOf2PerPi[static_cast<std::size_t>(k)]; };
    const int shift = position & 31;
    const int k = (position - shift) / 32;
    const std::uint64_t pair = std::uint64_t{word(k)} << 32U | word(k + 1);
    return static_cast<std::uint32_t>(pair >> (32 - shift));
}

/// x is a whole number times a power of 2, so the digits of 2/pi before a certain one only add whole turns and can be
/// ignored; the product with the next 192 is formed in whole numbers (Payne and Hanek 1983).
ReducedAngle reducedFar(double x) {
    constexpr int words = 6;
    const auto bits = std::bit_cast<std::uint64_t>(std::fabs(x));
    const int exponent = static_cast<int>(bits >> 52U) - 1075;
    const std::uint64_t mantissa = (bits & 0xFFFFFFFFFFFFFU) | 0x10000000000000U;

    // The fraction of x / (2 pi), the most significant word first.
    std::array<std::uint32_t, words> turn{};
    std::uint64_t carry = 0;
    std::uint64_t upperCarry = 0;
    for (int k = words - 1; k >= 0; --k) {
        const std::uint64_t digits = digitsOf2PerPiFrom(exponent - 2 + 32 * k);
        carry += (mantissa & 0xFFFFFFFFU) * digits;
        const std::uint64_t column = (carry & 0xFFFFFFFFU) + (upperCarry & 0xFFFFFFFFU);
        turn[static_cast<std::size_t>(k)] = static_cast<std::uint32_t>(column);
        carry = (carry >> 32U) + (column >> 32U);
        upperCarry = (upperCarry >> 32U) + (mantissa >> 32U) * digits;
    }
    const auto part = [&](std::size_t k) { return turn[k] << 2U | turn[k + 1] >> 30U; };
    const auto signedPart = static_cast<std::int32_t>(part(0));
    const unsigned rightAngles = (turn[0] >> 30U) + (signedPart < 0 ? 1U : 0U);

    TwoPartNumber fraction = exactSum(signedPart * 0x1p-32, part(1) * 0x1p-64);
    fraction.low += part(2) * 0x1p-96 + part(3) * 0x1p-128;
    TwoPartNumber rest = exactProduct(fraction.high, halfPi);
    rest.low += fraction.high * halfPiRest + fraction.low * halfPi;
    if (x < 0) return {{-rest.high, -rest.low}, (4 - rightAngles) % 4};
    return {rest, rightAngles % 4};
}

ReducedAngle reduced(double x) {
    if (std::fabs(x) <= halfPi / 2) return {{x, 0.0}, 0};
    return std::fabs(x) <= largestNearAngle ? reducedNear(x) : reducedFar(x);
}

/// The series of sine and cosine about 0, for angles up to pi/4.
double sineOf(const TwoPartNumber& angle) {
    const auto [x, rest] = angle;
    const double z = x * x;
    const double series =
        polynomial(z, {1.0 / 355687428096000.0, -1.0 / 1307674368000.0, 1.0 / 6227020800.0, -1.0 / 39916800.0,
                       1.0 / 362880.0, -1.0 / 5040.0, 1.0 / 120.0, -1.0 / 6.0});
    return x + (rest * (1.0 - 0.5 * z) + x * z * series);
}

double cosineOf(const TwoPartNumber& angle) {
    const auto [x, rest] = angle;
    const double z = x * x;
    const double series = polynomial(z, {1.0 / 20922789888000.0, -1.0 / 87178291200.0, 1.0 / 479001600.0,
                                         -1.0 / 3628800.0, 1.0 / 40320.0, -1.0 / 720.0, 1.0 / 24.0});
    const double half = 0.5 * z;
    const double head = 1.0 - half;
    return head + (((1.0 - head) - half) + (z * z * series - x * rest));
}

/// The sine of an angle increased by a number of right angles.
double sineAhead(double x, unsigned rightAngles) {
    if (!std::isfinite(x)) return notANumber;
    const ReducedAngle angle = reduced(x);
    const unsigned quadrant = angle.rightAngles + rightAngles;
    const double value = quadrant % 2 == 0 ? sineOf(angle.rest) : cosineOf(angle.rest);
    return quadrant / 2 % 2 == 0 ? value : -value;
}

}  // namespace

double sine(double x) { return x == 0 ? x : sineAhead(x, 0); }

double cosine(double x) { return sineAhead(x, 1); }

/// With t = (x - c) / (1 + x c), the arc tangent of x is the sum of those of c and t.
double arcTangent(double x) {
    struct Centre {
        double tangent;
        TwoPartNumber angle;
    };
    // Each serves tangents from 3/4 to 3/2 times its own.
    constexpr std::array<Centre, 5> centres{{
        {0.25, {0x1.f5b75f92c80ddp-3, 0x1.8ab6e3cf7afbdp-57}},
        {0.5, {0x1.dac670561bb4fp-2, 0x1.a2b7f222f65e2p-56}},
        {1.0, {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55}},
        {2.0, {0x1.1b6e192ebbe44p+0, 0x1.b1b466a88828ep-54}},
        {4.0, {0x1.5368c951e9cfdp+0, -0x1.96f47948a99f1p-54}},
    }};
    const double size = std::fabs(x);
    TwoPartNumber centre{0.0, 0.0};
    double t = size;
    if (size >= 6.0) {
        centre = {halfPi, halfPiRest};
        t = -1.0 / size;
    } else if (size >= 0.1875) {
        std::size_t k = 0;
        while (size >= 1.5 * centres[k].tangent) ++k;
        centre = centres[k].angle;
        t = (size - centres[k].tangent) / (1.0 + size * centres[k].tangent);
    }
    const double z = t * t;
    const double series =
        polynomial(z, {1.0 / 27, -1.0 / 25, 1.0 / 23, -1.0 / 21, 1.0 / 19, -1.0 / 17, 1.0 / 15, -1.0 / 13,
                       1.0 / 11, -1.0 / 9, 1.0 / 7, -1.0 / 5, 1.0 / 3});
    const double angle = centre.high + (t - (t * z * series - centre.low));
    return std::copysign(angle, x);
}

/// x is m 2^k with m about 1. With f = m - 1 and s = f / (2 + f), the logarithm of m is 2 (s + s^3 / 3 + s^5 / 5 ...),
/// and 2 s is f - f^2 / 2 + s f^2 / 2, of which the first term is exact.
double logarithm(double x) {
    constexpr double logarithmOf2High = 6.93147180369123816490e-01;  // the last 32 bits are 0
    constexpr double logarithmOf2Low = 1.90821492927058770002e-10;
    constexpr double smallestNormal = std::numeric_limits<double>::min();
    constexpr double rootOf2 = 1.4142135623730951;
    if (std::isnan(x) || x < 0) return notANumber;
    if (x == 0) return -infinity;
    if (x == infinity) return infinity;
    const bool isTiny = x < smallestNormal;
    const auto bits = std::bit_cast<std::uint64_t>(isTiny ? x * 0x1p54 : x);
    int k = static_cast<int>(bits >> 52U) - 1023 - (isTiny ? 54 : 0);
    auto m = std::bit_cast<double>((bits & 0xFFFFFFFFFFFFFU) | 0x3FF0000000000000U);
    if (m > rootOf2) {
        m *= 0.5;
        ++k;
    }
    const double f = m - 1.0;
    const double s = f / (2.0 + f);
    const double z = s * s;
    const double series = z * polynomial(z, {2.0 / 23, 2.0 / 21, 2.0 / 19, 2.0 / 17, 2.0 / 15, 2.0 / 13,
                                             2.0 / 11, 2.0 / 9, 2.0 / 7, 2.0 / 5, 2.0 / 3});
    const double half = 0.5 * f * f;
    const double small = half - (s * (half + series) + k * logarithmOf2Low);
    return k * logarithmOf2High - (small - f);
}

}  // namespace velmar::base
