// A folder of its own for each test, gone when the test ends.
#pragma once

#include "foundation/file_spec.h"
#include "platform/process_number.h"

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        static std::atomic<int> count = 0;
        fPath = std::filesystem::temp_directory_path() /
                ("sidecar-test-" + std::to_string(Platform::ProcessNumber()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(fPath);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(fPath, ignored);
    }

    const std::filesystem::path& Path() const { return fPath; }
    Kesto::CFileSpec Spec() const
    {
        const std::u8string utf8 = fPath.u8string();
        return Kesto::CFileSpec(Kesto::CText(std::string(utf8.begin(), utf8.end())));
    }
    Kesto::CFileSpec File(const char* name) const { return Spec().Child(name); }

    void Write(const char* name, std::string_view bytes) const
    {
        std::ofstream(fPath / name, std::ios::binary) << bytes;
    }

    // The file's bytes, or "none".
    std::string Content(const char* name) const
    {
        std::ifstream file(fPath / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "none";
    }

    // How many files and folders lie in it.
    std::ptrdiff_t Count() const
    {
        return std::distance(std::filesystem::directory_iterator(fPath), std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path fPath;
};
