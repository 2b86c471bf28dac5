// The tables of the AVX2 kernels: the plain one, with all that has a fast twin replaced.
#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels {

const KernelTable& Avx2Kernels()
{
    static const KernelTable table = [] {
        // Where there is no fast twin the plain loop stays.
        KernelTable fast = PlainKernels();
        Avx2::AddArithmetic(fast, Avx2::Stores::kCached);
        Avx2::AddBlending(fast, Avx2::Stores::kCached);
        Avx2::AddBoxExtremes(fast);
        Avx2::AddBoxMeans(fast);
        Avx2::AddColour(fast);
        Avx2::AddMerging(fast, Avx2::Stores::kCached);
        Avx2::AddLaying(fast);
        Avx2::AddMosaic(fast);
        Avx2::AddNeighbours(fast);
        Avx2::AddRank(fast);
        Avx2::AddScaling(fast);
        return fast;
    }();
    return table;
}

const KernelTable& Avx2StreamingKernels()
{
    static const KernelTable table = [] {
        KernelTable streaming = Avx2Kernels();
        Avx2::AddArithmetic(streaming, Avx2::Stores::kStreamed);
        Avx2::AddBlending(streaming, Avx2::Stores::kStreamed);
        Avx2::AddMerging(streaming, Avx2::Stores::kStreamed);
        return streaming;
    }();
    return table;
}

} // namespace Kesto::Kernels
