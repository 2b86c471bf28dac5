#include "pixels/kernels/cpu.h"

#include "pixels/kernels/kernel_table.h"

namespace Kesto::Kernels {

namespace {

// The level and its table, found when the first kernel runs.
struct Choice {
    CpuLevel fLevel;
    const KernelTable* fTable;
};

Choice ChoiceOf(CpuLevel level)
{
    return {level, level == CpuLevel::kAvx2 ? &Avx2Kernels() : &PlainKernels()};
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
    return __builtin_cpu_supports("avx2") ? CpuLevel::kAvx2 : CpuLevel::kBase;
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

const KernelTable& ActiveKernels()
{
    return *ActiveChoice().fTable;
}

} // namespace Kesto::Kernels
