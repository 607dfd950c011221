#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "chart/paper/page.h"
#include "read/lineMap.h"

namespace velmar::tool {

/// Regions in a light colour.
class RegionLayer : public Layer {
public:
    explicit RegionLayer(const LineMap& map) : map_(map) {}
    void draw(Page& page) const override;

private:
    const LineMap& map_;
};

/// The names of as many regions as have room for theirs, the largest before others. A name is written once,
/// however many regions bear it.
class RegionNameLayer : public Layer {
public:
    explicit RegionNameLayer(const LineMap& map) : map_(map) {}
    void place(Page& page) override;
    void draw(Page& page) const override;
    std::string remark() const override;

private:
    struct Name {
        std::string_view text;
        PaperPoint center;
        double letterSize;
    };
    bool placeName(Page& page, std::string_view name, const std::vector<PaperPoint>& outline);

    const LineMap& map_;
    std::vector<Name> names_;
    std::size_t visible_ = 0;  ///< different names of regions that can be seen
};

}  // namespace velmar::tool
