#pragma once

#include <vector>

#include "base/records.h"
#include "base/scanner.h"

namespace velmar::files {

/// A file of soundings and its date.
struct SoundingFile {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    std::vector<base::Sounding> soundings;
};

/// Reads a file of soundings ("diamond" or "March" type 5) up to the first that is incomplete. Nothing is derived from
/// them. A file of another kind gives no soundings.
SoundingFile readSoundings(base::TextScanner& in);

}  // namespace velmar::files
