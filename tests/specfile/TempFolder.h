// A folder of its own for each test, gone afterwards.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

class TTempFolder : public testing::Test {
protected:
    TTempFolder() { std::filesystem::create_directories(folder_); }
    ~TTempFolder() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path Write(const std::filesystem::path &name, const std::string &bytes) const {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
        return folder_ / name;
    }

    static std::string Read(const std::filesystem::path &path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    const std::filesystem::path folder_ = UniqueFolder();

private:
    static std::filesystem::path UniqueFolder() {
        const auto *test = testing::UnitTest::GetInstance()->current_test_info();
        return std::filesystem::path(testing::TempDir()) /
               (std::string("specfile_") + test->test_suite_name() + "_" + test->name());
    }
};
