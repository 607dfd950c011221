#pragma once

#include "analysis/analysisArea.h"
#include "frame/file.h"

namespace velmar::analysis {

/// What the header of a grid file says about drawing.
struct DrawingHints {
    float interval;
    float startValue;
    float endValue;
};

/// Writes a grid file ("diamond" type 4) to a text stream and closes that. The title and the date are always
/// the same. Of a grid without values there is the header only.
void writeAnalysisGrid(frame::OpenFile file, const AnalysisArea& area, const float* values,
                       const DrawingHints& hints);

/// The same to a diagnostic file of this name in the current directory, where one may be written.
///
///   beingRead  the file that the grid is made from; null when it is made from none
void writeDiagnosticGrid(const char* name, const char* beingRead, const AnalysisArea& area,
                         const float* values, const DrawingHints& hints);

}  // namespace velmar::analysis
