#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Arguments = std::vector<std::string>;

/// What a run of the program left behind.
struct Answer {
    int exitCode;
    std::string out;
    std::string err;
};

/// What the program has to reply to its arguments: the exit code and a part of what it says on standard error.
struct Reply {
    Arguments arguments;
    int exitCode;
    std::string sentence;
};

std::string readFile(const std::filesystem::path& path);
std::string sample(const std::string& name);

/// Expects that a JSON value holds all that a text in JSON says; null says that there is none.
void expectHolds(const json& value, const std::string& text);

/// A small grid file: two header lines and the values of a function of longitude and latitude.
struct GridText {
    std::string title = "TEST";
    std::string times = "2024 02 28 12 36 500";
    double west = 100;
    double south = 20;
    double step = 1;
    int nx = 11;
    int ny = 11;
    std::string hints = "5 0 1000 0 9999";
    std::function<double(double, double)> value = [](double longitude, double) { return longitude; };

    std::string text() const;
};

/// Runs the program in a folder of its own, which is gone afterwards.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();
    ~ProgramTest() override;

    /// The shell may do something else round the run, as to redirect its output.
    Answer run(const Arguments& arguments, const Arguments& more = {}, const std::string& shell = "{}") const;
    /// The standard output of a run that has to succeed.
    std::string outOf(const Arguments& arguments, const Arguments& more = {}) const;
    json infoOf(const std::string& file) const { return json::parse(outOf({"info", "--json", file})); }
    /// Expects replies to arguments that all begin alike and end alike. Failures print nothing.
    void expectReplies(const Arguments& first, const std::vector<Reply>& replies,
                       const Arguments& last = {}) const;
    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    std::string write(const std::string& name, const std::string& bytes) const;
    std::vector<std::string> filesIn(const std::string& subfolder) const;

private:
    std::filesystem::path folder_;
};
