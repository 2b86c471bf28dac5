// Which record belongs to which path, and the files that were opened for it.
#pragma once

#include "files/buffered_file.h"
#include "files/pending_file.h"
#include "lumograph/file_service_control.h"

#include <filesystem>
#include <memory>
#include <vector>

// What a HostFile points at.
struct HostFileBlock {
    HostFileBlock(Host::RawFile file, int16_t mode, size_t bufferSize)
        : fFile(std::move(file), mode, bufferSize)
    {
    }

    Host::BufferedFile fFile;
};

namespace Host {

// One bound record. A file that was closed ends at once; the rest end with the binding.
class FileBinding {
public:
    FileBinding(const HostFormatRecord* record, std::filesystem::path path)
        : fRecord(record), fPath(std::move(path)), fPending(fPath)
    {
    }

    const HostFormatRecord* Record() const { return fRecord; }
    HostFile Open(int16_t mode, size_t bufferSize);
    bool Owns(HostFile file) const;
    int16_t Close(HostFile file);
    int16_t Commit();
    FileServiceReport Report() const;
    void Note(int16_t failure) { fIoResult = fIoResult != kHostNoError ? fIoResult : failure; }

private:
    const HostFormatRecord* fRecord;
    std::filesystem::path fPath;
    PendingFile fPending; // before fFiles: the files close first
    std::vector<std::unique_ptr<HostFileBlock>> fFiles;
    int16_t fOpenResult = kHostNoError;
    int16_t fIoResult = kHostNoError;
};

} // namespace Host
