#pragma once

#include <cstdio>

#include "analysis/analysisArea.h"

namespace velmar::analysis {

/// What the header of a grid file says about drawing.
struct DrawingHints {
    float interval;
    float startValue;
    float endValue;
};

/// Writes a grid file ("diamond" type 4) to a text stream and closes that. The title and the date are always
/// the same. Of a grid without values there is the header only.
void writeAnalysisGrid(std::FILE* file, const AnalysisArea& area, const float* values,
                       const DrawingHints& hints);

/// The same to a file of this name in the current directory; nothing when it cannot be opened.
void writeDiagnosticGrid(const char* name, const AnalysisArea& area, const float* values,
                         const DrawingHints& hints);

}  // namespace velmar::analysis
