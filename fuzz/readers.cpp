// Every export that takes a path. The first 40 bytes of an input choose the export and its arguments, the others are
// the file. It stands in the current directory, where diagnostic files go too.

#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "areas.h"
#include "files/gridFile.h"
#include "layouts.h"
#include "levelCount.h"
#include "support/freshLibrary.h"

namespace {

using namespace velmar::fuzz;

/// The file of an input.
struct File {
    std::string_view text;
    const char* path = "input.000";
};

void write(const char* path, std::string_view text) {
    std::ofstream out(path, std::ios::binary);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    require(out.good(), "the current directory can be written");
}

void readGrid(const File& file, Input&) { walkGridFile(Block(readVelmar4(file.path))); }

/// Whether a grid file has very many levels, by its hints or by its values.
bool promisesVeryManyLevels(const File& file, velmar::contour::LevelMode mode, int count) {
    velmar::base::TextScanner in(file.text);
    auto header = velmar::files::readGridHeader(in);
    if (!header) return false;
    auto grid = velmar::files::readGridValues(in, header->field, {-6, -7});
    return grid &&
           hasVeryManyLevels(grid->view(), missing,
                             {mode, header->startValue, header->endValue, header->interval, {}, count});
}

void readContours(const File& file, Input& in) {
    const int mode = in.below(4) - (in.oneIn(8) ? 2 : 0);
    const std::vector<float> levels = in.levels(6);
    const int count = mode == 1 ? in.below(60) - 10 : static_cast<int>(levels.size());
    const auto known = velmar::contour::levelMode(mode);
    if (known && mode != 2 && promisesVeryManyLevels(file, *known, count)) return;
    walkContours(Block(readCntrData(file.path, mode, count, in.oneIn(16) ? nullptr : levels.data())));
}

int someRows(Input& in) { return in.PickValueInArray({1, 1, 2, 3, 0, -1, INT_MAX, INT_MIN}); }

void readShading(const File& file, Input& in) {
    if (promisesVeryManyLevels(file, velmar::contour::LevelMode::interval, 0)) return;
    walkShading(Block(readCntrShadData(file.path, 0, someRows(in))));
}

/// Large images are only slow: they are shaded at 256 levels.
void readByteShading(const File& file, Input& in) {
    if (file.text.size() > 800) return;
    const int rows = someRows(in);
    const int mode = in.below(2);
    walkShading(Block(readByteShadData(file.path, rows, mode, in.number(0, 255))));
}

void analyseReports(const File& file, Input& in) {
    const int method = in.below(4) - 1;
    const int element = in.below(6) - 1;
    const Area a(in);
    walkAll(Block(OAReadVelmar1(file.path, method, element, a.autoBounds, a.startLon, a.endLon, a.startLat,
                                a.endLat, a.latStep, a.lonStep, in.number(-1, 9))));
}

void analyseStationValues(const File& file, Input& in) {
    const int method = in.below(4) - 1;
    const Area a(in);
    const Block block(OAReadVelmar3(file.path, method, a.autoBounds, a.startLon, a.endLon, a.startLat,
                                    a.endLat, a.latStep, a.lonStep, in.number(-1, 9)));
    if (!isResult(block)) return;
    Walk walk(block);
    requireLength(block, walk.next());
    const std::size_t stations = walk.count();
    const int nx = walk.extent();
    const Size size{nx, walk.extent()};
    walk.skip(6);
    walk.skip(walk.count());
    walk.skip(5 * stations + size.values());
    walk.end();
}

void flagReports(const File& file, Input& in) {
    const int element = in.below(4) - 1;
    const Area a(in);
    walkNearestField(Block(ReadVelmar1Tqq(file.path, 0, element, a.autoBounds, a.startLon, a.endLon,
                                          a.startLat, a.endLat, a.latStep, a.lonStep, in.number(-1, 9))));
}

void readWind(const File& file, Input&) {
    const Block block(readVelmarData11(file.path));
    if (!isResult(block)) return;
    Walk walk(block);
    walk.skip(13);
    skipGrid(walk, 0, 2);
    walk.end();
}

void drawWind(const File& file, Input& in) {
    walkStreamlines(Block(readWindData(file.path, in.oneIn(4) ? in.oddInteger() : in.below(12))));
}

void placeWind(const File& file, Input& in) {
    std::array<float, 4> place{};
    Size size{};
    float* const out = in.oneIn(8) ? nullptr : place.data();
    const Block block(readWindDivVor(file.path, 0, out, out, &place[2], &place[3], &size.nx, &size.ny));
    if (!isResult(block)) return;
    walkBare(block, size.values());
    // The place of this wind is that of the next drawing.
    const std::array<float, 4> wind{1, 2, 3, 4};
    walkStreamlines(
        Block(streamAnalyse(wind.data(), wind.data(), nullptr, 2, 2, 0, 0, 0, 0, nullptr, nullptr, 0, 5)));
}

/// Station files whose records are as wide, behind so many elements and a count.
template <auto reader, std::size_t before, std::size_t width>
void readReports(const File& file, Input&) {
    const Block block(reader(file.path));
    if (block == nullptr) return;
    Walk walk(block);
    walk.skip(before);
    const float records = walk.next();
    if (records > 0) walk.skip(static_cast<std::size_t>(records) * width);
    walk.end();
}

void readStationValues(const File& file, Input&) {
    const Block block(ReadVelmarData3(file.path));
    if (block == nullptr || lengthOf(block) == 1) return;
    Walk walk(block);
    walk.skip(5);
    const float valuesEach = walk.next();
    const std::size_t stations = walk.count();
    walk.skip(walk.count());
    if (stations > 0) walk.skip(stations * (4 + static_cast<std::size_t>(std::max(valuesEach, 0.0F))));
    walk.skip(2 * walk.count());
    walk.end();
}

template <auto reader>
void readPolyline(const File& file, Input&) {
    const Block block(reader(file.path));
    if (block == nullptr) return;
    Walk walk(block);
    requireLength(block, walk.next());
    walk.skip(4);
    walk.skip(2 * walk.count());
    walk.end();
}

void readMap(const File& file, Input& in) {
    const Block first(ReadMap9(file.path));
    if (first != nullptr && file.text.find("diamond") == std::string_view::npos) {
        require(first[0] == static_cast<float>(lengthOf(first) - 1), "the last index is not the block's");
        Walk walk(first);
        walk.skip(1);
        for (std::size_t left = walk.count(); left > 0; --left) {
            const std::size_t points = walk.count();
            walk.skip(2 + 2 * points);
        }
        walk.end();
    }
    walkAll(first);
    // Only the first call of a process returns lines, or the one behind a call that broke off.
    if (in.oneIn(2)) write(file.path, "March 9 again 0 0 0 0 0 0 0 0 0\n1 1 1 0 0 0 0 0 a\n1 2\n");
    walkAll(Block(ReadMap9(file.path)));
}

void readSoundings(const File& file, Input&) { readVelmarData5(file.path); }

/// The file is that of each of three times, or broken up into them. They lie around the end of a month.
void addRain(const File& file, Input& in) {
    const std::size_t part = in.oneIn(2) ? file.text.size() / 3 : 0;
    const std::array<const char*, 3> paths{"./08022920.000", "./08030102.000", "./08030108.000"};
    for (std::size_t k = 0; k < paths.size(); ++k)
        write(paths[k], part == 0 ? file.text : file.text.substr(k * part, part));
    const auto mostly = [&](int number) { return in.oneIn(16) ? in.oddInteger() : number; };
    const int year = mostly(in.PickValueInArray({2008, 8}));
    const int month = mostly(2);
    const int day = mostly(29);
    const int hour = mostly(in.PickValueInArray({14, 20}));
    const int endMonth = mostly(3);
    const int endHour = mostly(in.PickValueInArray({8, 2, 20, 5}));
    const int step = mostly(in.PickValueInArray({6, 12, 6, 24}));
    const Block block(
        DiscreteAdd(year, month, day, hour, 2008, endMonth, 1, endHour, in.oneIn(16) ? nullptr : ".", step));
    if (block == nullptr) return;
    requireLength(block, block[0]);
    require(lengthOf(block) % 5 == 1, "a station has five elements");
    walkAll(block);
}

void walkNamed(const char* name) {
    int points = -1;
    const Block all(getAllRegionBoundaryByName(name, &points));
    if (all == nullptr) return;
    Walk walk(all);
    for (std::size_t left = walk.count(); left > 0; --left) walk.skip(2 * walk.count());
    walk.end();
    int first = -1;
    getSingleRegionBoundaryByName(name, &first);
    require(first <= points, "a name has less points than its first region");
}

void findRegions(const File& file, Input& in) {
    readRegionData(file.path);
    require(readRegionData(file.path) == -1 || velmar::capi::state().regions, "regions are loaded once");
    for (int index = -1; index < 6; ++index) {
        int count = -1;
        const float* const points = getSingleRegionBoundaryByOrder(index, &count);
        require(points != nullptr || count == 0, "a region without points has some");
        for (int k = 0; k < std::min(count, 20); ++k)
            walkNamed(countyNameFromRegion(points[2 * k] - static_cast<float>(k % 3) / 2, points[2 * k + 1]));
    }
    const float x = in.number(0, 360);
    walkNamed(countyNameFromRegion(x, in.number(-90, 90)));
    walkNamed(nullptr);
}

/// The script that makes the seeds (fuzz/seeds) knows this order.
constexpr std::array readers{readGrid,
                             readContours,
                             readShading,
                             readByteShading,
                             analyseReports,
                             analyseStationValues,
                             flagReports,
                             readWind,
                             drawWind,
                             placeWind,
                             readReports<ReadVelmarData1, 4, 26>,
                             readReports<ReadVelmarData2, 5, 10>,
                             readReports<ReadVelmarData8, 5, 12>,
                             readReports<ReadVelmarData16, 0, 4>,
                             readStationValues,
                             readPolyline<ReadVelmarData780>,
                             readPolyline<ReadVelmarData777>,
                             readMap,
                             readSoundings,
                             addRain,
                             findRegions};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t argumentBytes = 40;
    if (size < argumentBytes) return 0;
    velmar::test::resetLibrary();
    const File file{{reinterpret_cast<const char*>(data) + argumentBytes, size - argumentBytes}};
    write(file.path, file.text);
    Input in(data, argumentBytes);
    const std::size_t reader = in.ConsumeIntegral<std::uint8_t>() % readers.size();
    chooseTexts(in);
    readers[reader](file, in);
    return 0;
}
