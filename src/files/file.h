#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>

namespace velmar::files {

/// The bytes of a file.
struct FileText {
    std::unique_ptr<char[]> bytes;
    std::size_t size;

    std::string_view raw() const { return {bytes.get(), size}; }

    /// The bytes as text. A last byte 0x1A, the end mark of old editors, does not belong to it.
    std::string_view view() const {
        const bool marked = size > 0 && bytes[size - 1] == '\x1A';
        return raw().substr(0, size - (marked ? 1 : 0));
    }
};

struct FileClose {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileClose>;

/// Reads a regular file, up to the length that it has before it is opened; less when it shrinks meanwhile. Nullopt when
/// it cannot be opened or is not a regular file: a directory has no bytes, and a pipe or a device could keep the host
/// waiting for ever.
std::optional<FileText> readWholeFile(const char* path);

/// The same for the readers of data files, which name a file that they cannot open on standard error.
std::optional<FileText> readDataFile(const char* path);

}  // namespace velmar::files
