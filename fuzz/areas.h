#pragma once

#include "input.h"

namespace velmar::fuzz {

/// Bounds and steps of an analysis. Hosts may ask for more than a machine has; here grids stay small.
struct Area {
    int autoBounds;
    float startLon, endLon, startLat, endLat, latStep, lonStep;

    explicit Area(Input& in)
        : autoBounds(in.below(2)),
          startLon(in.number(-180, 360)),
          endLon(in.oneIn(3) ? in.number(-180, 360) : startLon + in.between(0, 60)),
          startLat(in.number(-90, 90)),
          endLat(in.oneIn(3) ? in.number(-90, 90) : startLat + in.between(0, 60)),
          latStep(in.PickValueInArray({8.0F, 2.5F, 10.1F, 33.3F, -7.0F, infinity, notANumber})),
          lonStep(in.PickValueInArray({8.0F, 2.5F, 10.1F, 33.3F, -7.0F, infinity, notANumber})) {
        constexpr float most = 2000;
        const float lonSpan = autoBounds != 0 ? 362 : endLon - startLon;
        const float latSpan = autoBounds != 0 ? 182 : endLat - startLat;
        if (!((lonSpan / lonStep + 1) * (latSpan / latStep + 1) > most)) return;
        latStep = latSpan / 20;
        lonStep = lonSpan / 30;
    }
};

}  // namespace velmar::fuzz
