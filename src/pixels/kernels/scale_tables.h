// The arithmetic of scaling along one axis: which source pixels make a target pixel, with which
// weights, and the row operations that follow from it.
//
// Rounding is part of the contract: weights are floats, sums are doubles, a result is the sum plus
// 0.5, truncated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kesto {

// One target pixel. Reducing, it is the mean of the source pixels fFirst to fLast, the outer two
// weighted. Enlarging, it lies between fFirst and fLast with their weights; fLastWeight 0 means
// that fFirst alone is copied.
struct ScaleEntry {
    float fFirstWeight;
    float fLastWeight;
    std::int32_t fFirst;
    std::int32_t fLast;
};
static_assert(sizeof(ScaleEntry) == 16);

using ScaleTable = std::vector<ScaleEntry>;

enum class ScaleMode : std::int32_t { kSame = 0, kReduce = 1, kEnlarge = 2 };

// Lays `targetSize` pixels over `sourceSize` source pixels, the first of which has the index
// `sourceStart`. The target is smaller; the factor for the sums, target through source, goes to
// `scale`.
ScaleTable MakeReduceTable(std::int32_t targetSize, std::int32_t sourceSize,
                           std::int32_t sourceStart, float& scale);

// The same for a target that is larger than the source.
ScaleTable MakeEnlargeTable(std::int32_t targetSize, std::int32_t sourceSize,
                            std::int32_t sourceStart);

namespace Kernels {

// How the columns of a row are scaled.
struct ScaleColumns {
    const ScaleEntry* fEntries;
    std::size_t fCount;
    std::int32_t fStart;       // the index that the entries have for the source row's first pixel
    std::int32_t fSourceWidth; // pixels that may be read
    float fScale;              // for reduction
    std::byte* fPlan; // room for PlanBytes(fCount), aligned for doubles: what fast rows lay out
                      // once for all rows

    static constexpr std::size_t PlanBytes(std::size_t count) { return 64 * count + 1024; }
};

// The row operations for pixels of type T.
template <class T>
struct ScaleRows {
    // Fill in the plan, before the first row of a plane; or null.
    void (*planReduce)(const ScaleColumns& columns);
    void (*planEnlarge)(const ScaleColumns& columns);
    void (*reduce)(const T* source, const ScaleColumns& columns, T* out);
    void (*enlarge)(const T* source, const ScaleColumns& columns, T* out);
    // sum += row * weight; a weight of 1 or more adds plainly.
    void (*addRow)(const T* row, float weight, double* sum, std::size_t n);
    // out = sum * scale, and the sums become 0.
    void (*takeSums)(double* sum, float scale, T* out, std::size_t n);
    // out = a * weightA + b * weightB.
    void (*combine)(const T* a, const T* b, float weightA, float weightB, T* out, std::size_t n);
    // Short cuts for a reduction to exactly half, or null: the mean of two rows, rounded up; the
    // same of two rows whose pairs of pixels were averaged so before, for n target pixels.
    void (*average)(const T* a, const T* b, T* out, std::size_t n);
    void (*averagePairs)(const T* a, const T* b, T* out, std::size_t n);
};

} // namespace Kernels
} // namespace Kesto
