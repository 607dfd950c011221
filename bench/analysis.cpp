// Objective analyses, as they are and the plain way, in which every point looks at every station. At the size
// that both are timed at, their results are compared bit for bit.
#include <benchmark/benchmark.h>

#include <random>

#include "../tests/analysis/plainAnalyses.h"
#include "analysis/barnes.h"
#include "analysis/capAndMask.h"
#include "analysis/cressman.h"
#include "counters.h"

namespace {

using namespace velmar;
using analysis::StationView;
using test::Nodes;
using test::StationList;

constexpr analysis::WholeLonLatBox bounds{70, 140, 10, 60};
constexpr analysis::BarnesParameters parameters{0.25F, 20.0F, 0.3F, 1};
const std::vector<float> radii{25, 10, 5, 2, 1};
constexpr float maskRadius = 2.0F;

Nodes nodesOf(int nx, int ny) { return test::nodesBetween(nx, ny, 70, 140, 10, 60); }

StationList stationsOf(int count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> lon(70, 140), lat(10, 60), value(-20, 40);
    StationList list;
    for (int k = 0; k < count; ++k) {
        list.lon.push_back(lon(random));
        list.lat.push_back(lat(random));
        list.value.push_back(value(random));
    }
    return list;
}

StationView viewOf(const StationList& list) { return {list.lon, list.lat, list.value}; }

std::vector<float> valuesOf(const base::Floats& block, const Nodes& nodes) {
    return {block.get(), block.get() + nodes.count()};
}

struct Barnes {
    static std::vector<float> fast(const Nodes& n, const StationList& s) {
        return valuesOf(analysis::analyseBarnes(parameters, {n.nx, n.ny}, bounds, viewOf(s), 0), n);
    }
    static std::vector<float> plain(const Nodes& n, const StationList& s) {
        return test::plainBarnes(parameters.kappa, parameters.radius, parameters.gamma, n, s, 0);
    }
};

struct Cressman {
    static std::vector<float> fast(const Nodes& n, const StationList& s) {
        return valuesOf(analysis::analyseCressman(radii, {n.nx, n.ny}, {70, 140, 10, 60}, viewOf(s), 0), n);
    }
    static std::vector<float> plain(const Nodes& n, const StationList& s) {
        return test::plainCressman(radii, n, s, 0);
    }
};

struct CapAndMask {
    static std::vector<float> fast(const Nodes& n, const StationList& s) {
        std::vector<float> grid(n.count());
        analysis::capAndMask(grid.data(), {n.x0, n.y0, n.dx, n.dy}, {n.nx, n.ny}, viewOf(s), maskRadius);
        return grid;
    }
    static std::vector<float> plain(const Nodes& n, const StationList& s) {
        std::vector<float> grid(n.count());
        test::plainCap(grid, n, s, maskRadius);
        return grid;
    }
};

struct Nearest {
    static std::vector<int> fast(const Nodes& n, const StationList& s) {
        return test::foundNearest(n, s, maskRadius, false);
    }
    static std::vector<int> plain(const Nodes& n, const StationList& s) {
        return test::plainNearest(n, s, maskRadius, false);
    }
};

/// Time by the number of stations and the number of columns.
template <class Method>
void fast(benchmark::State& state) {
    const Nodes nodes = nodesOf(static_cast<int>(state.range(1)), static_cast<int>(state.range(1)) * 5 / 7);
    const StationList stations = stationsOf(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(Method::fast(nodes, stations));
    bench::reportTimePerValue(state, static_cast<double>(nodes.count()) * stations.count());
}

template <class Method>
void plain(benchmark::State& state) {
    const Nodes nodes = nodesOf(static_cast<int>(state.range(1)), static_cast<int>(state.range(1)) * 5 / 7);
    const StationList stations = stationsOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        if (Method::plain(nodes, stations) != Method::fast(nodes, stations))
            state.SkipWithError("the results differ");
    bench::reportTimePerValue(state, static_cast<double>(nodes.count()) * stations.count());
}

template <class Method>
void registerAll(const std::string& name) {
    const auto add = [](const std::string& full, auto run, std::vector<std::int64_t> args) {
        return benchmark::RegisterBenchmark(full.c_str(), run)->Args(args)->Unit(benchmark::kMillisecond);
    };
    add(name + "Plainly", plain<Method>, {2000, 281})->Iterations(1);
    for (const int stations : {500, 2000, 5000, 20000}) add(name, fast<Method>, {stations, 281});
    for (const int columns : {71, 141, 561, 1121}) add(name, fast<Method>, {2000, columns});
}

const bool registered = [] {
    registerAll<Barnes>("barnes");
    registerAll<Cressman>("cressman");
    registerAll<CapAndMask>("capAndMask");
    registerAll<Nearest>("nearest");
    return true;
}();

}  // namespace
