#pragma once

#include "frame/file.h"

namespace velmar::frame {

/// Opens a diagnostic file to write it anew, as text. Its name is fixed, and anybody could have put something else
/// there, so it is opened only where nothing but a diagnostic file can be lost: not through a link, even one that leads
/// nowhere, not when the file has a second name, not when it is a pipe or a device, and not when it is the file
/// `beingRead`, however that is spelt. A host that waits at a pipe would wait for ever. Nothing then, or when it cannot
/// be opened.
OpenFile openDiagnosticFile(const char* name, const char* beingRead = nullptr);

}  // namespace velmar::frame
