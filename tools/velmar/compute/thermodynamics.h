#pragma once

namespace velmar::tool {

// Moist air. Temperatures are in degrees C, pressures in hPa, mixing ratios in kg of vapour per kg of dry air.

inline constexpr double zeroCelsius = 273.15;  ///< K

/// Over water, after Bolton (1980), equation 10; hPa. Good to 0.3 % from -35 to 35 degrees.
double saturationVapourPressure(double temperature);

/// Of air with this dew point.
double mixingRatio(double pressure, double dewPoint);

/// The inverse: the dew point at which air has a mixing ratio.
double dewPointOf(double pressure, double mixingRatio);

/// Dry air brought from one pressure to another.
double dryAdiabat(double temperature, double fromPressure, double toPressure);

/// Saturated air brought from one pressure to another, its water falling out: the pseudo-adiabat.
double moistAdiabat(double temperature, double fromPressure, double toPressure);

struct Condensation {
    double pressure;
    double temperature;
};

/// Where lifted air begins to condense: its temperature after Bolton (1980), equation 15.
Condensation liftingCondensationLevel(double pressure, double temperature, double dewPoint);

/// The temperature of air lifted to a lower pressure: dry to where it condenses, moist from there.
double liftedTemperature(double pressure, double temperature, double dewPoint, double toPressure);

}  // namespace velmar::tool
