#pragma once

#include <fmt/format.h>

#include <iterator>
#include <string>
#include <string_view>

namespace velmar::tool {

/// Adds a line of a description: a name and what it is.
inline void addLine(std::string& text, std::string_view name, const std::string& value) {
    fmt::format_to(std::back_inserter(text), "  {:<12}{}\n", name, value);
}

}  // namespace velmar::tool
