#include "commands/fileUses.h"

#include <algorithm>
#include <array>

namespace velmar::tool {
namespace {

constexpr std::array uses{
    FileUses{FileContent::grid, describeGrid, chartGrid},
    FileUses{FileContent::wind, describeWind, chartWind},
    FileUses{FileContent::byteImage, describeByteImage, chartByteImage},
    FileUses{FileContent::stations, describeStations, chartStations},
    FileUses{FileContent::soundings, describeSoundings, chartSoundings},
    FileUses{FileContent::mapLines, describeMap, chartMap},
};

}  // namespace

const FileUses& usesOf(const FileHead& head) {
    return *std::ranges::find(uses, head.kind.content, &FileUses::content);
}

}  // namespace velmar::tool
