#include "write/jsonText.h"

#include <nlohmann/json.hpp>

namespace velmar::tool {

std::string jsonText(const nlohmann::ordered_json& answer) {
    return answer.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace velmar::tool
