#pragma once

#include <optional>
#include <string_view>

#include "chart/chart.h"
#include "cli/callFiles.h"
#include "compute/levels.h"
#include "read/stationElements.h"

namespace velmar::tool {

/// What the user said about charts. Options that have nothing to do with a kind of file are named to the user.
struct ChartCommandOptions {
    OutputOptions output;
    LevelOptions levels;
    ChartOptions chart;
    std::optional<WindQuantity> fillQuantity;
    std::optional<int> density;
    std::optional<int> field;
    std::optional<WindElements> wind;
    bool showsWind = true;
    bool centersGiven = false;
    std::optional<int> station;
};

/// A file whose charts are to be drawn, and all that it takes.
struct ChartJob {
    const Job& job;
    const FileHead& head;
    const ChartCommandOptions& options;
    CallFiles& files;
    Reporter& reporter;

    void tell(std::string_view sentence) const { reporter.tell(job.input, sentence); }
};

// Each reads a file of its kind, draws it and writes the chart.
void chartGrid(const ChartJob& chart);
void chartWind(const ChartJob& chart);
void chartByteImage(const ChartJob& chart);
void chartStations(const ChartJob& chart);
void chartMap(const ChartJob& chart);

/// The same with a diagram for each sounding: a pdf has a page a station, a folder gets a picture a station, named by
/// its number; a single picture is that of the first station. The pictures in a folder are claimed.
void chartSoundings(const ChartJob& chart);

}  // namespace velmar::tool
