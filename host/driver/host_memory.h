// The memory that the host gives to modules, and the books on it.
//
// The suites are tables of plain functions without a context, so there is one book for the process.
//
// Space() tells the limit minus what is given out. Beyond that a module may go on asking within the
// head-room: the memoryBudget that it asked for in its prepare selector. So a module can fill
// Space() with rows and still get its scratch.
#pragma once

#include "lumograph/suites.h"

#include <cstdint>

namespace Host {

struct MemoryBook {
    int64_t limit = 0;    // bytes that modules are told of
    int64_t headRoom = 0; // bytes beyond it that are granted
    int64_t used = 0;     // in buffers that are not given back
    int64_t peak = 0;     // the most that was used at once
    int32_t buffers = 0;  // not given back
    int32_t locked = 0;   // of these, still locked
    int32_t refused = 0;  // requests that were turned down
    int32_t faults = 0;   // calls with a buffer or handle that isn't one, and unlocks too many
    int32_t handles = 0;  // live handles; a module's data word keeps them from call to call
    int64_t handleBytes = 0;
};

const HostBufferSuite* BufferSuite();
const HostHandleSuite* HandleSuite();

// The limit for all that follows, in bytes.
void SetMemoryLimit(int64_t bytes);
void SetMemoryHeadRoom(int64_t bytes);

const MemoryBook& Memory();

// Takes back every buffer, and sets peak, refused and faults to 0: the start of an operation.
void ResetBuffers();

// Takes back every handle: the end of a module.
void ReleaseHandles();

} // namespace Host
