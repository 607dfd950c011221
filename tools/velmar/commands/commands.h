#pragma once

namespace velmar::tool {

class Program;

// Each adds one command to the program.
void addInfoCommand(Program& program);
void addContourCommand(Program& program);
void addShadeCommand(Program& program);
void addChartCommand(Program& program);
void addAnalyseCommand(Program& program);
void addRainCommand(Program& program);
void addRefineCommand(Program& program);
void addSoundingCommand(Program& program);
void addRegionCommand(Program& program);
void addWindCommand(Program& program);
void addStreamlinesCommand(Program& program);
void addTrianglesCommand(Program& program);
void addDistanceCommand(Program& program);

}  // namespace velmar::tool
