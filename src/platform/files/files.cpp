#include "platform/files/files.h"

#include "platform/system/process.h"

#include <atomic>
#include <filesystem>

namespace Platform {
namespace {

std::string ParentOf(const std::string& path)
{
    const std::u8string parent =
        std::filesystem::path(std::u8string(path.begin(), path.end())).parent_path().u8string();
    return {parent.begin(), parent.end()};
}

// A name in the same folder that no other writer uses, in this process or another one.
std::string NameBeside(const std::string& path)
{
    static std::atomic<std::uint32_t> count = 0;
    return path + "." + std::to_string(ProcessNumber()) + "-" + std::to_string(count++) + ".new";
}

std::uint32_t CheckReplaceable(const std::string& path)
{
    FileHandle existing;
    const std::uint32_t error = existing.Open(path, FileMode::kUpdate);
    return IsNotFound(error) ? 0 : error;
}

std::uint32_t WriteNewFile(const std::string& path, std::span<const std::byte> bytes)
{
    FileHandle file;
    if (const std::uint32_t error = file.Open(path, FileMode::kReplace))
        return error;
    if (const Transfer written = file.WriteAt(bytes.data(), bytes.size(), 0); written.error != 0)
        return written.error;
    if (const std::uint32_t error = file.Flush())
        return error;
    return file.Close();
}

} // namespace

std::string JoinPath(std::string_view folder, std::string_view name)
{
    constexpr auto kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
    std::string path(folder);
    if (!path.empty() && path.back() != '/' && path.back() != kSeparator)
        path += kSeparator;
    return path.append(name);
}

std::uint32_t MakeFolderPath(const std::string& path)
{
    const std::uint32_t error = MakeFolder(path);
    if (!IsNotFound(error))
        return error;
    const std::string parent = ParentOf(path);
    if (parent.empty() || parent == path)
        return error;
    if (const std::uint32_t parentError = MakeFolderPath(parent))
        return parentError;
    return MakeFolder(path);
}

std::uint32_t ReplaceFileContents(const std::string& path, std::span<const std::byte> bytes)
{
    if (const std::uint32_t error = CheckReplaceable(path))
        return error;
    const std::string beside = NameBeside(path);
    std::uint32_t error = WriteNewFile(beside, bytes);
    if (error == 0)
        error = MoveFileOver(beside, path);
    if (error != 0)
        RemoveFile(beside);
    return error;
}

} // namespace Platform
