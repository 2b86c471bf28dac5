// The file in which a plug-in keeps its settings for the user.
#pragma once

#include "foundation/streams/file_spec.h"
#include "view/process/process.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace Testing {

// Gone when the object begins, and when it ends.
class StoredSettings {
public:
    explicit StoredSettings(const char* name)
    {
        Kesto::CProcess process;
        Kesto::CFileSpec folder;
        process.GetSettingsFolder(folder);
        fFile = std::filesystem::path(folder.Path().CStr()) / name;
        Remove();
    }
    ~StoredSettings() { Remove(); }
    StoredSettings(const StoredSettings&) = delete;
    StoredSettings& operator=(const StoredSettings&) = delete;

    const std::filesystem::path& File() const { return fFile; }
    void Remove() const { std::filesystem::remove_all(fFile); }
    void Write(const std::string& bytes) const { std::ofstream(fFile, std::ios::binary) << bytes; }
    std::string Read() const
    {
        std::ifstream file(fFile, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path fFile;
};

} // namespace Testing
