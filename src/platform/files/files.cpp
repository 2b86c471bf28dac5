#include "platform/files/files.h"

#include "platform/system/process.h"

#include <atomic>
#include <filesystem>

namespace Platform {
namespace {

namespace fs = std::filesystem;

fs::path AsPath(const std::string& path)
{
    return std::u8string(path.begin(), path.end());
}

std::string AsText(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::string ParentOf(const std::string& path)
{
    return AsText(AsPath(path).parent_path());
}

// What a symbolic link leads to, or the path itself. Links that go round are left to the system,
// which refuses to open them.
std::string BehindLinks(const std::string& path)
{
    constexpr int kMostLinks = 40;
    fs::path at = AsPath(path);
    std::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(at, error); ++links)
        at = at.parent_path() / fs::read_symlink(at, error); // an absolute target replaces it
    return AsText(at);
}

// A name in the same folder that no other writer uses, in this process or another one.
std::string NameBeside(const std::string& path)
{
    static std::atomic<std::uint32_t> count = 0;
    return path + "." + std::to_string(ProcessNumber()) + "-" + std::to_string(count++) + ".new";
}

std::uint32_t Finish(FileHandle& file)
{
    const std::uint32_t error = file.Flush();
    return error != 0 ? error : file.Close();
}

std::uint32_t WriteWhole(FileHandle& file, std::span<const std::byte> bytes)
{
    const Transfer written = file.WriteAt(bytes.data(), bytes.size(), 0);
    return written.error != 0 ? written.error : Finish(file);
}

// What is longer than the old content is written first: a disk without room for it is met before
// anything old is touched.
std::uint32_t WriteInPlace(FileHandle& file, std::span<const std::byte> bytes)
{
    std::uint64_t length = 0;
    if (const std::uint32_t error = file.GetLength(length))
        return error;
    if (length < bytes.size()) {
        const std::span<const std::byte> tail = bytes.subspan(static_cast<std::size_t>(length));
        if (const Transfer added = file.WriteAt(tail.data(), tail.size(), length); added.error) {
            file.SetLength(length);
            return added.error;
        }
    }
    if (const Transfer written = file.WriteAt(bytes.data(), bytes.size(), 0); written.error != 0)
        return written.error;
    const std::uint32_t error = file.SetLength(bytes.size());
    return error != 0 ? error : Finish(file);
}

// The permissions come before the content, which others may not be allowed to read.
void GivePermissionsOf(const std::string& existing, const std::string& path)
{
    std::error_code error;
    const fs::file_status status = fs::status(AsPath(existing), error);
    if (fs::exists(status))
        fs::permissions(AsPath(path), status.permissions(), error);
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
    const std::string target = BehindLinks(path);
    FileHandle existing;
    const std::uint32_t refusal = existing.Open(target, FileMode::kUpdate);
    if (refusal != 0 && !IsNotFound(refusal))
        return refusal;
    const std::string beside = NameBeside(target);
    FileHandle fresh;
    std::uint32_t error = fresh.Open(beside, FileMode::kReplace);
    if (IsAccessDenied(error) && existing.IsOpen())
        return WriteInPlace(existing, bytes);
    existing.Close(); // an open file can't be replaced on every system
    if (error != 0)
        return error;
    GivePermissionsOf(target, beside);
    error = WriteWhole(fresh, bytes);
    fresh.Close();
    if (error == 0)
        error = MoveFileOver(beside, target);
    if (error != 0)
        RemoveFile(beside);
    return error;
}

} // namespace Platform
