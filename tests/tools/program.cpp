#include "program.h"

#include <fmt/format.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "base/progress.h"

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::string sample(const std::string& name) { return std::string(VELMAR_SAMPLES) + "/" + name; }

void expectHolds(const json& value, const std::string& text) {
    json patched = value;
    patched.merge_patch(json::parse(text));
    EXPECT_EQ(patched, value);
}

std::string GridText::text() const {
    std::string text =
        fmt::format("diamond 4 {}\n{}\n{} {} {} {} {} {} {} {}\n{}\n", title, times, step, step, west,
                    west + (nx - 1) * step, south, south + (ny - 1) * step, nx, ny, hints);
    for (int j = 0; j < ny; ++j)
        for (int i = 0; i < nx; ++i) text += fmt::format("{}\n", value(west + i * step, south + j * step));
    return text;
}

ProgramTest::ProgramTest()
    : folder_(fs::temp_directory_path() / fmt::format("velmar-test-{:08x}", std::random_device{}())) {
    fs::create_directories(folder_);
    velmar::base::setProgressEnabled(false);
}

ProgramTest::~ProgramTest() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

Answer ProgramTest::run(const Arguments& arguments, const Arguments& more, const std::string& shell) const {
    std::string command = VELMAR_PROGRAM;
    for (const auto* part : {&arguments, &more})
        for (const std::string& argument : *part) command += " '" + argument + "'";
    command += fmt::format(" >'{}' 2>'{}'", path(".stdout"), path(".stderr"));
    const int status = std::system(fmt::format(fmt::runtime(shell), command).c_str());
    Answer result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(path(".stdout")),
                  readFile(path(".stderr"))};
    fs::remove(path(".stdout"));
    fs::remove(path(".stderr"));
    return result;
}

std::string ProgramTest::outOf(const Arguments& arguments, const Arguments& more) const {
    const Answer answer = run(arguments, more);
    EXPECT_EQ(answer.exitCode, 0) << answer.err;
    return answer.out;
}

void ProgramTest::expectReplies(const Arguments& first, const std::vector<Reply>& replies,
                                const Arguments& last) const {
    for (const auto& [arguments, exitCode, sentence] : replies) {
        Arguments rest = arguments;
        rest.insert(rest.end(), last.begin(), last.end());
        const Answer answer = run(first, rest);
        EXPECT_EQ(answer.exitCode, exitCode) << sentence;
        EXPECT_THAT(answer.err, HasSubstr(sentence));
        EXPECT_TRUE(exitCode == 0 || answer.out.empty()) << sentence;
    }
}

std::string ProgramTest::write(const std::string& name, const std::string& bytes) const {
    fs::create_directories(fs::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
}

std::vector<std::string> ProgramTest::filesIn(const std::string& subfolder) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path(subfolder)))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}
