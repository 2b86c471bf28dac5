// The tables of this level: those of AVX2 with the kernels for which wider vectors pay. The others
// run at the limit of the memory or of the multiplier.
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels {
namespace {

KernelTable TableFor(Avx2::Stores stores)
{
    KernelTable table = stores == Avx2::Stores::kStreamed ? Avx2StreamingKernels() : Avx2Kernels();
    // Their caches take whole lines without reading them first: filling past them is slower.
    table.fill = Avx2Kernels().fill;
    Avx512::AddColour(table);
    Avx512::AddMapping(table, stores);
    Avx512::AddMerging(table, stores);
    Avx512::AddRank(table);
    Avx512::AddEnlarging(table);
    Avx512::AddReducing(table);
    Avx512::AddSums(table);
    return table;
}

} // namespace

const KernelTable& Avx512Kernels()
{
    static const KernelTable table = TableFor(Avx2::Stores::kCached);
    return table;
}

const KernelTable& Avx512StreamingKernels()
{
    static const KernelTable table = TableFor(Avx2::Stores::kStreamed);
    return table;
}

} // namespace Kesto::Kernels
