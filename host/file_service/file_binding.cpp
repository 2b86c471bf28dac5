#include "file_service/file_binding.h"

#include <algorithm>

namespace Host {

HostFile FileBinding::Open(int16_t mode, size_t bufferSize)
{
    RawFile file;
    if (mode == kHostOpenToRead)
        fOpenResult = file.OpenToRead(fPath);
    else if (mode == kHostOpenToWrite)
        fOpenResult = fPending.Create(file);
    else
        fOpenResult = kHostBadParameter;
    if (fOpenResult != kHostNoError)
        return nullptr;
    fFiles.push_back(std::make_unique<HostFileBlock>(std::move(file), mode, bufferSize));
    return fFiles.back().get();
}

bool FileBinding::Owns(HostFile file) const
{
    return std::ranges::any_of(fFiles, [&](const auto& held) { return held.get() == file; });
}

int16_t FileBinding::Close(HostFile file)
{
    const int16_t result = file->fFile.Close();
    Note(result);
    std::erase_if(fFiles, [&](const auto& held) { return held.get() == file; });
    return result;
}

int16_t FileBinding::Commit()
{
    if (fIoResult != kHostNoError)
        return fIoResult;
    return fFiles.empty() ? fPending.Commit() : static_cast<int16_t>(kHostFileLocked);
}

FileServiceReport FileBinding::Report() const
{
    return {fOpenResult, fIoResult, static_cast<int32_t>(fFiles.size())};
}

} // namespace Host
