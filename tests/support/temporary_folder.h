// A folder of a test's own, with a space in its name, gone when the test ends.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder()
        : fPath(std::filesystem::temp_directory_path() /
                ("sidecar test " + std::to_string(std::random_device{}())))
    {
        std::filesystem::create_directories(fPath);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(fPath, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return fPath; }
    std::filesystem::path operator/(std::string_view name) const { return fPath / name; }

    std::filesystem::path Put(std::string_view name, std::string_view bytes) const
    {
        std::ofstream(fPath / name, std::ios::binary) << bytes;
        return fPath / name;
    }

    // The file's bytes, or "none".
    std::string Get(std::string_view name) const
    {
        std::ifstream file(fPath / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "none";
    }

    // How many files and folders lie in it.
    std::ptrdiff_t Count() const
    {
        return std::distance(std::filesystem::directory_iterator(fPath),
                             std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path fPath;
};
