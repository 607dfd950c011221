#pragma once

namespace velmar::base {

/// A station and its first value.
struct StationValue {
    int number;
    float longitude;  ///< degrees
    float latitude;   ///< degrees
    float height;     ///< metres
    float value;

    static constexpr int fieldCount = 5;
};

}  // namespace velmar::base
