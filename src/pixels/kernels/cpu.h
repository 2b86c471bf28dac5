// Which instructions the pixel kernels use.
//
// Every kernel exists as a plain loop, and many as a faster twin whose results are the same to the
// bit. The level is the best that the processor offers unless a test or a benchmark asks for less.
#pragma once

namespace Kesto::Kernels {

enum class CpuLevel {
    kBase,   // the plain loops
    kAvx2,   // 32-byte vectors
    kAvx512, // 64-byte vectors where they pay, with the byte permutations of VBMI
};

// The best level of this processor.
CpuLevel BestCpuLevel();

// The level in use.
CpuLevel ActiveCpuLevel();

// Uses `level` from now on; returns false, and changes nothing, when the processor lacks it.
bool UseCpuLevel(CpuLevel level);

} // namespace Kesto::Kernels
