#include "frame/gridFile.h"

namespace velmar::frame {

int scanFieldHeader(TextScanner& in, FieldHeader& header) {
    Lattice& lattice = header.lattice;
    return scan(in, header.year, header.month, header.day, header.hour, header.forecastHour, header.level,
                lattice.longitudeStep, lattice.latitudeStep, lattice.startLongitude, lattice.endLongitude,
                lattice.startLatitude, lattice.endLatitude, header.nx, header.ny);
}

Outcome<GridHeader> readGridHeader(TextScanner& in) {
    GridHeader header{};
    std::string_view keyword;
    int type = 0;
    if (scan(in, keyword, type, header.title) < 3) return Failure{-2};
    if (type != 4) return Failure{-3};
    if (keyword != "diamond") return Failure{-4};
    if (scanFieldHeader(in, header.field) < FieldHeader::fieldCount) return Failure{-5};
    if (scan(in, header.interval, header.startValue, header.endValue, header.smoothing, header.boldValue) <
        5) {
        return Failure{-5};
    }
    return header;
}

}  // namespace velmar::frame
