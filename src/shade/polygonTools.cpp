#include "shade/polygonTools.h"

namespace velmar::shade {

PolygonToolsState& polygonTools() {
    static PolygonToolsState state;
    return state;
}

}  // namespace velmar::shade
