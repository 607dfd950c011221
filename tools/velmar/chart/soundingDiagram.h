#pragma once

#include "chart/paper/paper.h"

namespace velmar::tool {

/// A skew-T log-p diagram on paper: the logarithm of pressure upwards, isotherms rising to the right.
struct SoundingDiagram {
    PaperBox box;

    static constexpr double lowestPressure = 100;  ///< hPa, at the top
    static constexpr double highestPressure = 1050;
    // Temperatures at the ends of the lower edge, degrees C.
    static constexpr double coldest = -45;
    static constexpr double warmest = 45;

    double height(double pressure) const;
    PaperPoint toPaper(double pressure, double temperature) const;
    bool shows(double pressure) const { return pressure >= lowestPressure && pressure <= highestPressure; }
};

/// Draws the background: isobars, isotherms, dry and moist adiabats and lines of constant mixing ratio, and their
/// figures.
void drawDiagram(cairo_t* ink, const SoundingDiagram& diagram);

/// Draws the key of the lines, from a place to the right and down; drawDiagram's and those of the sounding.
void drawDiagramKey(cairo_t* ink, PaperPoint place);

// Lines of the sounding.
inline constexpr Colour temperatureRed{0.82, 0.05, 0.05};
inline constexpr Colour dewPointGreen{0.0, 0.5, 0.15};
inline constexpr double soundingLineWidth = 2.6;

}  // namespace velmar::tool
