#include "pixels/kernels/cpu.h"

#include "pixels/kernels/kernel_table.h"

namespace Kesto::Kernels {

namespace {

// Results above this size stream past the caches: it is what a core may hope for of the last of
// them.
constexpr std::size_t kStreamedBytes = std::size_t{8} << 20;

// The level and its tables, found when the first kernel runs.
struct Choice {
    CpuLevel fLevel;
    const KernelTable* fTable;
    const KernelTable* fStreamingTable;
};

Choice ChoiceOf(CpuLevel level)
{
    if (level == CpuLevel::kAvx512)
        return {level, &Avx512Kernels(), &Avx512StreamingKernels()};
    if (level == CpuLevel::kAvx2)
        return {level, &Avx2Kernels(), &Avx2StreamingKernels()};
    return {level, &PlainKernels(), &PlainKernels()};
}

Choice& ActiveChoice()
{
    static Choice choice = ChoiceOf(BestCpuLevel());
    return choice;
}

} // namespace

CpuLevel BestCpuLevel()
{
    __builtin_cpu_init();
    if (!__builtin_cpu_supports("avx2"))
        return CpuLevel::kBase;
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                   __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl") &&
                   __builtin_cpu_supports("avx512vbmi")
               ? CpuLevel::kAvx512
               : CpuLevel::kAvx2;
}

CpuLevel ActiveCpuLevel()
{
    return ActiveChoice().fLevel;
}

bool UseCpuLevel(CpuLevel level)
{
    if (level > BestCpuLevel())
        return false;
    ActiveChoice() = ChoiceOf(level);
    return true;
}

const KernelTable& ActiveKernels(std::size_t bytesOut)
{
    return bytesOut > kStreamedBytes ? *ActiveChoice().fStreamingTable : *ActiveChoice().fTable;
}

} // namespace Kesto::Kernels
