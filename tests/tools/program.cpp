#include "program.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string sample(const std::string& name) { return std::string(VELMAR_SAMPLES) + "/" + name; }

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
}

ProgramTest::~ProgramTest() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

Answer ProgramTest::run(const std::vector<std::string>& arguments) const {
    std::string command = VELMAR_PROGRAM;
    for (const std::string& argument : arguments) command += " '" + argument + "'";
    const int status =
        std::system(fmt::format("{} >'{}' 2>'{}'", command, path(".stdout"), path(".stderr")).c_str());
    Answer result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(path(".stdout")),
                  readFile(path(".stderr"))};
    fs::remove(path(".stdout"));
    fs::remove(path(".stderr"));
    return result;
}

std::string ProgramTest::write(const std::string& name, const std::string& bytes) const {
    fs::create_directories(fs::path(path(name)).parent_path());
    writeFile(path(name), bytes);
    return path(name);
}

std::vector<std::string> ProgramTest::filesIn(const std::string& subfolder) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path(subfolder)))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}
