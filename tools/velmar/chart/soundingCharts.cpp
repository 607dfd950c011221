#include "chart/soundingCharts.h"

#include <fmt/format.h>

#include <filesystem>
#include <map>

#include "chart/soundingChart.h"
#include "cli/callFiles.h"
#include "cli/problem.h"
#include "read/soundingFile.h"

namespace velmar::tool {
namespace {

SoundingFile withOnly(const SoundingFile& file, const Sounding& sounding) {
    return {.title = file.title, .time = file.time, .promised = 1, .soundings = {sounding}};
}

/// A name for the picture of each sounding. Further soundings of one station are counted from 2.
std::vector<std::string> pictureNames(const Job& job, const SoundingFile& file) {
    const std::filesystem::path output(job.output);
    std::map<int, int> seen;
    std::vector<std::string> names;
    for (const Sounding& sounding : file.soundings) {
        const int count = ++seen[sounding.number];
        const std::string name = fmt::format("{}_{}{}.{}", output.stem().string(), sounding.number,
                                             count > 1 ? fmt::format("_{}", count) : "", job.format);
        names.push_back((output.parent_path() / name).string());
    }
    return names;
}

void drawIntoFolder(const Job& job, const SoundingFile& file, const std::optional<PaperSize>& size,
                    CallFiles& files, Reporter& reporter) {
    const std::vector<std::string> names = pictureNames(job, file);
    std::vector<std::string> pictures;
    for (const Sounding& sounding : file.soundings)
        pictures.push_back(drawSoundings(withOnly(file, sounding), size, job.format));
    reporter.awaitTurn();
    for (const std::string& name : names) files.claim(name, job.input);
    for (std::size_t k = 0; k < names.size(); ++k) writeOutput(names[k], pictures[k]);
}

}  // namespace

void chartSoundings(const Job& job, const FileHead& head, const SoundingChartRequest& request,
                    CallFiles& files, Reporter& reporter) {
    SoundingFile file = readSoundingFile(head);
    reporter.tell(job.input, file.notice());
    if (request.station) keepStation(file, *request.station);
    if (file.soundings.empty()) throw Problem("it has no sounding that can be read");
    if (job.format == "pdf") return writeOutput(job.output, drawSoundings(file, request.size, job.format));
    if (request.intoFolder) return drawIntoFolder(job, file, request.size, files, reporter);
    const Sounding& first = file.soundings.front();
    if (file.soundings.size() > 1)
        reporter.tell(
            job.input,
            fmt::format("this is station {}, the first of {} soundings; --station chooses another, a "
                        "pdf or --out-dir takes all",
                        first.number, file.soundings.size()));
    writeOutput(job.output, drawSoundings(withOnly(file, first), request.size, job.format));
}

}  // namespace velmar::tool
