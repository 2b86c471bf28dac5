#include "files/pending_file.h"

#include "lumograph/results.h"

#include <array>
#include <cstdio>
#include <random>

namespace Host {
namespace {

namespace fs = std::filesystem;

int16_t ResultOf(const std::error_code& error)
{
    if (error == std::errc::no_such_file_or_directory)
        return kHostFileNotFound;
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        return kHostOpenError;
    return error ? kHostIoError : kHostNoError;
}

fs::path TemporaryName(std::random_device& random)
{
    std::array<char, 40> text = {};
    std::snprintf(text.data(), text.size(), ".lumohost-%08x%08x.tmp", random(), random());
    return text.data();
}

} // namespace

int16_t PendingFile::Create(RawFile& file)
{
    Discard();
    std::error_code error;
    if (fs::exists(fTarget, error)) {
        if (!fs::is_regular_file(fTarget, error))
            return kHostOpenError;
        // What a link points to is replaced, not the link.
        if (fs::is_symlink(fTarget, error))
            fTarget = fs::canonical(fTarget, error);
    }
    std::random_device random;
    int16_t result = kHostIoError;
    for (int attempt = 0; attempt < 8; ++attempt) {
        // Beside the target: a rename doesn't reach over to another volume.
        const fs::path name = fTarget.parent_path() / TemporaryName(random);
        result = file.Create(name);
        if (result == kHostNoError)
            fTemporary = name;
        if (result != kHostIoError)
            break;
    }
    return result;
}

int16_t PendingFile::Commit()
{
    if (fTemporary.empty())
        return kHostFileNotFound;
    std::error_code error;
    if (const fs::file_status old = fs::status(fTarget, error); fs::is_regular_file(old))
        fs::permissions(fTemporary, old.permissions(), error);
    fs::rename(fTemporary, fTarget, error);
    if (!error)
        fTemporary.clear();
    return ResultOf(error);
}

void PendingFile::Discard()
{
    std::error_code ignored;
    if (!fTemporary.empty())
        fs::remove(fTemporary, ignored);
    fTemporary.clear();
}

} // namespace Host
