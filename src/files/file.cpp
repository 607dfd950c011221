#include "files/file.h"

#include <sys/stat.h>

#include <cstdint>
#include <limits>
#include <new>

#include "base/messages.h"

namespace velmar::files {

std::optional<FileText> readWholeFile(const char* path) {
    if (path == nullptr) return std::nullopt;
    // Not by std::filesystem, which takes the bytes for UTF-8 on Windows: there a path is in the code page.
    struct stat status {};
    if (stat(path, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    const OpenFile file(std::fopen(path, "rb"));
    if (file == nullptr) return std::nullopt;
    if (size > std::numeric_limits<std::size_t>::max()) throw std::bad_alloc();
    FileText text{std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size)), 0};
    text.size = std::fread(text.bytes.get(), 1, static_cast<std::size_t>(size), file.get());
    return text;
}

std::optional<FileText> readDataFile(const char* path) {
    std::optional<FileText> text = readWholeFile(path);
    if (!text) std::fprintf(stderr, base::messages::cannotOpenDataFile, path == nullptr ? "(null)" : path);
    return text;
}

}  // namespace velmar::files
