#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace velmar::test {

/// The text of a file that was written as text.
inline std::string textOf(const std::string& name) {
    std::ifstream file(name);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Tests of exports that write to the current directory: it is a new one here.
class InOwnFolder : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directory(folder_);
        std::filesystem::current_path(folder_);
    }
    void TearDown() override {
        std::filesystem::current_path(former_);
        std::filesystem::remove_all(folder_);
    }

private:
    std::filesystem::path former_ = std::filesystem::current_path();
    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("velmar-test-" + std::to_string(std::random_device{}()));
};

}  // namespace velmar::test
