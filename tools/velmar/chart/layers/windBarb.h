#pragma once

#include "chart/paper/paper.h"

namespace velmar::tool {

// Winds as the WMO's Manual on the Global Data-processing and Forecasting System has them plotted: a shaft from
// the foot to where the wind comes from, with a half barb for 2.5 m/s, a barb for 5 and a pennant for 25, on its
// clockwise side in the northern hemisphere, on the other in the southern. Speeds are rounded to 2.5 m/s; below
// 1.25 m/s the wind is calm, a circle round the foot.

/// Draws a wind in the current colour.
///
///   fromDegrees  where the wind comes from, degrees clockwise from the top of the paper
///   length       of the shaft; one with more pennants than find room is longer
void drawWindBarb(cairo_t* ink, PaperPoint foot, double fromDegrees, double metresPerSecond, bool southern,
                  double length);

/// The place that drawWindBarb takes.
TurnedBox windBarbBox(PaperPoint foot, double fromDegrees, double metresPerSecond, bool southern,
                      double length);

}  // namespace velmar::tool
