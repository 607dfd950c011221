#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "base/points.h"

namespace velmar::files {

/// The kinds of files of one line: type 780, and types 777 and 778, which have three more items in front.
enum class PolylineKind { type780, type777 };

/// A line and the integers in front of it; those that do not convert are 0.
struct Polyline {
    std::array<int, 4> header{};
    std::vector<base::LonLat> points;
};

/// Reads the text of a file of one line; nullopt when its header or a point is missing.
std::optional<Polyline> readPolyline(std::string_view text, PolylineKind kind);

}  // namespace velmar::files
