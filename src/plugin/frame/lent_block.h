// A block of samples as a host lent it.
#pragma once

#include "lumograph/records.h"

#include <cstdint>

namespace Kesto {

// Where a block's samples lie, and how many there must be.
struct CLentBlock {
    const void* bytes;
    int32_t stride; // bytes from row to row
    HostRect16 rect;
    int32_t firstPlane;
    int32_t lastPlane;
    int32_t sampleBits;

    int32_t Width() const { return rect.right - rect.left; }
    int32_t Height() const { return rect.bottom - rect.top; }
    bool IsEmpty() const { return Width() <= 0 || Height() <= 0; }

    // Whether all rows are there: an address, and a stride that is long enough for a row. A stride
    // below 0 never is.
    bool IsWhole() const
    {
        const int64_t row = int64_t{Width()} * (lastPlane - firstPlane + 1) * (sampleBits / 8);
        return bytes != nullptr && row > 0 && stride >= row;
    }
};

} // namespace Kesto
