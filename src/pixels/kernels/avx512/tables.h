// The parts of the AVX-512 table, each filled in by the source that has its kernels.
#pragma once

#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels::Avx512 {

using Avx2::Stores;

void AddColour(KernelTable& table);
void AddMapping(KernelTable& table, Stores stores);
void AddEnlarging(KernelTable& table);
void AddMerging(KernelTable& table, Stores stores);
void AddRank(KernelTable& table);
void AddReducing(KernelTable& table);
void AddSums(KernelTable& table);

} // namespace Kesto::Kernels::Avx512
