#pragma once

#include <optional>

#include "read/byteImageFile.h"

namespace velmar::tool {

/// Reads a byte image anywhere. The value of a pixel stands for the area around its place, half a step wide
/// on each side.
class ImageSampler {
public:
    explicit ImageSampler(const ByteImageFile& image);

    /// The value at a place: between four pixels with values in proportion to their distances, beside others
    /// that of the nearest pixel, so that nothing is made up where there is no picture.
    std::optional<float> at(double longitude, double latitude) const;

private:
    float pixel(int column, int row) const;

    const ByteImageFile& image_;
    double columnsRoundGlobe_;
    bool wraps_;
};

}  // namespace velmar::tool
