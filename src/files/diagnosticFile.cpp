#include "files/diagnosticFile.h"

#include <fcntl.h>

#include <cstdint>
#include <optional>

#if defined(_WIN32)
#include <io.h>
#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace velmar::files {

// The checks are made on the opened file, so that it cannot be exchanged in between, and before it is truncated.

#if defined(_WIN32)

namespace {

constexpr DWORD anyShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

using Description = BY_HANDLE_FILE_INFORMATION;

/// Nullopt for pipes and devices.
std::optional<Description> descriptionOf(HANDLE file) {
    Description found;
    if (GetFileInformationByHandle(file, &found) == 0) return std::nullopt;
    return found;
}

std::optional<Description> descriptionOf(const char* path) {
    if (path == nullptr) return std::nullopt;
    const HANDLE file = CreateFileA(path, 0, anyShare, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    const std::optional<Description> found = descriptionOf(file);
    CloseHandle(file);
    return found;
}

bool sameFile(const Description& a, const Description& b) {
    return a.dwVolumeSerialNumber == b.dwVolumeSerialNumber && a.nFileIndexHigh == b.nFileIndexHigh &&
           a.nFileIndexLow == b.nFileIndexLow;
}

bool mayBeEmptied(HANDLE file, const std::optional<Description>& beingRead) {
    const std::optional<Description> found = descriptionOf(file);
    return found && (found->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 &&
           found->nNumberOfLinks == 1 && !(beingRead && sameFile(*found, *beingRead));
}

}  // namespace

OpenFile openDiagnosticFile(const char* name, const char* beingRead) {
    const std::optional<Description> input = descriptionOf(beingRead);
    const HANDLE handle = CreateFileA(name, GENERIC_WRITE, anyShare, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    const bool emptied = mayBeEmptied(handle, input) && SetEndOfFile(handle) != 0;
    const int descriptor = emptied ? _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_TEXT) : -1;
    if (descriptor < 0) {
        CloseHandle(handle);
        return nullptr;
    }
    OpenFile file(_fdopen(descriptor, "w"));
    if (file == nullptr) _close(descriptor);
    return file;
}

#else

namespace {

using Description = struct stat;

std::optional<Description> descriptionOf(const char* path) {
    Description found;
    if (path == nullptr || stat(path, &found) != 0) return std::nullopt;
    return found;
}

bool sameFile(const Description& a, const Description& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool mayBeEmptied(int descriptor, const std::optional<Description>& beingRead) {
    Description found;
    return fstat(descriptor, &found) == 0 && S_ISREG(found.st_mode) && found.st_nlink == 1 &&
           !(beingRead && sameFile(found, *beingRead));
}

}  // namespace

OpenFile openDiagnosticFile(const char* name, const char* beingRead) {
    const std::optional<Description> input = descriptionOf(beingRead);
    constexpr int readAndWriteForAll = 0666;
    const int descriptor =
        open(name, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, readAndWriteForAll);
    if (descriptor < 0) return nullptr;
    const bool emptied = mayBeEmptied(descriptor, input) && ftruncate(descriptor, 0) == 0;
    OpenFile file(emptied ? fdopen(descriptor, "w") : nullptr);
    if (file == nullptr) close(descriptor);
    return file;
}

#endif

}  // namespace velmar::files
