#include "cli/standardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

namespace velmar::tool {

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
