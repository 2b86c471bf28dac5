// A machine whose files live in memory, whose volumes are made up, and whose disk fails when it is
// told to.
//
// It takes the place of the platform's files and volumes.
#pragma once

#include "platform/files/volumes.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace Testing {

inline constexpr std::uint32_t kDiskFull = 1001;
inline constexpr std::uint32_t kReadFailed = 1002;
inline constexpr std::uint32_t kRefused = 1003;

struct Access {
    std::uint64_t position;
    std::size_t size;
};

struct LyingDisk {
    // The one machine.
    static LyingDisk& Get();

    // A machine with one fixed volume "/v" with plenty of room.
    static LyingDisk& Reset();

    Platform::VolumeFacts& AddVolume(const std::string& root, std::uint64_t freeBytes);

    std::map<std::string, std::vector<std::byte>> files; // by path
    std::vector<std::string> deleted;
    std::vector<Access> reads;
    std::vector<Access> writes;
    std::map<std::string, Platform::VolumeFacts> volumes; // by root
    std::vector<std::string> listed;                      // what a machine names as its volumes
    std::string temporary = "/v/tmp";

    // Asked before each step. A write that fails has written half; a read that is short ends at its
    // half.
    std::function<bool()> failsOpen, failsLength, failsWrite, failsRead, cutsRead;
};

// True at the call of that number, counted from 0, only.
std::function<bool()> OnlyAt(int call);

} // namespace Testing
