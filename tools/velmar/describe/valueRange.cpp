#include "describe/valueRange.h"

#include <fmt/format.h>

#include "cli/text.h"

namespace velmar::tool {

Json rangeJson(const ValueRange& range) {
    return {{"smallest", writtenNumber(range.smallest)}, {"largest", writtenNumber(range.largest)}};
}

std::string rangeText(const ValueRange& range) {
    return fmt::format("{} to {}", plainNumber(range.smallest), plainNumber(range.largest));
}

}  // namespace velmar::tool
