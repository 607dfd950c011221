#pragma once

#include <string>
#include <string_view>

#include "read/fileHead.h"
#include "write/geoJson.h"

namespace velmar::tool {

/// What is in a file, as the info command says it in one form or the other.
struct FileDescription {
    Json json;
    std::string text;
    std::string notice;  ///< what is wrong with the file; empty when nothing is

    /// Adds a line of text: a name and what it is.
    void addLine(std::string_view name, std::string_view value);
    /// Adds a range of values, of this name in both forms.
    void addRange(std::string_view name, float smallest, float largest);
};

// Each reads a file of its kind and adds what is in it.
void describeGrid(const FileHead& head, FileDescription& description);
void describeWind(const FileHead& head, FileDescription& description);
void describeByteImage(const FileHead& head, FileDescription& description);
void describeStations(const FileHead& head, FileDescription& description);
void describeSoundings(const FileHead& head, FileDescription& description);
void describeMap(const FileHead& head, FileDescription& description);

}  // namespace velmar::tool
