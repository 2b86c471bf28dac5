// A file that is being written and has no name of its own yet.
//
// The bytes go to a temporary file in the target's folder. Commit gives it the target's name in one
// step; without a commit it vanishes with the object. So the target's name always names a
// whole file: the old one or the new one.
#pragma once

#include "files/raw_file.h"

#include <filesystem>

namespace Host {

class PendingFile {
public:
    // `target` may exist; links are followed, so that a link stays one.
    explicit PendingFile(std::filesystem::path target) : fTarget(std::move(target)) {}
    ~PendingFile() { Discard(); }
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    // Makes the temporary file, in place of one made before. A target that is no regular file (a
    // folder, a device) is kHostOpenError.
    int16_t Create(RawFile& file);

    // The temporary file's name, empty when there is none: for a library that opens files itself.
    const std::filesystem::path& Temporary() const { return fTemporary; }

    // Replaces the target by what was written. The file must be closed. A failure leaves the target
    // as it was.
    int16_t Commit();

    // Removes the temporary file if there is one.
    void Discard();

private:
    std::filesystem::path fTarget;
    std::filesystem::path fTemporary; // empty: none
};

} // namespace Host
