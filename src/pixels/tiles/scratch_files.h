// Where the tile store keeps its scratch files, and what they are called.
#pragma once

#include "foundation/streams/file_spec.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Kesto {

// The folder of each scratch file, in the order of their indices: at most `mostFiles`. With a list
// of folders, their volumes are the candidates, unless they are remote, not mounted or CD drives;
// without one, the fixed disks of the machine. Each volume gets a file for every `fileBytes` that
// it has more than that free, the emptiest volume first, then each one file more. Without a
// candidate there is one file, among the system's temporary files.
std::vector<CFileSpec> PlanScratchFiles(const std::vector<CFileSpec>* folders,
                                        std::uint64_t fileBytes, std::size_t mostFiles);

// The beginning of the names of this run's files, "4712_8391044_KVM_": process and time. None of
// these is in `folders`.
std::string ScratchFileStem(const std::vector<CFileSpec>& folders);

// The whole name of the file of an index, "4712_8391044_KVM_0.tmp".
CText ScratchFileName(const std::string& stem, std::size_t index);

// Removes the scratch files of processes that have ended without doing it. Files of others that
// cannot be removed stay.
void RemoveStaleScratchFiles(const CFileSpec& folder);

} // namespace Kesto
