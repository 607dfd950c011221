#pragma once

/// Every text that the library prints, in the GBK bytes that its hosts expect. The escapes of a text stand in
/// pieces where a hexadecimal digit would follow them; the readable text stands above.
namespace velmar::frame::messages {

// Standard error
inline constexpr const char* cannotOpenDataFile = "Cannot open data file %s.\n";

// Choice of contour levels

// 最初间隔值%f %f %f
inline constexpr const char* firstInterval = "\xD7\xEE\xB3\xF5\xBC\xE4\xB8\xF4\xD6\xB5%f %f %f\n";
// 确定位数%d %s %d
inline constexpr const char* intervalDigits = "\xC8\xB7\xB6\xA8\xCE\xBB\xCA\xFD%d %s %d\n";
// 确定倍数 %s %f
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

}  // namespace velmar::frame::messages
