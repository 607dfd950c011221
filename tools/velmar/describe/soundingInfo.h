#pragma once

#include <string>

#include "read/soundingFile.h"
#include "write/geoJson.h"

namespace velmar::tool {

// What is in a file of soundings, as the info command says it.
void addSoundingsJson(const SoundingFile& file, Json& json);
void addSoundingsText(const SoundingFile& file, std::string& text);

}  // namespace velmar::tool
