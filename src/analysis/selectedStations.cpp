#include "analysis/selectedStations.h"

#include "frame/messages.h"
#include "frame/numbers.h"
#include "frame/progress.h"

namespace velmar::analysis {

bool isMissing(float value) {
    const int whole = frame::truncateToInt(value);
    return whole == 9999 || whole == 999999;
}

void SelectedStations::add(float longitude, float latitude, float value) {
    stations.add(longitude, latitude, value);
    extent.addLongitude(longitude);
    extent.addLatitude(latitude);
    if (value > largest) largest = value;
    if (value < smallest) smallest = value;
}

StationView SelectedStations::used() const {
    const StationView all = stations.view();
    const std::size_t count = all.count() == 0 ? 0 : all.count() - 1;
    return {all.longitudes.first(count), all.latitudes.first(count), all.values.first(count)};
}

void SelectedStations::tell() const {
    const auto count = static_cast<long long>(stations.values.size());
    frame::progress(frame::messages::stationSummary, {count - 1, largest, smallest});
}

}  // namespace velmar::analysis
