// The exported functions. Nothing is thrown across them: a lack of memory is a failed open.
#include "file_service/file_binding.h"

#include <algorithm>
#include <string_view>

namespace {

using Host::FileBinding;

std::vector<std::unique_ptr<FileBinding>>& Bindings()
{
    static std::vector<std::unique_ptr<FileBinding>> bindings;
    return bindings;
}

size_t gBufferSize = Host::kDefaultFileBuffer;

FileBinding* FindBinding(const HostFormatRecord* record)
{
    const auto found = std::ranges::find(Bindings(), record,
                                         [](const auto& binding) { return binding->Record(); });
    return found == Bindings().end() ? nullptr : found->get();
}

// The binding that a file belongs to; null for a handle that was closed or never given out.
FileBinding* FindOwner(HostFile file)
{
    const auto found =
        std::ranges::find_if(Bindings(), [&](const auto& binding) { return binding->Owns(file); });
    return found == Bindings().end() ? nullptr : found->get();
}

// A failure is kept for the host's report; off the fast path, since failures are rare.
int16_t Noted(HostFile file, int16_t result)
{
    if (result != kHostNoError)
        if (FileBinding* owner = FindOwner(file))
            owner->Note(result);
    return result;
}

} // namespace

HostFile FastOpen(HostFormatRecord* record, int16_t mode)
try {
    FileBinding* binding = FindBinding(record);
    return binding ? binding->Open(mode, gBufferSize) : nullptr;
} catch (...) {
    return nullptr;
}

int16_t FastRead(HostFile file, int64_t* count, void* buffer)
{
    if (!file || !count || !buffer)
        return kHostBadParameter;
    const int16_t result = file->fFile.Read(*count, buffer);
    return result == kHostNoError ? result : Noted(file, result);
}

int16_t FastWrite(HostFile file, int64_t count, const void* buffer)
{
    if (!file || !buffer)
        return kHostBadParameter;
    const int16_t result = file->fFile.Write(count, buffer);
    return result == kHostNoError ? result : Noted(file, result);
}

int64_t FastGetPosition(HostFile file)
{
    return file ? file->fFile.Position() : 0;
}

int16_t FastSetPosition(HostFile file, int16_t mode, int64_t offset)
{
    return file ? Noted(file, file->fFile.Seek(mode, offset))
                : static_cast<int16_t>(kHostBadParameter);
}

int16_t FastClose(HostFile file)
{
    FileBinding* owner = FindOwner(file);
    return owner ? owner->Close(file) : static_cast<int16_t>(kHostBadParameter);
}

int16_t FileServiceBind(const HostFormatRecord* record, const char* path)
try {
    FileServiceUnbind(record);
    const std::string_view text(path);
    Bindings().push_back(
        std::make_unique<FileBinding>(record, std::u8string(text.begin(), text.end())));
    return kHostNoError;
} catch (...) {
    return kHostMemoryFull;
}

void FileServiceUnbind(const HostFormatRecord* record)
{
    std::erase_if(Bindings(), [&](const auto& binding) { return binding->Record() == record; });
}

int16_t FileServiceCommit(const HostFormatRecord* record)
try {
    FileBinding* binding = FindBinding(record);
    return binding ? binding->Commit() : static_cast<int16_t>(kHostBadParameter);
} catch (...) {
    return kHostIoError;
}

FileServiceReport FileServiceInspect(const HostFormatRecord* record)
{
    const FileBinding* binding = FindBinding(record);
    return binding ? binding->Report() : FileServiceReport{};
}

void FileServiceSetBuffer(size_t bytes)
{
    gBufferSize = bytes == 0 ? Host::kDefaultFileBuffer : bytes;
}
