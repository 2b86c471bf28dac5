// The parts of the AVX2 table, each filled in by the source that has its kernels.
#pragma once

#include "pixels/kernels/kernel_table.h"

namespace Kesto::Kernels::Avx2 {

// Where results go: to the caches, or past them.
enum class Stores { kCached, kStreamed };

void AddArithmetic(KernelTable& table, Stores stores);
void AddBlending(KernelTable& table, Stores stores);
void AddBoxExtremes(KernelTable& table);
void AddBoxMeans(KernelTable& table);
void AddColour(KernelTable& table);
void AddMerging(KernelTable& table, Stores stores);
void AddLaying(KernelTable& table);
void AddMosaic(KernelTable& table);
void AddNeighbours(KernelTable& table);
void AddRank(KernelTable& table);
void AddEnlarging(KernelTable& table);
void AddReducing(KernelTable& table);
void AddScaling(KernelTable& table); // with the two before

} // namespace Kesto::Kernels::Avx2
