#pragma once

#include "base/sounding.h"

namespace velmar::sounding {

/// Temperatures and dew points of standard levels. Those of one sounding deliberately stay for the next that lacks the
/// level.
struct StandardLevels {
    float temperature850 = 0;
    float dewPoint850 = 0;
    float temperature700 = 0;
    float dewPoint700 = 0;
    float temperature500 = 0;

    void note(const base::SoundingLevel& level);
};

/// Derives freezing level, K index (George 1960) and total totals (Miller 1967) of a sounding, as far as its levels give
/// them.
void derive(base::Sounding& sounding, StandardLevels& standard);

}  // namespace velmar::sounding
