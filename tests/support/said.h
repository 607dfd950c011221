#pragma once

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

#include <cstdio>
#include <string>

#include "base/progress.h"

namespace velmar::test {

/// What is printed while this is there. A standard output that is closed leads nowhere for the time.
class CapturedOutput {
public:
    CapturedOutput() {
#if !defined(_WIN32)
        wasClosed_ = fcntl(STDOUT_FILENO, F_GETFD) < 0;
        // The lowest free number is the one of standard output: standard input is open.
        if (wasClosed_) static_cast<void>(open("/dev/null", O_WRONLY));
#endif
        testing::internal::CaptureStdout();
    }

    /// To be called once, at the end.
    std::string text() {
        std::fflush(stdout);
        std::string text = testing::internal::GetCapturedStdout();
#if !defined(_WIN32)
        if (wasClosed_) close(STDOUT_FILENO);
#endif
        return text;
    }

private:
    bool wasClosed_ = false;
};

/// What an export prints. Texts are silenced afterwards.
template <class Call>
std::string said(Call&& call) {
    base::setProgressEnabled(true);
    CapturedOutput output;
    call();
    base::setProgressEnabled(false);
    return output.text();
}

}  // namespace velmar::test
