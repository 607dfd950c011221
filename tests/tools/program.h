#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// What a run of the program left behind.
struct Answer {
    int exitCode;
    std::string out;
    std::string err;
};

std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, const std::string& bytes);
std::string sample(const std::string& name);

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

    Answer run(const std::vector<std::string>& arguments) const;
    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    std::string write(const std::string& name, const std::string& bytes) const;
    std::vector<std::string> filesIn(const std::string& subfolder) const;

private:
    std::filesystem::path folder_;
};
