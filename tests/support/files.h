#pragma once

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "velmarBaseA.h"

namespace velmar::test {

struct Release {
    void operator()(float* block) const { freecPointer(block); }
};
using Block = std::unique_ptr<float[], Release>;

inline std::string sample(const std::string& name) { return VELMAR_SAMPLES "/" + name; }

/// A file of the given text that goes when the test ends.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& text)
        : path_(std::filesystem::temp_directory_path() /
                ("velmar-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "-" +
                 std::to_string(std::hash<std::string>{}(text)))) {
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~TemporaryFile() { std::filesystem::remove(path_); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::string path() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

/// What a reader makes of a file of the given text.
template <class Reader>
Block readWith(Reader read, const std::string& text) {
    return Block(read(TemporaryFile(text).path().c_str()));
}

inline std::vector<float> elements(const Block& block, std::size_t count, std::size_t first = 0) {
    if (block == nullptr) return {};
    return {&block[first], &block[first] + count};
}

/// Text of a grid file with the given sizes and longitude step, its values behind the header.
inline std::string gridText(int nx, int ny, const std::string& longitudeStep, const std::string& values,
                            const std::string& hints = "4 0 100 0 8") {
    return "diamond 4 title\n2011 10 08 00 72 500\n" + longitudeStep + " -2.5 0 357.5 90 -90 " +
           std::to_string(nx) + " " + std::to_string(ny) + "\n" + hints + "\n" + values;
}

}  // namespace velmar::test
