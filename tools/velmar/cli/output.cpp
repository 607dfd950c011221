#include "cli/output.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>

#include "cli/callFiles.h"
#include "common/text.h"

namespace velmar::tool {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void cannotWrite(const std::string& name, int error) {
    throw Problem(fmt::format("the output {} cannot be written: {}", name, std::strerror(error)));
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

void writeAll(const std::string& path, const char* mode, const std::string& name, const std::string& bytes) {
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), mode));
    if (!file) cannotWrite(name, errno);
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) cannotWrite(name, errno);
    if (std::fclose(file.release()) != 0) cannotWrite(name, errno);
}

void writeStandardOutput(const std::string& bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size() || std::fflush(stdout) != 0)
        cannotWrite("on standard output", errno);
}

/// Fills a file beside the target and then gives it the target's name.
void replaceFile(const fs::path& target, const std::string& name, const std::string& bytes) {
    fs::path part = target;
    part += fmt::format(".{:08x}.part", std::random_device{}());
    std::error_code error;
    try {
        writeAll(part.string(), "wbx", name, bytes);
        fs::rename(part, target, error);
    } catch (const Problem&) {
        std::error_code ignored;
        fs::remove(part, ignored);
        throw;
    }
    if (!error) return;
    std::error_code ignored;
    fs::remove(part, ignored);
    cannotWrite(name, error.value());
}

}  // namespace

void writeOutput(const std::string& name, const std::string& bytes) {
    if (name == "-") return writeStandardOutput(bytes);
    std::error_code error;
    const fs::path target = targetOf(name);
    if (fs::is_directory(target, error)) cannotWrite(name, EISDIR);
    // A device or a pipe must not be replaced by a file.
    if (fs::exists(target, error) && !fs::is_regular_file(target, error))
        writeAll(target.string(), "wb", name, bytes);
    else
        replaceFile(target, name, bytes);
}

void guardStandardStreams() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) std::signal(signal, SIG_IGN);
    // While a standard stream is closed, the next file that is opened gets its number, and all that is said to the
    // stream. The stand-in cannot be written, so that an answer that goes nowhere is still noticed.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) < 0) static_cast<void>(open("/dev/null", O_RDONLY));
}

void writeStandardError(std::string_view text) {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

}  // namespace velmar::tool
