// The block that a host's data word names: a handle of the host, or memory of the module where the
// host has no handles.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>

namespace Kesto {

// Locks the block of a data word for one scope. A word of 0 gets a new block, zeroed, which then
// lives as long as the word: nothing here frees it. Without a usable handle suite the word holds
// the block's address, and the module owns the block until it is unloaded.
class CSessionBlock {
public:
    CSessionBlock(const HostHandleSuite* suite, intptr_t& data, int32_t size);
    ~CSessionBlock();
    CSessionBlock(const CSessionBlock&) = delete;
    CSessionBlock& operator=(const CSessionBlock&) = delete;

    // The block, or null when there was no memory or the host gave no address.
    void* Address() const { return fAddress; }

private:
    const HostHandleSuite* fSuite; // null: the module's own memory
    HostHandle fHandle = nullptr;
    void* fAddress = nullptr;
};

} // namespace Kesto
