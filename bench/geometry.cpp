// Contours of stations over triangles, as they are and the plain way, in which every edge looks at every station and
// every end of a piece at all others. The results are compared bit for bit.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <random>

#include "../tests/triangles/plainTriangles.h"
#include "counters.h"
#include "triangles/stationContours.h"
#include "triangles/triangulation.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;

struct Stations {
    std::vector<float> x, y, values;
};

/// A smooth field with noise at random places.
Stations randomStations(int count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> lon(70, 140), lat(10, 60), noise(0, 0.5F);
    Stations s;
    for (int k = 0; k < count; ++k) {
        s.x.push_back(lon(random));
        s.y.push_back(lat(random));
        s.values.push_back(20 + 10 * std::sin(0.2F * s.x.back()) + 8 * std::cos(0.3F * s.y.back()) +
                           noise(random));
    }
    return s;
}

/// Stations of a file of station values that have one.
Stations fileStations(const char* path) {
    Stations s;
    float* const block = ReadVelmarData3(path);
    const auto values = static_cast<std::size_t>(block[5]);
    const float* station = block + 8 + static_cast<int>(block[7]);
    for (int k = 0; k < static_cast<int>(block[6]); ++k, station += 4 + values) {
        if (station[4] == 9999) continue;
        s.x.push_back(station[1]);
        s.y.push_back(station[2]);
        s.values.push_back(station[4]);
    }
    freecPointer(block);
    return s;
}

triangles::StationLines contour(Stations& s, float interval, triangles::LevelTable& levels) {
    return triangles::contourStations(s.x, s.y, s.values,
                                      {triangles::LevelChoice::byInterval, 0, interval, nullptr, 0}, levels);
}

/// Of each line its number of points, its level and its points, as the plain way has them.
std::vector<float> flat(const triangles::StationLines& lines) {
    std::vector<float> elements;
    for (const triangles::StationLine& line : lines.runs) {
        elements.insert(elements.end(), {static_cast<float>(line.pointCount), line.level});
        for (const auto& [longitude, latitude] : lines.pointsOf(line))
            elements.insert(elements.end(), {longitude, latitude});
    }
    return elements;
}

void run(benchmark::State& state, const Stations& stations, float interval) {
    triangles::LevelTable levels;
    for (auto _ : state) {
        Stations copy = stations;
        benchmark::DoNotOptimize(contour(copy, interval, levels));
    }
    state.counters["levels"] = static_cast<double>(levels.count);
    bench::reportTimePerValue(state, static_cast<double>(stations.x.size()));
}

void stationContours(benchmark::State& state) {
    run(state, randomStations(static_cast<int>(state.range(0))), 1);
}

void realStationContours(benchmark::State& state) {
    run(state, fileStations("samples/stations/summer_rain.000"), 25);
}

void stationContoursPlainly(benchmark::State& state) {
    Stations s = randomStations(static_cast<int>(state.range(0)));
    triangles::LevelTable levels;
    const std::vector<float> fast = flat(contour(s, 1, levels));
    std::vector<float> plain;
    for (auto _ : state) {
        test::PlainTriangles triangles(s.x, s.y, s.values);
        triangles.network();
        for (const float level : levels.view()) {
            const std::vector<float> lines = triangles.lines(level);
            plain.insert(plain.end(), lines.begin(), lines.end());
        }
    }
    if (plain.size() < fast.size() ||
        std::memcmp(plain.data(), fast.data(), fast.size() * sizeof(float)) != 0)
        state.SkipWithError("the results differ");
    bench::reportTimePerValue(state, static_cast<double>(s.x.size()));
}

/// Without levels: the triangles alone.
void network(benchmark::State& state) {
    const Stations s = randomStations(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(triangles::growTriangulation({s.x, s.y, s.values}));
    bench::reportTimePerValue(state, static_cast<double>(s.x.size()));
}

BENCHMARK(stationContours)->RangeMultiplier(2)->Range(500, 32000)->Unit(benchmark::kMillisecond);
BENCHMARK(realStationContours)->Unit(benchmark::kMillisecond);
BENCHMARK(stationContoursPlainly)
    ->RangeMultiplier(2)
    ->Range(500, 8000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(network)->Arg(2000)->Arg(20000)->Arg(200000)->Unit(benchmark::kMillisecond);

}  // namespace
