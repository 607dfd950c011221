#pragma once

#include "commands/fileCharts.h"
#include "describe/description.h"

namespace velmar::tool {

/// What the program does with files of one content, whatever their kind.
struct FileUses {
    FileContent content;
    void (*describe)(const FileHead& head, FileDescription& description);
    void (*chart)(const ChartJob& chart);
};

const FileUses& usesOf(const FileHead& head);

}  // namespace velmar::tool
