#pragma once

#include <string_view>

#include "frame/block.h"

namespace velmar::formats {

/// The kinds of files of one line: type 780, and types 777 and 778, which have three more items in front.
enum class PolylineKind { type780, type777 };

/// Reads a file of one line, as ReadVelmarData780 and ReadVelmarData777 describe it; nothing when that fails.
frame::ResultBlock readPolylineFile(const char* path, PolylineKind kind);

/// The same of the text of a file.
frame::ResultBlock readPolyline(std::string_view text, PolylineKind kind);

}  // namespace velmar::formats
