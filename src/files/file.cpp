#include "files/file.h"

#include <sys/stat.h>

#if !defined(_WIN32)
#include <unistd.h>
#endif

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <new>

#include "base/messages.h"
#include "base/threads.h"

namespace velmar::files {

namespace {

#if defined(_WIN32)
std::size_t readBytes(std::FILE* file, char* bytes, std::size_t size) {
    return std::fread(bytes, 1, size, file);
}
#else
/// Reads a piece of a file; returns how many bytes there were.
std::size_t readPiece(int file, char* bytes, std::size_t size, std::size_t offset) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = pread(file, bytes + done, size - done, static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

/// Threads read pieces of a large file. Returns how many bytes there are up to the first that is not.
std::size_t readBytes(std::FILE* file, char* bytes, std::size_t size) {
    constexpr std::size_t pieceBytes = std::size_t{1} << 20U;
    constexpr double nanosecondsEach = 0.4 * pieceBytes;
    const int descriptor = fileno(file);
    const std::size_t pieces = (size + pieceBytes - 1) / pieceBytes;
    const auto runs = base::collectWork(pieces, nanosecondsEach, [&](std::size_t first, std::size_t last) {
        const std::size_t offset = first * pieceBytes;
        const std::size_t wanted = std::min(last * pieceBytes, size) - offset;
        return readPiece(descriptor, bytes + offset, wanted, offset);
    });
    std::size_t done = 0;
    for (const auto& [first, count] : runs)
        if (done == first * pieceBytes) done += count;
    return done;
}
#endif

}  // namespace

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
    text.size = readBytes(file.get(), text.bytes.get(), static_cast<std::size_t>(size));
    return text;
}

std::optional<FileText> readDataFile(const char* path) {
    std::optional<FileText> text = readWholeFile(path);
    if (!text) std::fprintf(stderr, base::messages::cannotOpenDataFile, path == nullptr ? "(null)" : path);
    return text;
}

}  // namespace velmar::files
