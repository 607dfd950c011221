#pragma once

#include <optional>

#include "chart/paper/paper.h"
#include "cli/jobs.h"
#include "read/fileHead.h"

namespace velmar::tool {

struct SoundingChartRequest {
    std::optional<int> station;  ///< the number of the one to be drawn
    std::optional<PaperSize> size;
    bool intoFolder;  ///< where there is room for a file a station
};

/// Draws a file of soundings and writes the charts: a pdf has a page a station, a folder gets a picture a station,
/// named by its number; a single picture is that of the first station. The pictures in a folder are claimed.
void chartSoundings(const Job& job, const FileHead& head, const SoundingChartRequest& request,
                    CallFiles& files, Reporter& reporter);

}  // namespace velmar::tool
