#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <functional>
#include <locale>

#include "calls.h"
#include "faults.h"
#include "support/files.h"
#include "support/freshLibrary.h"
#include "support/ownFolder.h"
#include "support/quiet.h"

namespace {

using namespace velmar::test;
namespace fs = std::filesystem;

/// A call that hangs ends the test.
class OddFiles : public InOwnFolder {
protected:
    void SetUp() override {
        InOwnFolder::SetUp();
        constexpr unsigned seconds = 30;
        alarm(seconds);
    }
    void TearDown() override {
        alarm(0);
        InOwnFolder::TearDown();
    }
};

/// In whatever folder: a file of rain is found by its name.
constexpr const char* odd = "odd/95031808.000";

/// The names of the exports that do not refuse a file.
std::string notRefusing(const char* path) {
    const Quiet quiet;
    std::string names;
    for (const Call& call : calls())
        if (call.sample != nullptr && runBadly(call, path) != call.refused)
            names += std::string(call.name) + ' ';
    return names;
}

/// The exit code of a process of its own.
int inChild(const std::function<int()>& look) {
    const pid_t child = fork();
    if (child == 0) _exit(look());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(OddFiles, AreRefused) {
    const std::size_t files = openFiles();
    fs::create_directory("odd");
    for (const char* target : {"/dev/full", "/dev/zero", "/dev/null", "/", "no/such/file", "95031808.000"}) {
        fs::create_symlink(target, odd);
        EXPECT_EQ(notRefusing(odd), "") << target;
        fs::remove(odd);
    }
    ASSERT_EQ(mkfifo(odd, S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(notRefusing(odd), "") << "a pipe that nobody writes to";
    fs::remove(odd);
    const std::string longPath = std::string(10000, 'x') + "/95031808.000";
    EXPECT_EQ(notRefusing(longPath.c_str()), "");
    EXPECT_EQ(notRefusing(""), "");
    EXPECT_EQ(notRefusing(nullptr), "");
    std::ofstream(odd) << "diamond 4";
    fs::permissions(odd, fs::perms::none);
    const int code = inChild([] {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0) return 2;
        return notRefusing(odd).empty() ? 0 : 1;
    });
    EXPECT_EQ(code, 0) << "a file that one may not read";
    EXPECT_EQ(openFiles(), files);
}

/// Files of the kernel say that they are as long as a page.
TEST_F(OddFiles, MayBeShorterThanTheirSize) {
    const char* const device = "/sys/class/net/lo/mtu";
    if (!fs::exists(device)) GTEST_SKIP() << "no such device";
    fs::create_directories("plain");
    fs::create_directories("odd");
    fs::create_symlink(device, odd);
    const char* const plain = "plain/95031808.000";
    std::ofstream(plain) << textOf(device);
    ASSERT_GT(fs::file_size(odd), fs::file_size(plain));
    const Quiet quiet;
    for (const Call& call : calls()) EXPECT_EQ(runBadly(call, odd), runBadly(call, plain)) << call.name;
}

TEST_F(OddFiles, MayShrinkWhileTheyAreRead) {
    fs::create_directories("plain");
    fs::create_directories("odd");
    const char* const plain = "plain/95031808.000";
    for (const Call& call : calls()) {
        if (call.sample == nullptr) continue;
        const Quiet quiet;
        const std::string whole = textOf(sample(call.sample));
        // Sizes in the middle of a number too.
        for (const std::size_t size : {whole.size() / 2, whole.size() / 2 + 1, whole.size() - 2}) {
            std::ofstream(plain) << whole.substr(0, size);
            std::ofstream(odd) << whole;
            resetLibrary();
            const Seen expected = runBadly(call, plain);
            resetLibrary();
            faults::beforeOpening([&] { static_cast<void>(truncate(odd, static_cast<off_t>(size))); });
            const Seen seen = runBadly(call, odd);
            faults::beforeOpening({});
            EXPECT_TRUE(seen == expected) << call.name << ", cut to " << size;
        }
    }
}

/// A file that a call writes beside its result.
struct Diagnostic {
    const char* file;
    const char* call;
    const char* unwritable;  ///< the outcome when it cannot be opened; null: as ever
};
constexpr Diagnostic diagnostics[] = {{"OAtestC.000", "OAReadVelmar1", nullptr},
                                      {"OAtestttq.000", "ReadVelmar1Tqq", nullptr},
                                      {"OATQQ.000", "TqqOA", nullptr},
                                      {"C:\\clipdebug.txt", "polygonfill", "null -1"},
                                      {"C:\\readmap9.txt", "ReadMap9", nullptr}};

const Call& callOf(const Diagnostic& diagnostic) {
    return *std::ranges::find(calls(), std::string(diagnostic.call), &Call::name);
}

/// The outcome of a call in a fresh process.
Seen outcome(const Call& call) {
    resetLibrary();
    return runWell(call);
}

/// The outcome where nothing can be written to files.
Seen onFullDisk(const std::function<Seen()>& look) {
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full{0, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    const Seen seen = look();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, SIG_DFL);
    return seen;
}

using DiagnosticFiles = OddFiles;

TEST_F(DiagnosticFiles, MayFailToBeWritten) {
    const Quiet quiet;
    const std::size_t files = openFiles();
    for (const Diagnostic& diagnostic : diagnostics) {
        const Call& call = callOf(diagnostic);
        const Seen good = outcome(call);
        ASSERT_GT(fs::file_size(diagnostic.file), 0U) << diagnostic.file;
        fs::remove(diagnostic.file);
        EXPECT_TRUE(onFullDisk([&] { return outcome(call); }) == good) << diagnostic.file;
        fs::remove(diagnostic.file);
        const Seen expected = diagnostic.unwritable == nullptr ? good : diagnostic.unwritable;
        std::ofstream("kept") << "data";
        fs::create_symlink("kept", diagnostic.file);
        EXPECT_TRUE(outcome(call) == expected && textOf("kept") == "data") << diagnostic.file << " is a link";
        fs::remove(diagnostic.file);
        fs::create_directory(diagnostic.file);
        EXPECT_TRUE(outcome(call) == expected) << diagnostic.file << " is a folder";
        fs::remove(diagnostic.file);
        ASSERT_EQ(mkfifo(diagnostic.file, S_IRUSR | S_IWUSR), 0);
        EXPECT_TRUE(outcome(call) == expected) << diagnostic.file << " is a pipe that nobody reads";
    }
    EXPECT_EQ(openFiles(), files);
}

/// Runs the calls that write diagnostic files, also on a map of a long line and on one that is not there; gives the
/// files.
std::string allDiagnostics() {
    std::string texts;
    for (const Diagnostic& diagnostic : diagnostics) {
        static_cast<void>(outcome(callOf(diagnostic)));
        texts += textOf(diagnostic.file);
    }
    std::string map = "March 9 map 1 2 3 4 5 6 7 8 9 10 1000 1 2 3 4 5 a b\n";
    for (int k = 0; k < 1000; ++k) map += "100 30\n";
    std::ofstream("map.009") << map;
    for (const char* path : {"map.009", "no/such/file"}) {
        freecPointer(ReadMap9(path));
        texts += textOf("C:\\readmap9.txt");
    }
    return texts;
}

/// Where a standard stream is closed, a file gets its number. What is printed must not come into the file.
TEST_F(DiagnosticFiles, HoldNothingElseWhenStandardStreamsAreClosed) {
    const Quiet quiet;
    const std::string expected = allDiagnostics();
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        const int code = inChild([&] {
            std::setvbuf(stdout, nullptr, _IONBF, 0);
            close(stream);
            return allDiagnostics() == expected ? 0 : 1;
        });
        EXPECT_EQ(code, 0) << "descriptor " << stream;
    }
}

struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
};

/// The C++ library's streams follow a locale of their own, apart from that of the C library.
TEST_F(DiagnosticFiles, AreTheSameInAnyLocale) {
    const Quiet quiet;
    const std::string expected = allDiagnostics();
    const std::locale former = std::locale::global(std::locale(std::locale(), new Grouping));
    const std::string grouped = allDiagnostics();
    std::locale::global(former);
    EXPECT_TRUE(grouped == expected);
}

}  // namespace
