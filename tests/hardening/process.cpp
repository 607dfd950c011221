#include <filesystem>
#include <iterator>

#include "calls.h"
#include "contour/state.h"
#include "formats/state.h"
#include "frame/state.h"
#include "geometry/state.h"
#include "shade/polygonTools.h"
#include "shade/state.h"
#include "wind/state.h"

namespace velmar::test {

void forgetAll() {
    contour::state() = {};
    formats::state() = {};
    frame::state() = {};
    geometry::state() = {};
    shade::state() = {};
    shade::polygonTools() = {};
    wind::state() = {};
}

std::size_t openFiles() {
    const std::filesystem::directory_iterator entries("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

}  // namespace velmar::test
