// A folder of its own for one test, gone with everything in it afterwards.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

class TTemporaryFolder {
public:
    TTemporaryFolder() {
        std::random_device source;
        do
            path_ = std::filesystem::temp_directory_path() /
                    ("ferrolyn-test-" + std::to_string(source()));
        while (!std::filesystem::create_directory(path_)); // false for one that is there
    }
    TTemporaryFolder(const TTemporaryFolder &) = delete;
    TTemporaryFolder &operator=(const TTemporaryFolder &) = delete;
    ~TTemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path &Path() const { return path_; }
    std::filesystem::path operator/(const std::string &name) const { return path_ / name; }

    /// Names of all that is in the folder, in no order.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        return names;
    }

private:
    std::filesystem::path path_;
};

/// Writes a file by plain means.
inline void PutFile(const std::filesystem::path &file, const std::vector<std::uint8_t> &bytes) {
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char *>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush())
        throw std::runtime_error("cannot write " + file.string());
}

/// Reads a file by plain means.
inline std::vector<std::uint8_t> GetFile(const std::filesystem::path &file) {
    std::ifstream stream(file, std::ios::binary | std::ios::ate);
    std::vector<std::uint8_t> bytes(stream ? static_cast<std::size_t>(stream.tellg()) : 0);
    stream.seekg(0);
    if (!stream.read(reinterpret_cast<char *>(bytes.data()),
                     static_cast<std::streamsize>(bytes.size())))
        throw std::runtime_error("cannot read " + file.string());
    return bytes;
}
