#pragma once

namespace CLI {
class App;
}

namespace velmar::tool {

// Each adds one command to the program; running it sets the exit code.
void addInfoCommand(CLI::App& program, int& exitCode);
void addContourCommand(CLI::App& program, int& exitCode);
void addShadeCommand(CLI::App& program, int& exitCode);
void addChartCommand(CLI::App& program, int& exitCode);
void addAnalyseCommand(CLI::App& program, int& exitCode);
void addRainCommand(CLI::App& program, int& exitCode);
void addRefineCommand(CLI::App& program, int& exitCode);
void addSoundingCommand(CLI::App& program, int& exitCode);
void addRegionCommand(CLI::App& program, int& exitCode);
void addWindCommand(CLI::App& program, int& exitCode);
void addStreamlinesCommand(CLI::App& program, int& exitCode);
void addTrianglesCommand(CLI::App& program, int& exitCode);
void addDistanceCommand(CLI::App& program, int& exitCode);

}  // namespace velmar::tool
