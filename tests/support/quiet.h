#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>

namespace velmar::test {

/// Standard output and standard error lead nowhere while this is there.
class Quiet {
public:
    Quiet() {
        std::fflush(stdout);
        for (Stream& stream : streams_) stream.kept = fcntl(stream.descriptor, F_DUPFD_CLOEXEC, 3);
        const int nowhere = open("/dev/null", O_WRONLY);
        for (const Stream& stream : streams_) dup2(nowhere, stream.descriptor);
        if (nowhere > STDERR_FILENO) close(nowhere);
    }
    ~Quiet() {
        std::fflush(stdout);
        for (const Stream& stream : streams_) {
            if (stream.kept < 0) {
                close(stream.descriptor);
            } else {
                dup2(stream.kept, stream.descriptor);
                close(stream.kept);
            }
        }
    }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    struct Stream {
        int descriptor;
        int kept = -1;  ///< where it led; below 0: it was closed
    };
    std::array<Stream, 2> streams_{{{STDOUT_FILENO}, {STDERR_FILENO}}};
};

}  // namespace velmar::test
