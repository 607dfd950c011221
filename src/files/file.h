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

    /// The bytes as text. Old editors mark its end by a last byte 0x1A, which is no part of it.
    std::string_view view() const {
        const bool marked = size > 0 && bytes[size - 1] == '\x1A';
        return raw().substr(0, size - (marked ? 1 : 0));
    }
};

struct FileClose {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileClose>;

/// Reads a regular file as long as it is before it is opened, or less when it shrinks meanwhile. Nothing when
/// it cannot be opened; anything else than a regular file counts as that: a directory has no bytes, and a
/// pipe or a device could keep the host waiting for ever.
std::optional<FileText> readWholeFile(const char* path);

/// The same for the readers of data files, which name a file that they cannot open on standard error.
std::optional<FileText> readDataFile(const char* path);

}  // namespace velmar::files
