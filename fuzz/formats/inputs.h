// How the bytes of a fuzz input are spent.
#pragma once

#include "support/scriptable_host.h"

#include <cstdlib>

namespace Testing {

// The head of an input to the open target; the file follows.
struct OpenInput {
    static constexpr size_t kHead = 3;
    static constexpr uint8_t kSilent = 1, kQuiet = 2, kResident = 4, kNoHandles = 8; // bits of the first byte
    uint8_t flags; // the upper half: the host's space is 16 bytes shifted left by this
    uint8_t frame; // the user's choice; 255 cancels
    uint8_t fault; // 0, or the number of the call that fails, from 1
};

// The head of an input to the save target; samples follow.
struct SaveInput {
    static constexpr size_t kHead = 3;
    uint8_t kind; // grey, indexed, RGB, RGBA
    uint8_t width;
    uint8_t height;
};

// Ends the run when something is not as it must be.
inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace Testing
