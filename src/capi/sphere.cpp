#include "sphere/greatCircle.h"

#include "velmarBaseA.h"

void FJJS2(float lon1, float lat1, float lon2, float lat2, float* bearing, float* angle,
           float* distance) noexcept {
    const auto way = velmar::sphere::greatCircle({lon1, lat1}, {lon2, lat2});
    if (bearing != nullptr) *bearing = way.bearing;
    if (angle != nullptr) *angle = way.angle;
    if (distance != nullptr) *distance = way.distance;
}
