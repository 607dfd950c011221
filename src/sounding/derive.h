#pragma once

#include "base/records.h"

namespace velmar::sounding {

/// Temperatures and dew points of standard levels. A sounding that lacks a level deliberately uses what the sounding
/// before it had there.
struct StandardLevels {
    float temperature850 = 0;
    float dewPoint850 = 0;
    float temperature700 = 0;
    float dewPoint700 = 0;
    float temperature500 = 0;

    void note(const base::SoundingLevel& level);
};

/// Derives freezing level, K index (George 1960) and total totals (Miller 1967) of a sounding, as far as its levels
/// allow.
void derive(base::Sounding& sounding, StandardLevels& standard);

}  // namespace velmar::sounding
