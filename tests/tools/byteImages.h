#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>

/// A small byte image file: its header and a byte for each column and row.
struct ByteImageText {
    std::string head = "March 13 CLOUD 2009 9 21 6 0";
    int kind = 1;
    int nx = 12;
    int ny = 10;
    double dx = 1;
    double dy = -1;
    double west = 100;
    double first = 40;  ///< latitude of the first row
    std::function<int(int, int)> value = [](int column, int row) { return 10 * column + 3 * row; };

    std::string text() const {
        // The end longitude is one column too far, as in many files.
        std::string bytes = fmt::format("{} {} 1 {} {} {} {} {} {} {} {} 0 0", head, kind, nx, ny, dx, west,
                                        first, west + nx * dx, first + (ny - 1) * dy, dy);
        bytes.resize(149, ' ');
        for (int j = 0; j < ny; ++j)
            for (int i = 0; i < nx; ++i) bytes += static_cast<char>(value(i, j));
        return bytes;
    }
};
