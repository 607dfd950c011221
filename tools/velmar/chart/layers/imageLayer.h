#pragma once

#include "chart/paper/page.h"
#include "read/byteImageFile.h"

namespace velmar::tool {

/// The byte that is painted white; 0 is black.
inline constexpr int brightestByte = 254;

/// A byte image in greys, and the grey of missing data where it has no picture.
class ImageLayer : public Layer {
public:
    explicit ImageLayer(const ByteImageFile& image) : image_(image) {}
    void draw(Page& page) const override;

private:
    const ByteImageFile& image_;
};

}  // namespace velmar::tool
