#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "chart/paper/mapFrame.h"
#include "chart/paper/paper.h"

namespace velmar::tool {

/// The places on a map that labels and symbols have taken.
class TakenPlaces {
public:
    bool isFree(const TurnedBox& box) const {
        return std::ranges::none_of(boxes_, [&](const TurnedBox& other) { return overlap(box, other); });
    }
    void take(const TurnedBox& box) { boxes_.push_back(box); }

private:
    std::vector<TurnedBox> boxes_;
};

struct Page {
    cairo_t* ink;
    MapFrame map;
    TakenPlaces taken;
};

/// A part of the map's picture. A chart is a list of layers, painted in the list's order. Before anything is
/// painted, layers take the places of their labels in the reverse order: what lies on top chooses first.
class Layer {
public:
    virtual ~Layer() = default;
    virtual void place(Page&) {}
    virtual void draw(Page& page) const = 0;
    /// What the caption should say of a layer that has taken its places: how much of it found one.
    virtual std::string remark() const { return {}; }
};

using Layers = std::vector<std::unique_ptr<Layer>>;

}  // namespace velmar::tool
