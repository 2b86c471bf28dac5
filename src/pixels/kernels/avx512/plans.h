// Plans of scaled rows, for the AVX-512 sources that scale. Internal linkage throughout; see
// avx2/vectors.h.
#pragma once

#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/kernel_table.h"

namespace Kesto::Kernels::Avx512 {
namespace {

// A plan is this and groups, or else, behind it, the plan of AVX2.
struct PlanHead {
    std::size_t fGroups; // 0 where the source for AVX2 does the row
};

inline PlanHead& HeadOf(const ScaleColumns& columns)
{
    return *static_cast<PlanHead*>(static_cast<void*>(columns.fPlan));
}

template <class Group>
inline Group* GroupsOf(const ScaleColumns& columns)
{
    return static_cast<Group*>(static_cast<void*>(columns.fPlan + sizeof(PlanHead)));
}

inline ScaleColumns WithInnerPlan(ScaleColumns columns)
{
    columns.fPlan += sizeof(PlanHead);
    return columns;
}

// The first of so many entries that is in group i. Groups follow each other, but the last one
// overlaps the one before.
template <class Group>
inline std::size_t EntryOf(std::size_t entries, std::size_t i)
{
    const std::size_t end = (i + 1) * Group::kCount;
    return (end < entries ? end : entries) - Group::kCount;
}

// Lays groups for all entries, and returns how many; 0 if one of them can't be laid.
template <class Group>
inline std::size_t LayGroups(const ScaleColumns& columns)
{
    if (columns.fCount < Group::kCount)
        return 0;
    const std::size_t count = (columns.fCount + Group::kCount - 1) / Group::kCount;
    Group* groups = GroupsOf<Group>(columns);
    for (std::size_t i = 0; i < count; ++i)
        if (!groups[i].Lay(columns.fEntries + EntryOf<Group>(columns.fCount, i), columns))
            return 0;
    return count;
}

// Mask of the first `count` of 64 lanes.
inline __mmask64 FirstLanes(std::int32_t count)
{
    return count >= 64 ? ~__mmask64{0} : (__mmask64{1} << count) - 1;
}

} // namespace
} // namespace Kesto::Kernels::Avx512
