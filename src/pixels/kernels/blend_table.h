// The table of all alpha arithmetic: the value v weighted by the alpha a, for all 65,536 pairs.
//
// Invariant: T[a][v] + T[255 - a][v] == v, so that blending a colour with itself gives that colour
// at every alpha, which a rounded product would not. Vector code computes the same values as ((a *
// v + 128) * 257) >> 16.
#pragma once

#include "foundation/base/block.h"
#include "foundation/base/service.h"

#include <cstdint>

namespace Kesto {

class CBlendTable {
public:
    CBlendTable();

    // The process's table, made at the first call. Throws std::bad_alloc when there is no memory
    // for it.
    static CBlendTable* Get() { return CServiceT<CBlendTable>::Get(true); }

    // T[alpha][value]; both are 0 to 255.
    std::uint8_t operator()(std::uint32_t alpha, std::uint32_t value) const
    {
        return Row(alpha)[value];
    }

    // The 256 values of one alpha.
    const std::uint8_t* Row(std::uint32_t alpha) const { return Bytes() + (alpha << 8); }

private:
    const std::uint8_t* Bytes() const
    {
        return reinterpret_cast<const std::uint8_t*>(fTable.Data());
    }

    CMemoryBlock fTable;
};

} // namespace Kesto
