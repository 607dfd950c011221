#include <cstdio>
#include <optional>
#include <string_view>

#include "base/messages.h"
#include "base/progress.h"
#include "capi/barrier.h"
#include "capi/state.h"
#include "files/file.h"
#include "files/soundings.h"
#include "sounding/derive.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

files::SoundingFile readSoundings(const char* path) {
    const std::optional<files::FileText> file = files::readWholeFile(path);
    if (!file) {
        std::fputs(base::messages::cannotOpenMapFile, stderr);
        return {};
    }
    base::progress(base::messages::readingSoundings, {std::string_view(path)});
    base::TextScanner in(file->view());
    files::SoundingFile result = files::readSoundings(in);
    sounding::StandardLevels standard;
    for (base::Sounding& sounding : result.soundings) {
        base::progress(base::messages::derivingSounding, {sounding.number});
        sounding::derive(sounding, standard);
    }
    return result;
}

}  // namespace
}  // namespace velmar::capi

int readVelmarData5(const char* path) noexcept {
    using namespace velmar::capi;
    return guarded(0, [&] {
        state().soundings = readSoundings(path);
        return 0;
    });
}
