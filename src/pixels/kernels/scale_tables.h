// The arithmetic of scaling along one axis: which source pixels make a target pixel, with which weights, and the row
// operations that follow from it.
//
// Rounding is part of the contract: weights are floats, sums are doubles, a result is the sum plus 0.5, truncated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Kesto {

// One target pixel. Reducing, it is the mean of the source pixels fFirst to fLast, the outer two weighted. Enlarging, it
// lies between fFirst and fLast with their weights; fLastWeight 0 means that fFirst alone is copied.
struct ScaleEntry {
    float fFirstWeight;
    float fLastWeight;
    std::int32_t fFirst;
    std::int32_t fLast;
};
static_assert(sizeof(ScaleEntry) == 16);

using ScaleTable = std::vector<ScaleEntry>;

enum class ScaleMode : std::int32_t { kSame = 0, kReduce = 1, kEnlarge = 2 };

// Lays `targetSize` pixels over `sourceSize` source pixels, the first of which has the index `sourceStart`. The target is
// smaller; the factor for the sums, target through source, goes to `scale`.
ScaleTable MakeReduceTable(std::int32_t targetSize, std::int32_t sourceSize, std::int32_t sourceStart, float& scale);

// The same for a target that is larger than the source.
ScaleTable MakeEnlargeTable(std::int32_t targetSize, std::int32_t sourceSize, std::int32_t sourceStart);

namespace Kernels {

// The row operations for pixels of type T. Entries index the source row from `start`, the index of its first pixel;
// `sourceWidth` pixels may be read.
template <class T>
struct ScaleRows {
    void (*reduce)(const T* source, std::int32_t sourceWidth, std::int32_t start, const ScaleEntry* entries,
                   std::size_t n, float scale, T* out);
    void (*enlarge)(const T* source, std::int32_t sourceWidth, std::int32_t start, const ScaleEntry* entries,
                    std::size_t n, T* out);
    // sum += row * weight; a weight of 1 or more adds plainly.
    void (*addRow)(const T* row, float weight, double* sum, std::size_t n);
    // out = sum * scale, and the sums become 0.
    void (*takeSums)(double* sum, float scale, T* out, std::size_t n);
    // out = a * weightA + b * weightB.
    void (*combine)(const T* a, const T* b, float weightA, float weightB, T* out, std::size_t n);
    // Short cuts for a reduction to exactly half, or null: the mean of each two pixels, and that of two rows, rounded up.
    void (*halve)(const T* source, T* out, std::size_t n);
    void (*average)(const T* a, const T* b, T* out, std::size_t n);
};

} // namespace Kernels
} // namespace Kesto
