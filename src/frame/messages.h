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

}  // namespace velmar::frame::messages
