#pragma once

#include "chart/fill.h"
#include "chart/paper/page.h"

namespace velmar::tool {

/// Paints the bands between the levels, from the lowest level up.
class FillLayer : public Layer {
public:
    explicit FillLayer(const Fill& fill) : fill_(fill) {}
    void draw(Page& page) const override;

private:
    const Fill& fill_;
};

}  // namespace velmar::tool
