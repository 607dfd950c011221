#pragma once

#include <cstddef>
#include <span>

#include "base/scanner.h"

namespace velmar::files {

/// Where the values of a field go, in the order of the file: row by row.
struct FieldRows {
    float* first;           ///< the first value of the first row
    std::ptrdiff_t stride;  ///< from a row to the next one; negative where the file begins with the last row
    std::size_t columns;
    std::size_t rows;
};

/// Rows one behind the other.
inline FieldRows rowsOf(std::span<float> values, std::size_t columns) {
    return {values.data(), static_cast<std::ptrdiff_t>(columns), columns,
            columns == 0 ? 0 : values.size() / columns};
}

/// Reads the values of a field; returns whether all are there.
bool readFieldValues(base::TextScanner& in, const FieldRows& field);

}  // namespace velmar::files
