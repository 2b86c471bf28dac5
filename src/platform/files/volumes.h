// The volumes of the machine, for whoever looks for room.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Platform {

struct VolumeFacts {
    bool mounted = false;
    bool fixed = false; // a disk that stays in the machine
    bool cdRom = false;
    bool remote = false;
    std::uint64_t freeBytes = 0; // that this user may fill
};

// The top folders of all volumes that have a place of their own: one for each drive letter on
// Windows. Linux has a single tree, of which the folder for temporary files is taken for the volume
// that may be filled.
std::vector<std::string> ListVolumes();

// About the volume that holds `path`, a file or folder that exists. All is false and 0 for a volume
// that is not mounted.
VolumeFacts InspectVolume(const std::string& path);

// The top folder of the volume that holds `path`; `path` itself where volumes cannot be told apart
// by their paths.
std::string VolumeRoot(const std::string& path);

} // namespace Platform
