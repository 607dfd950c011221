#include <gmock/gmock.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>

#include "base/threads.h"

/// Runs the tests of a program. With VELMAR_DECIMAL_COMMA in the environment they run in the locale of the environment,
/// that of the C library and that of C++ streams, which must have a decimal comma. With VELMAR_SHARED_WORK even the
/// least work is shared among three threads.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (std::getenv("VELMAR_DECIMAL_COMMA") != nullptr) {
        if (std::setlocale(LC_ALL, "") == nullptr || *std::localeconv()->decimal_point != ',') {
            std::fputs("The locale of the environment has no decimal comma.\n", stderr);
            return EXIT_FAILURE;
        }
        std::locale::global(std::locale(""));
    }
    if (std::getenv("VELMAR_SHARED_WORK") != nullptr) velmar::base::setThreadLimit(3, 0.0);
    return RUN_ALL_TESTS();
}
