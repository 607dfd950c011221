#pragma once

#include <optional>
#include <string_view>

#include "base/scanner.h"

namespace velmar::files {

/// How the files of the family begin. The texts are views into that of the file, in GBK.
struct FirstLine {
    std::string_view keyword;
    int type;
    std::string_view title;
};

/// Nullopt when one of the three is missing.
inline std::optional<FirstLine> readFirstLine(base::TextScanner& in) {
    FirstLine line{};
    if (base::scan(in, line.keyword, line.type, line.title) < 3) return std::nullopt;
    return line;
}

}  // namespace velmar::files
