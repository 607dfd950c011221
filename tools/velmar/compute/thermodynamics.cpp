#include "compute/thermodynamics.h"

#include <algorithm>
#include <cmath>

namespace velmar::tool {
namespace {

constexpr double gasConstant = 287.05;   // of dry air, J/(kg K)
constexpr double heatCapacity = 1005.7;  // of dry air at constant pressure, J/(kg K)
constexpr double kappa = gasConstant / heatCapacity;
constexpr double massRatio = 0.622;  // of water vapour to dry air

/// J/kg; Bolton (1980), equation 2.
double heatOfVaporisation(double temperature) { return 2.501e6 - 2370 * temperature; }

/// Change of the temperature of saturated air per change of the logarithm of pressure, K.
double moistSlope(double temperature, double logarithm) {
    const double kelvin = temperature + zeroCelsius;
    const double heat = heatOfVaporisation(temperature);
    const double vapour = mixingRatio(std::exp(logarithm), temperature);
    return (gasConstant * kelvin + heat * vapour) /
           (heatCapacity + heat * heat * vapour * massRatio / (gasConstant * kelvin * kelvin));
}

}  // namespace

double saturationVapourPressure(double temperature) {
    return 6.112 * std::exp(17.67 * temperature / (temperature + 243.5));
}

double mixingRatio(double pressure, double dewPoint) {
    // Vapour is never more than a part of the air, whatever a file says.
    const double vapour = std::min(saturationVapourPressure(dewPoint), 0.9 * pressure);
    return massRatio * vapour / (pressure - vapour);
}

double dewPointOf(double pressure, double mixingRatio) {
    const double logarithm = std::log(pressure * mixingRatio / (massRatio + mixingRatio) / 6.112);
    return 243.5 * logarithm / (17.67 - logarithm);
}

double dryAdiabat(double temperature, double fromPressure, double toPressure) {
    return (temperature + zeroCelsius) * std::pow(toPressure / fromPressure, kappa) - zeroCelsius;
}

double moistAdiabat(double temperature, double fromPressure, double toPressure) {
    constexpr double longestStep = 0.02;
    const double whole = std::log(toPressure / fromPressure);
    const int steps = std::max(1, static_cast<int>(std::ceil(std::fabs(whole) / longestStep)));
    const double step = whole / steps;
    double logarithm = std::log(fromPressure);
    for (int k = 0; k < steps; ++k, logarithm += step) {
        const double middle = temperature + step / 2 * moistSlope(temperature, logarithm);
        temperature += step * moistSlope(middle, logarithm + step / 2);
    }
    return temperature;
}

Condensation liftingCondensationLevel(double pressure, double temperature, double dewPoint) {
    const double kelvin = temperature + zeroCelsius;
    const double dewKelvin = std::min(dewPoint, temperature) + zeroCelsius;
    constexpr double offset = 56;
    const double level = 1 / (1 / (dewKelvin - offset) + std::log(kelvin / dewKelvin) / 800) + offset;
    return {pressure * std::pow(level / kelvin, 1 / kappa), level - zeroCelsius};
}

double liftedTemperature(double pressure, double temperature, double dewPoint, double toPressure) {
    const Condensation condensation = liftingCondensationLevel(pressure, temperature, dewPoint);
    if (condensation.pressure <= toPressure) return dryAdiabat(temperature, pressure, toPressure);
    return moistAdiabat(condensation.temperature, condensation.pressure, toPressure);
}

}  // namespace velmar::tool
