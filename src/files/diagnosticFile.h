#pragma once

#include "files/file.h"

namespace velmar::files {

/// Opens a diagnostic file to write it anew, as text. Its name is fixed, and anybody may have put something else there.
/// So it is opened only where nothing but an older one can be lost: not through a link, even a dangling one, not when
/// the file has a second name, and not when it is the file `beingRead`, however that is spelt. Pipes and devices are
/// not opened either: a host could wait there for ever. Null in these cases, or when the file cannot be opened.
OpenFile openDiagnosticFile(const char* name, const char* beingRead = nullptr);

}  // namespace velmar::files
