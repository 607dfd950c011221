#include "describe/description.h"

#include <fmt/format.h>

#include <iterator>

#include "common/text.h"

namespace velmar::tool {

void FileDescription::addLine(std::string_view name, std::string_view value) {
    fmt::format_to(std::back_inserter(text), "  {:<12}{}\n", name, value);
}

void FileDescription::addRange(std::string_view name, float smallest, float largest) {
    json[std::string(name)] = {{"smallest", writtenNumber(smallest)}, {"largest", writtenNumber(largest)}};
    addLine(name, fmt::format("{} to {}", plainNumber(smallest), plainNumber(largest)));
}

}  // namespace velmar::tool
