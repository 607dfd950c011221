#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace velmar::tool {

/// An answer in JSON, laid out for people. Bytes that are not UTF-8, as names of files can have, become U+FFFD.
std::string jsonText(const nlohmann::ordered_json& answer);

}  // namespace velmar::tool
