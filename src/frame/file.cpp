#include "frame/file.h"

#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <new>

#include "frame/messages.h"

namespace velmar::frame {

namespace {

struct FileClose {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::optional<FileText> readWholeFile(const char* path) {
    if (path == nullptr) return std::nullopt;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    const std::unique_ptr<std::FILE, FileClose> file(std::fopen(path, "rb"));
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (file == nullptr || error) return std::nullopt;
    if (size > std::numeric_limits<std::size_t>::max()) throw std::bad_alloc();
    FileText text{std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size)), 0};
    text.size = std::fread(text.bytes.get(), 1, static_cast<std::size_t>(size), file.get());
    return text;
}

std::optional<FileText> readDataFile(const char* path) {
    std::optional<FileText> text = readWholeFile(path);
    if (!text) std::fprintf(stderr, messages::cannotOpenDataFile, path == nullptr ? "(null)" : path);
    return text;
}

}  // namespace velmar::frame
