// Looking up regions and adding up rain, with the plain ways beside them.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "../tests/regions/plainRegions.h"
#include "capi/state.h"
#include "counters.h"
#include "files/regionFile.h"
#include "rain/rainTable.h"
#include "rain/rainTimes.h"
#include "velmarBaseA.h"

namespace {

using namespace velmar;
using rain::RainTable;
using test::PlainRegion;

/// Regions side by side, as counties are: wavy circles, a little larger than their places.
std::vector<PlainRegion> counties(int count, int points) {
    const int side = static_cast<int>(std::ceil(std::sqrt(count)));
    std::vector<PlainRegion> regions;
    for (int k = 0; k < count; ++k) {
        std::vector<float> outline;
        for (int p = 0; p + 1 < points; ++p) {
            const double angle = 6.2831853 * p / (points - 1);
            const double radius = (1.1 + 0.1 * std::sin(7 * angle + k)) * 30.0 / side;
            outline.push_back(static_cast<float>(75 + 60.0 * (k % side) / side + radius * std::cos(angle)));
            outline.push_back(static_cast<float>(5 + 60.0 * (k / side) / side + radius * std::sin(angle)));
        }
        outline.insert(outline.end(), {outline[0], outline[1]});
        regions.emplace_back(std::to_string(k), outline);
    }
    return regions;
}

std::string textOf(const std::vector<PlainRegion>& regions) {
    std::string text = "diamond 10 counties\n";
    for (const PlainRegion& region : regions) {
        text.append("0 0 ").append(region.name).append(" ");
        text.append(std::to_string(region.points.size() / 2)).append("\n");
        for (const float value : region.points) text.append(std::to_string(value)).append(" ");
    }
    return text;
}

/// The same regions as the library and the plain walk read them.
struct Loaded {
    regions::RegionTable table;
    std::vector<PlainRegion> regions;
};

Loaded load(int count, int points) {
    const std::string text = textOf(counties(count, points));
    base::TextScanner in(text);
    Loaded loaded{regions::RegionTable(files::readRegions(in).value()), {}};
    for (const regions::Region& region : loaded.table.runs) {
        std::vector<float> outline;
        for (const auto& [longitude, latitude] : loaded.table.pointsOf(region))
            outline.insert(outline.end(), {longitude, latitude});
        loaded.regions.emplace_back(loaded.table.nameOf(region), outline);
    }
    return loaded;
}

/// Places all over the regions.
struct Places {
    std::mt19937 random{2};
    std::uniform_real_distribution<float> x{74, 136}, y{4, 66};
};

void regionLookup(benchmark::State& state) {
    Loaded loaded = load(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    capi::state().regions.emplace(std::move(loaded.table));
    Places places;
    for (auto _ : state)
        benchmark::DoNotOptimize(countyNameFromRegion(places.x(places.random), places.y(places.random)));
    capi::state().regions.reset();
}

/// The plain walk of the tests without the texts.
const PlainRegion* walkRegions(const std::vector<PlainRegion>& regions, float x, float y, bool boundsFirst) {
    for (const PlainRegion& region : regions) {
        if (boundsFirst && !region.boundsHold(x, y)) continue;
        const int left = test::plainCrossings(region.points, 0, x, y);
        if (left % 2 != 0 || (left == 0 && test::plainCrossings(region.points, x, 360, y) % 2 != 0))
            return &region;
    }
    return nullptr;
}

void lookUpPlainly(benchmark::State& state, bool boundsFirst) {
    const Loaded loaded = load(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Places places;
    for (auto _ : state) {
        const float x = places.x(places.random);
        const float y = places.y(places.random);
        benchmark::DoNotOptimize(walkRegions(loaded.regions, x, y, boundsFirst));
    }
}

void regionLookupPlainly(benchmark::State& state) { lookUpPlainly(state, true); }

/// Without a look at the bounds first.
void regionLookupEdgeByEdge(benchmark::State& state) { lookUpPlainly(state, false); }

std::vector<base::StationValue> rainOf(int stations, int file) {
    std::mt19937 random(static_cast<unsigned>(file));
    std::vector<base::StationValue> list;
    for (int k = 0; k < stations; ++k)
        list.push_back({50000 + (k * 7919 + file) % (stations + 100), 100, 30, 5,
                        0.1F * static_cast<float>(random() % 200)});
    return list;
}

void rainMerge(benchmark::State& state) {
    const int stations = static_cast<int>(state.range(0));
    const auto first = rainOf(stations, 0);
    const auto second = rainOf(stations, 1);
    for (auto _ : state) {
        RainTable table;
        table.add(first);
        table.add(second);
        benchmark::DoNotOptimize(table.stations().data());
    }
    bench::reportTimePerValue(state, 2.0 * stations);
}

/// Every station of the table looks at every station of the second file.
void rainMergePlainly(benchmark::State& state) {
    const int stations = static_cast<int>(state.range(0));
    const auto first = rainOf(stations, 0);
    for (auto _ : state) {
        auto table = first;
        auto second = rainOf(stations, 1);
        for (auto& total : table) {
            for (auto& station : second) {
                if (station.number != total.number) continue;
                if (station.value > 0.011F && station.value != 9999) total.value += station.value;
                station.number = 0;
            }
        }
        benchmark::DoNotOptimize(table.data());
    }
    bench::reportTimePerValue(state, 2.0 * stations);
}

/// A folder with a file of rain for each of so many hours, removed at the end.
class RainFolder {
public:
    RainFolder(int files, int stations) {
        std::string name = (std::filesystem::temp_directory_path() / "velmarBenchXXXXXX").string();
        if (!mkdtemp(name.data())) std::abort();
        folder_ = name;
        rain::DateKey key = start;
        for (int k = 0; k < files; ++k) {
            key = rain::stepDateKey(1, key);
            write(folder_ / (std::to_string(key).substr(2) + ".000"), rainOf(stations, k));
        }
        end_ = key;
    }
    RainFolder(const RainFolder&) = delete;
    RainFolder& operator=(const RainFolder&) = delete;
    ~RainFolder() { std::filesystem::remove_all(folder_); }

    /// Says whether the files were read.
    bool sum() const {
        const auto part = [this](int scale) { return static_cast<int>(end_ / scale % 100); };
        float* const block =
            DiscreteAdd(2016, 7, 1, 0, 2016, part(10000), part(100), part(1), folder_.c_str(), 1);
        freecPointer(block);
        return block != nullptr;
    }

private:
    static constexpr rain::DateKey start = rain::dateKey(2016, 7, 1, 0);

    static void write(const std::filesystem::path& path, const std::vector<base::StationValue>& stations) {
        std::ofstream file(path);
        file << "diamond 3 rain\n16 7 1 0 0 0 1 0 0 1 " << stations.size() << '\n';
        for (const auto& s : stations)
            file << s.number << ' ' << s.longitude << ' ' << s.latitude << ' ' << s.height << ' ' << s.value
                 << '\n';
    }

    std::filesystem::path folder_;
    rain::DateKey end_ = start;
};

void rainFiles(benchmark::State& state) {
    const RainFolder folder(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        if (!folder.sum()) return state.SkipWithError("the files were not read");
    }
    bench::reportTimePerValue(state, static_cast<double>(state.range(0) * state.range(1)));
}

// Regions are made anew for each run, so there should be one.
BENCHMARK(regionLookup)
    ->Args({300, 300})
    ->Args({3000, 300})
    ->Args({30000, 100})
    ->Args({3000, 3000})
    ->Iterations(500'000);
BENCHMARK(regionLookupPlainly)->Args({300, 300})->Args({3000, 300})->Args({3000, 3000})->Iterations(20'000);
BENCHMARK(regionLookupEdgeByEdge)->Args({300, 300})->Args({3000, 300})->Iterations(200);
BENCHMARK(rainMerge)->Arg(2000)->Arg(20000)->Arg(200000)->Unit(benchmark::kMillisecond);
BENCHMARK(rainMergePlainly)->Arg(2000)->Arg(20000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(rainFiles)
    ->Args({60, 20000})
    ->Args({120, 20000})
    ->Args({240, 20000})
    ->Unit(benchmark::kMillisecond);

}  // namespace
