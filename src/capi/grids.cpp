#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "capi/barrier.h"
#include "capi/state.h"
#include "files/fieldValues.h"
#include "files/file.h"
#include "files/gridFile.h"
#include "grid/extremes.h"
#include "velmarBaseA.h"

namespace velmar::capi {
namespace {

using base::Failure;
using base::Outcome;
using base::TextScanner;
using files::FieldHeader;
using files::FileText;
using files::GridHeader;
using grid::Lattice;

Outcome<ResultBlock> readGrid(const char* path) {
    const std::optional<files::FileText> text = files::readDataFile(path);
    if (!text) return base::Failure{-1};
    base::TextScanner in(text->view());
    Outcome<files::GridHeader> header = files::readGridHeader(in);
    if (!header) return header.failure();
    state().lastBoldValue = header->boldValue;

    const files::FieldHeader& field = header->field;
    const std::size_t n = grid::valueCount(field.nx, field.ny);
    if (!in.mayHold(n)) return base::Failure{-7};
    ResultBlock block = base::allocateFloats(n + 16);
    BlockWriter out(block);
    out.appendCount(n + 16);
    out.appendCount(field.nx);
    out.appendCount(field.ny);
    const grid::Lattice& lattice = field.lattice;
    out.append(std::array{lattice.startLongitude, lattice.startLatitude, lattice.endLongitude,
                          lattice.endLatitude, lattice.longitudeStep, lattice.latitudeStep});
    const std::span<float> extremes = out.claim(2);
    const std::span<float> values = out.claim(n);
    if (!files::readFieldValues(in, files::rowsOf(values, static_cast<std::size_t>(std::max(field.nx, 0)))))
        return base::Failure{-7};
    const auto [largest, smallest] = grid::extremesOf(values, grid::nothingMissing);
    extremes[0] = largest;
    extremes[1] = smallest;
    out.append(std::array{header->interval, header->startValue, header->endValue, header->smoothing,
                          header->boldValue});
    return block;
}

}  // namespace
}  // namespace velmar::capi

float* readVelmar4(const char* path) noexcept {
    using namespace velmar::capi;
    return guardedReader(-7, [&] { return readGrid(path); });
}
