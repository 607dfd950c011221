#include "calls.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "capi/state.h"
#include "faults.h"
#include "parts.h"
#include "support/files.h"

namespace velmar::test {
namespace {

/// An export that reads a file.
template <float* (*read)(const char*) noexcept>
Seen blockOfFile(const Input& in) {
    return block([&] { return read(in.path); });
}

template <auto release>
Seen releaseBlock(const Input&) {
    float* const block = gagexps(numbers.data(), nx, ny, 1, 1, 9999);
    faults::during([&] { release(block); });
    return "released";
}

/// An export that looks at regions. The file is read when the process has no regions yet.
template <class Export>
auto ofRegions(Export&& call) {
    readRegionData(sample("regions/africa_gbk.dat").c_str());
    return called(call);
}

Seen fill(const Input& in) {
    std::array<float, 24> points = star;
    float* const given = in.numbers == nullptr ? nullptr : points.data();
    int count = -1;
    float* const end = called([&] { return polygonfill(given, 12, 0, 0, 1, 1, &count); });
    if (end == given) return std::string("points ").append(std::to_string(count));
    if (end == nullptr) return std::string("null ").append(std::to_string(count));
    return taken(end - std::ptrdiff_t{2} * count) + std::to_string(count);
}

Seen clip(const Input& in) {
    std::array<float, 128> points{};
    std::copy(star.begin(), star.end(), points.begin());
    float* const given = in.numbers == nullptr ? nullptr : points.data();
    const int count = called([&] { return Clip(given, 0, 0, 1, 1, 12); });
    const bool asItWas = std::equal(star.begin(), star.end(), points.begin());
    return count == 0 && asItWas ? "0" : std::to_string(count) + bytes(points.data(), points.size());
}

Seen clipEdge(const Input& in) {
    const float* const given = in.numbers == nullptr ? nullptr : star.data();
    int count = -1;
    const Seen seen = block([&] { return SHClip(given, 0, 0, 1, 0, 12, &count); });
    return seen + ' ' + std::to_string(count);
}

Seen stationContours(const Input& in) {
    std::array<float, stationCount> values{};
    std::copy_n(numbers.begin(), stationCount, values.begin());
    float* const given = in.numbers == nullptr ? nullptr : values.data();
    return block([&] {
        return reinterpret_cast<float*>(
            SanJiao(lon.data(), lat.data(), given, levels.data(), stationCount, 2, 0, 0, 3));
    });
}

Seen greatCircle(const Input&) {
    std::array<float, 3> way{};
    faults::during([&] { FJJS2(116, 40, -74, 41, &way[0], &way[1], &way[2]); });
    return bytes(way.data(), way.size());
}

Seen sumOfArray(const Input& in) {
    std::array<int, 5> values{1, 2, 3, 4, 5};
    int* const given = in.numbers == nullptr ? nullptr : values.data();
    const int sum = called([&] { return TestArrayOfInts(given, 5); });
    return std::to_string(sum) + ' ' + std::to_string(values[4]);
}

Seen replaceArray(const Input& in) {
    auto* array = static_cast<int*>(std::calloc(5, sizeof(int)));
    int count = in.numbers == nullptr ? 0 : 3;
    array[0] = 1;
    const int sum =
        called([&] { return TestRefArrayOfInts(in.numbers == nullptr ? nullptr : &array, &count); });
    const Seen seen = std::to_string(sum) + ' ' + std::to_string(count) + ' ' + std::to_string(array[0]);
    std::free(array);
    return seen;
}

Seen windPlace(const Input& in) {
    std::array<float, 4> place{};
    std::array<int, 2> size{};
    return block([&] {
               return readWindDivVor(in.path, 0, &place[0], &place[1], &place[2], &place[3], &size[0],
                                     &size[1]);
           }) +
           (size[0] == 0 ? "" : bytes(place.data(), 4) + bytes(size.data(), 2));
}

Seen soundings(const Input& in) {
    const int result = called([&] { return readVelmarData5(in.path); });
    return std::to_string(result) + ' ' + std::to_string(capi::state().soundings.soundings.size());
}

/// One file, in whatever folder it lies.
Seen rain(const Input& in) {
    const std::string folder =
        in.path == nullptr ? "" : std::filesystem::path(in.path).parent_path().string();
    const char* const given = in.path == nullptr ? nullptr : folder.c_str();
    return block([&] { return DiscreteAdd(95, 3, 18, 2, 95, 3, 18, 8, given, 6); });
}

Seen boundary(const float* points, int count) {
    return points == nullptr ? "null" : bytes(points, 2 * static_cast<std::size_t>(count));
}

const char* nameOf(const Input& in) {
    return in.numbers == nullptr ? nullptr : capi::state().regions->nameOf(capi::state().regions->runs[1]);
}

Seen boundaryByOrder(const Input& in) {
    int count = -1;
    const int order = in.numbers == nullptr ? -1 : 2;
    const float* const points = ofRegions([&] { return getSingleRegionBoundaryByOrder(order, &count); });
    return boundary(points, count);
}

Seen boundaryByName(const Input& in) {
    int count = -1;
    const float* const points = ofRegions([&] { return getSingleRegionBoundaryByName(nameOf(in), &count); });
    return boundary(points, count);
}

template <auto combine>
float* differences(const Input& in) {
    return combine(in.numbers, in.numbers, nx, ny, 9999, 0, 0, 1, 1);
}

template <auto combine>
Seen untouched(const Input& in) {
    std::array<float, n> out{};
    const int result =
        called([&] { return combine(out.data(), in.numbers, in.numbers, nx, ny, 9999, 0, 0, 1, 1); });
    return std::to_string(result) + bytes(out.data(), out.size());
}

const Seen untouchedGrid = Seen("0").append(n * sizeof(float), '\0');

/// A call that gives a block of floats.
using Maker = float* (*)(const Input&);

Call ofFile(const char* name, const char* file, Seen refused, std::vector<Seen> noMemory, Maker make) {
    return {name, file, std::move(refused), std::move(noMemory),
            [make](const Input& in) { return block([&] { return make(in); }); }};
}

Call ofNumbers(const char* name, Maker make) { return ofFile(name, nullptr, "null", {"null"}, make); }

constexpr const char* reports = "stations/sfc_extra_95031902.000";
constexpr const char* values = "rain6h/95031808.000";
constexpr const char* grid = "grids/rh700_asia.000";
constexpr const char* wind = "winds/wind850_namerica.000";

}  // namespace

const std::vector<Call>& calls() {
    static const std::vector<Call> table{
        {"freecPointer", nullptr, "released", {"released"}, releaseBlock<freecPointer>},
        {"cntrFreeLineVar", nullptr, "released", {"released"}, releaseBlock<cntrFreeLineVar>},
        {"cntrShadFreeLineVar", nullptr, "released", {"released"}, releaseBlock<cntrShadFreeLineVar>},
        {"deleteMap9Ptr", nullptr, "released", {"released"}, releaseBlock<deleteMap9Ptr>},
        {"mySum",
         nullptr,
         "5",
         {"5"},
         [](const Input&) { return std::to_string(called([] { return mySum(2, 3, nullptr); })); }},
        {"TestArrayOfInts", nullptr, "0 5", {}, sumOfArray},
        {"TestRefArrayOfInts", nullptr, "0 0 1", {"0 3 1"}, replaceArray},
        {"readVelmar4", grid, "-1", {"-7"}, blockOfFile<readVelmar4>},
        ofNumbers("contour2D",
                  [](const Input& in) {
                      return contour2D(in.numbers, 9999, nx, ny, 2, 0, 0, 0, levels.data(), 3, 0, 0, 1, 1);
                  }),
        ofNumbers("contour2DRaw",
                  [](const Input& in) {
                      return contour2DRaw(in.numbers, 9999, nx, ny, 1, 0, 0, 0, nullptr, 5, 0, 0, 1, 1);
                  }),
        ofFile("readCntrData", grid, "-1", {"-7"},
               [](const Input& in) { return readCntrData(in.path, 1, 6, nullptr); }),
        ofNumbers("findCenters",
                  [](const Input& in) { return findCenters(in.numbers, 9999, nx, ny, 0, 0, 0, 1, 1); }),
        ofNumbers("velmarCntrShad",
                  [](const Input& in) {
                      return velmarCntrShad(in.numbers, nx, ny, levels.data(), colours.data(), 3, 9999, 0, 0,
                                            1, 1, 0);
                  }),
        ofNumbers(
            "velmarCntrShadJ",
            [](const Input& in) { return velmarCntrShadJ(in.numbers, nx, ny, 9, 9999, 0, 0, 1, 1, 3); }),
        ofNumbers("velmarCntrShadD",
                  [](const Input& in) {
                      return velmarCntrShadD(in.numbers, nx, ny, levels.data(), colours.data(), 3, 9999, 1,
                                             numbers.data(), numbers.data());
                  }),
        ofFile("readCntrShadData", grid, "-1", {"-6", "null"},
               [](const Input& in) { return readCntrShadData(in.path, 0, 1); }),
        ofFile("readByteShadData", "images/cloud_total_global.img", "null", {"null"},
               [](const Input& in) { return readByteShadData(in.path, 0, 1, 60); }),
        {"polygonfill", nullptr, "points 0", {"points 0"}, fill},
        {"Clip", nullptr, "0", {"0"}, clip},
        {"SHClip", nullptr, "null 0", {"null 0"}, clipEdge},
        {"SHClipPntNum",
         nullptr,
         "0",
         {"0"},
         [](const Input& in) {
             freecPointer(SHClip(in.numbers == nullptr ? nullptr : star.data(), 0, 0, 1, 0, 12, nullptr));
             return std::to_string(called([] { return SHClipPntNum(); }));
         }},
        ofNumbers("barnes",
                  [](const Input& in) {
                      return barnes(2, 8, 0.3F, nx, ny, 0, nx - 1, 0, ny - 1, stationCount, lon.data(),
                                    lat.data(), in.numbers, 4);
                  }),
        ofNumbers("cressman",
                  [](const Input& in) {
                      return cressman(3, radii.data(), nx, ny, 0, nx - 1, 0, ny - 1, stationCount, lon.data(),
                                      lat.data(), in.numbers, 4);
                  }),
        ofFile("OAReadVelmar1", reports, "-1", {"-4", "null"},
               [](const Input& in) { return OAReadVelmar1(in.path, 0, 1, 0, -100, -90, 30, 40, 1, 1, 0); }),
        ofFile("OAReadVelmar3", values, "-1", {"-9"},
               [](const Input& in) { return OAReadVelmar3(in.path, 1, 0, -100, -90, 30, 40, 2, 2, 0); }),
        ofFile("ReadVelmar1Tqq", reports, "-1", {"-4"},
               [](const Input& in) { return ReadVelmar1Tqq(in.path, 0, 0, 0, -100, -90, 30, 40, 1, 1, 2); }),
        ofNumbers("TqqOA",
                  [](const Input& in) {
                      return TqqOA(lon.data(), lat.data(), in.numbers, stationCount, 1, 0, 0, 0, 0, 1, 1, 3);
                  }),
        ofNumbers("gagexps", [](const Input& in) { return gagexps(in.numbers, nx, ny, 3, 2, 9999); }),
        {"readVelmarData11", wind, "-1", {"-8"}, blockOfFile<readVelmarData11>},
        ofNumbers("streamAnalyse",
                  [](const Input& in) {
                      return streamAnalyse(in.numbers, in.numbers, in.numbers, nx, ny, 9999, 9999, 9999, 1,
                                           levels.data(), colours.data(), 3, 1);
                  }),
        ofFile("readWindData", wind, "-1", {"-8", "null"},
               [](const Input& in) { return readWindData(in.path, 1); }),
        ofNumbers("hdiv", differences<hdiv>),
        ofNumbers("hvor", differences<hvor>),
        {"ffhdiv", nullptr, untouchedGrid, {}, untouched<ffhdiv>},
        {"ffhvor", nullptr, untouchedGrid, {}, untouched<ffhvor>},
        {"readWindDivVor", wind, "-1", {"-8"}, windPlace},
        {"ReadVelmarData1", reports, "null", {"null"}, blockOfFile<ReadVelmarData1>},
        {"ReadVelmarData2", "stations/upper500_cities.000", "null", {"null"}, blockOfFile<ReadVelmarData2>},
        {"ReadVelmarData8", "stations/forecast_capitals.000", "null", {"null"}, blockOfFile<ReadVelmarData8>},
        {"ReadVelmarData16", "stations/heights_north.000", "null", {"null"}, blockOfFile<ReadVelmarData16>},
        {"ReadVelmarData3", "stations/three_values_95031902.000", "-1", {"-9"}, blockOfFile<ReadVelmarData3>},
        {"ReadVelmarData780", "lines/madagascar.780", "null", {"null"}, blockOfFile<ReadVelmarData780>},
        {"ReadVelmarData777", "lines/srilanka.778", "null", {"null"}, blockOfFile<ReadVelmarData777>},
        {"ReadMap9", "lines/map_africa.009", "null", {"null"}, blockOfFile<ReadMap9>},
        {"readVelmarData5", "soundings/sounding_march.000", "0 0", {"0 0"}, soundings},
        {"DiscreteAdd", values, "null", {"null"}, rain},
        {"readRegionData",
         "regions/africa_gbk.dat",
         "-1",
         {"-1"},
         [](const Input& in) {
             capi::state().regions.reset();
             return std::to_string(called([&] { return readRegionData(in.path); }));
         }},
        {"countyNameFromRegion",
         nullptr,
         " ",
         {" "},
         [](const Input& in) -> Seen {
             const float latitude = in.numbers == nullptr ? 80 : 5;
             return ofRegions([&] { return countyNameFromRegion(20, latitude); });
         }},
        {"getSingleRegionBoundaryByOrder", nullptr, "null", {"null"}, boundaryByOrder},
        {"getSingleRegionBoundaryByName", nullptr, "null", {"null"}, boundaryByName},
        {"getAllRegionBoundaryByName",
         nullptr,
         "null 0",
         {"null 0"},
         [](const Input& in) {
             int total = -1;
             const Seen seen =
                 taken(ofRegions([&] { return getAllRegionBoundaryByName(nameOf(in), &total); }));
             return seen + ' ' + std::to_string(total);
         }},
        {"SanJiao", nullptr, "null", {"null"}, stationContours},
        {"FJJS2", nullptr, greatCircle({}), {}, greatCircle},
    };
    return table;
}

Seen runWell(const Call& call) {
    const std::string path = call.sample == nullptr ? "" : sample(call.sample);
    return call.run({path.c_str(), numbers.data()});
}

Seen runBadly(const Call& call, const char* path) { return call.run({path, nullptr}); }

}  // namespace velmar::test
