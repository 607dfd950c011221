#pragma once

/// Every text that the library prints, in the GBK bytes that its hosts expect. A string is split after an escape that
/// a hexadecimal digit would follow; the readable text is given above it.
namespace velmar::base::messages {

// Standard error
inline constexpr const char* cannotOpenDataFile = "Cannot open data file %s.\n";
// For wind files, and for files of station values
inline constexpr const char* cannotOpenWindFile = "Cannot open wind data file.\n";
// For lines, maps and soundings
inline constexpr const char* cannotOpenMapFile = "Cannot open map data file.\n";

// Choice of contour levels

// 最初间隔值%f %f %f
inline constexpr const char* firstInterval = "\xD7\xEE\xB3\xF5\xBC\xE4\xB8\xF4\xD6\xB5%f %f %f\n";
// 确定位数%d %s %d
inline constexpr const char* intervalDigits = "\xC8\xB7\xB6\xA8\xCE\xBB\xCA\xFD%d %s %d\n";
// 确定倍数 %s %f: 1 and zeros, the interval
inline constexpr const char* intervalMultiple = "\xC8\xB7\xB6\xA8\xB1\xB6\xCA\xFD %s %f\n";
// 间隔计算%f %f %f
inline constexpr const char* roundedInterval = "\xBC\xE4\xB8\xF4\xBC\xC6\xCB\xE3%f %f %f\n";
//   计算%f %f %d
inline constexpr const char* countedLevel = "  \xBC\xC6\xCB\xE3%f %f %d\n";
// 分析线值$f: it names a value but carries no conversion, and is printed as it stands
inline constexpr const char* lineValue = "\xB7\xD6\xCE\xF6\xCF\xDF\xD6\xB5$f\n";
//   确定开始值%f %d %f %f
inline constexpr const char* startValueDigits = "  \xC8\xB7\xB6\xA8\xBF\xAA\xCA\xBC\xD6\xB5%f %d %f %f\n";
//   开始值%f %f %d
inline constexpr const char* startValue = "  \xBF\xAA\xCA\xBC\xD6\xB5%f %f %d\n";

// Shading of files

// Standard error
inline constexpr const char* cannotOpenCloudFile = "Cannot open cloud data file.\n";
// Standard output
inline constexpr const char* badImageSize = "You may be write a bad size information in March 13 type file\n";
// 文件标题 %s
inline constexpr const char* fileTitle = "\xCE\xC4\xBC\xFE\xB1\xEA\xCC\xE2 %s\n";
// 读文件结束
inline constexpr const char* fileEnd = "\xB6\xC1\xCE\xC4\xBC\xFE\xBD\xE1\xCA\xF8 \n";

// Polygon tools

// Standard error
inline constexpr const char* cannotOpenDiagnosticFile = "Cannot open data file\n";
// Standard output
inline constexpr const char* noMemoryForFill = "Memory allocation error in gxfill.  Can't fill contour\n";

// Shading trace
inline constexpr const char* polygonPoint = " %d  %d  %f";
inline constexpr const char* shadingFailed = "Error in velmarCntrShad\n";
inline constexpr const char* noPointBuffer = "Error in velmarCntrShad: Unable to allocate xy coord buffer\n";
inline constexpr const char* noFlagsBuffer = "Error in velmarCntrShad:  Unable to allocate flags buffer\n";
inline constexpr const char* noHoleBuffer = "Memory allocation error in velmarCntrShad: stack buffer\n";
inline constexpr const char* tooManyHoles = "Buffer stack limit exceeded in velmarCntrShad\n";
inline constexpr const char* blockedSide = "Logic error 4 in velmarCntrShad: %i %i\n";
inline constexpr const char* blockedSideEntered = "Side %d, entered %i \n";
inline constexpr const char* noExit = "Logic error 8 in velmarCntrShad\n";
inline constexpr const char* cellOutside = "logic error 12 in velmarCntrShad\n";
inline constexpr const char* cellOutsideSide = "  side%d, %i %i \n";
inline constexpr const char* cellOutsideBounds = " imax, jmax = %i %i \n";
inline constexpr const char* boundaryOutside = "Logic error 16 in velmarCntrShad\n";
inline constexpr const char* stripEdgeContradicts = "Logic error 20 in velmarCntrShad\n";
inline constexpr const char* boundaryForks = "Logic error 24 in velmarCntrShad\n";
inline constexpr const char* diagonalContradicts = "Logic error 28 in velmarCntrShad\n";
inline constexpr const char* diagonalOutside = "Logic error 32 in velmarCntrShad\n";
inline constexpr const char* noDiagonal = "Logic error 36 in velmarCntrShad\n";
inline constexpr const char* unknownStart = "Logic error 40 in velmarCntrShad\n";

// Objective analysis
// 计算修正%d %f %f %f
inline constexpr const char* barnesPass = "\xBC\xC6\xCB\xE3\xD0\xDE\xD5\xFD%d %f %f %f\n";
inline constexpr const char* noMemoryForCressman = "err!";
inline constexpr const char* cressmanSumIsMissing = "retrn";

// Station files for analysis

// Standard error
inline constexpr const char* cannotOpenReports = "Cannot open data file.\n";
// Standard output
inline constexpr const char* readingReports = "Open and read file: %s\n";
inline constexpr const char* reportsPromised = "There are %d stations\n";
inline constexpr const char* reportsRead = "There are %d stations have value\n";
inline constexpr const char* stationFound = "Find a station\n";
inline constexpr const char* smallValue = "%d %d %f %f\n";
inline constexpr const char* stationSummary = "%d %f %f\n";
// 网格化..%f %f. %d
inline constexpr const char* griddingReports = "\xCD\xF8\xB8\xF1\xBB\xAF..%f %f. %d\n";
// 打开文件%s
inline constexpr const char* openedFile = "\xB4\xF2\xBF\xAA\xCE\xC4\xBC\xFE%s\n";
// 读文件错误%d
inline constexpr const char* unreadablePart = "\xB6\xC1\xCE\xC4\xBC\xFE\xB4\xED\xCE\xF3%d\n";
// 总站点数%d
inline constexpr const char* stationTotal = "\xD7\xDC\xD5\xBE\xB5\xE3\xCA\xFD%d\n";
// 网格化..%f %f. %d %d %d
inline constexpr const char* griddingValues = "\xCD\xF8\xB8\xF1\xBB\xAF..%f %f. %d %d %d\n";
// 计算第一猜测场
inline constexpr const char* firstGuess = "\xBC\xC6\xCB\xE3\xB5\xDA\xD2\xBB\xB2\xC2\xB2\xE2\xB3\xA1\n";
// 返回数组大小 %d
inline constexpr const char* resultSize = "\xB7\xB5\xBB\xD8\xCA\xFD\xD7\xE9\xB4\xF3\xD0\xA1 %d\n";

// Diagnostic grid file: keyword, type and title
// 客观分析场
inline constexpr const char* analysisTitle = "diamond 4 \xBF\xCD\xB9\xDB\xB7\xD6\xCE\xF6\xB3\xA1\n";

// Streamlines
inline constexpr const char* noMemoryForStreamlines = "Cannot allocate memory for streamline function\n";
//     没有箭头
inline constexpr const char* noArrows = "    \xC3\xBB\xD3\xD0\xBC\xFD\xCD\xB7 \n";

// Soundings
inline constexpr const char* readingSoundings = "read file %s\n";
inline constexpr const char* derivingSounding = "Calculate parameters....%d\n";

// Regions
inline constexpr const char* leftCrossings = "left cross number %d %d\n";
inline constexpr const char* rightCrossings = "right cross number %d %d\n";

// Log of map files
inline constexpr const char* mapLineRead = "read data %d %.*s\n";
inline constexpr const char* mapWriting = "write to memory...\n";
// 数组大小 %zu
inline constexpr const char* mapResultSize = "\xCA\xFD\xD7\xE9\xB4\xF3\xD0\xA1 %zu\n";
// 无法分配内存
inline constexpr const char* noMemoryForMap = "\xCE\xDE\xB7\xA8\xB7\xD6\xC5\xE4\xC4\xDA\xB4\xE6\n";
inline constexpr const char* mapLineWritten = "write line ... %zu\n";
inline constexpr const char* mapReleasing = "delete memory\n";
// The spelling is part of the output that hosts know
inline constexpr const char* mapLineReleased = "deete line ...%zu\n";
inline constexpr const char* mapReleased = "delete memory end\n";

// Contours of stations
inline constexpr const char* copiedLevel = "%f %f %d\n";
// 总申请内存大小
inline constexpr const char* stationLinesSize =
    "\xD7\xDC\xC9\xEA\xC7\xEB\xC4\xDA\xB4\xE6\xB4\xF3\xD0\xA1 %d\n";
inline constexpr const char* nextElement = "%d";

}  // namespace velmar::base::messages
