#include "files/gridWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>
#include <utility>

#include "base/messages.h"
#include "base/numbers.h"
#include "files/diagnosticFile.h"

namespace velmar::files {

namespace {

/// Text on its way to a stream.
class TextWriter {
public:
    explicit TextWriter(std::FILE* file) : file_(file) {}
    ~TextWriter() { flush(); }
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    void write(std::string_view text) {
        makeRoom();
        used_ += text.copy(next(), longestItem);
    }

    void write(int value) {
        makeRoom();
        advance(std::to_chars(next(), next() + longestItem, value).ptr);
    }

    template <int decimals>
    void write(float value) {
        makeRoom();
        advance(base::writeReal<decimals>(next(), next() + longestItem, value));
    }

    /// A line of the data: two decimals, at least eight characters.
    void writeValue(float value) {
        constexpr std::ptrdiff_t width = 8;
        makeRoom();
        char* const first = next();
        char* last = base::writeReal<2>(first, first + longestItem, value);
        if (last - first < width) {
            std::copy_backward(first, last, first + width);
            std::fill(first, first + (width - (last - first)), ' ');
            last = first + width;
        }
        *last = '\n';
        advance(last + 1);
    }

private:
    static constexpr std::size_t longestItem = base::longestRealText;

    char* next() { return text_.data() + used_; }
    void advance(const char* end) { used_ = static_cast<std::size_t>(end - text_.data()); }

    void makeRoom() {
        if (text_.size() - used_ <= longestItem) flush();
    }

    void flush() {
        std::fwrite(text_.data(), 1, used_, file_);
        used_ = 0;
    }

    std::FILE* file_;
    std::size_t used_ = 0;
    std::array<char, 1 << 16> text_{};
};

void writeHeader(TextWriter& out, const WrittenGrid& grid, const DrawingHints& hints) {
    out.write(base::messages::analysisTitle);
    // The date is deliberately fixed, whatever the date of the stations.
    out.write("2006 6 2 8 0 1000\n");
    const grid::Lattice& at = grid.lattice;
    const char* separator = "";
    for (const float degrees : {at.longitudeStep, at.latitudeStep, at.startLongitude, at.endLongitude,
                                at.startLatitude, at.endLatitude}) {
        out.write(separator);
        out.write<6>(degrees);
        separator = " ";
    }
    out.write("\n");
    out.write(grid.values.nx);
    out.write(" ");
    out.write(grid.values.ny);
    out.write(" ");
    out.write<6>(hints.interval);
    out.write(" ");
    out.write<1>(hints.startValue);
    out.write(" ");
    out.write<1>(hints.endValue);
    out.write(" 0 0.0\n");  // smoothing, bold value
}

}  // namespace

void writeAnalysisGrid(OpenFile file, const WrittenGrid& grid, const DrawingHints& hints) {
    TextWriter out(file.get());
    writeHeader(out, grid, hints);
    const grid::GridView& values = grid.values;
    if (values.size() == 0) return;
    for (int j = 0; j < values.ny; ++j) {
        for (int i = 0; i < values.nx; ++i) out.writeValue(values.at(i, j));
        out.write("\n");
    }
}

void writeDiagnosticGrid(const char* name, const char* beingRead, const WrittenGrid& grid,
                         const DrawingHints& hints) {
    OpenFile file = openDiagnosticFile(name, beingRead);
    if (file != nullptr) writeAnalysisGrid(std::move(file), grid, hints);
}

}  // namespace velmar::files
