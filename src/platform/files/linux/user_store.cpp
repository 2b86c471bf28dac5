#include "platform/files/user_store.h"

#include "platform/files/files.h"
#include "platform/files/folders.h"

#include <cerrno>
#include <string_view>

namespace Platform {
namespace {

// Whether a level or name is one step down; others could lead out of the store.
bool IsPlainName(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == name.npos &&
           name.find('\0') == name.npos;
}

// The folder of a key.
std::uint32_t FindKeyFolder(std::string_view keyPath, std::string& folder)
{
    if (const std::uint32_t error = FindUserDataFolder(folder))
        return error;
    while (true) {
        const std::size_t end = keyPath.find('\\');
        const std::string_view level = keyPath.substr(0, end);
        if (!IsPlainName(level))
            return EINVAL;
        folder = JoinPath(folder, level);
        if (end == keyPath.npos)
            return 0;
        keyPath.remove_prefix(end + 1);
    }
}

} // namespace

std::vector<std::byte> ReadUserValue(const std::string& keyPath, const std::string& name)
{
    std::string folder;
    FileHandle file;
    std::uint64_t length = 0;
    if (!IsPlainName(name) || FindKeyFolder(keyPath, folder) != 0 ||
        file.Open(JoinPath(folder, name), FileMode::kRead) != 0 || file.GetLength(length) != 0 ||
        length > kUserValueLimit)
        return {};
    std::vector<std::byte> value(static_cast<std::size_t>(length));
    const Transfer read = file.ReadAt(value.data(), value.size(), 0);
    if (read.error != 0 || read.done != value.size())
        return {};
    return value;
}

std::uint32_t WriteUserValue(const std::string& keyPath, const std::string& name,
                             std::span<const std::byte> value)
{
    std::string folder;
    if (!IsPlainName(name) || value.size() > kUserValueLimit)
        return EINVAL;
    if (const std::uint32_t error = FindKeyFolder(keyPath, folder))
        return error;
    if (const std::uint32_t error = MakeFolderPath(folder))
        return error;
    return ReplaceFileContents(JoinPath(folder, name), value);
}

} // namespace Platform
