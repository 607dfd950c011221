#include "frame/file.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "frame/messages.h"

namespace velmar::frame {

namespace {

struct FileClose {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::optional<std::string> readWholeFile(const char* path) {
    if (path == nullptr) return std::nullopt;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    const std::unique_ptr<std::FILE, FileClose> file(std::fopen(path, "rb"));
    if (file == nullptr) return std::nullopt;

    // The size is a hint: the file may grow or shrink while it is read.
    const std::uintmax_t expected = std::filesystem::file_size(path, error);
    std::string bytes(error ? 0 : static_cast<std::size_t>(expected), '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    std::array<char, 4096> more;
    while (const std::size_t got = std::fread(more.data(), 1, more.size(), file.get()))
        bytes.append(more.data(), got);
    return bytes;
}

std::optional<std::string> readDataFile(const char* path) {
    std::optional<std::string> bytes = readWholeFile(path);
    if (!bytes) std::fprintf(stderr, messages::cannotOpenDataFile, path == nullptr ? "(null)" : path);
    return bytes;
}

}  // namespace velmar::frame
