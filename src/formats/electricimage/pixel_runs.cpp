#include "formats/electricimage/pixel_runs.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include <emmintrin.h>

namespace Project {
namespace {

template <int Unit>
bool SamePixel(const uint8_t* a, const uint8_t* b)
{
    return std::memcmp(a, b, Unit) == 0;
}

template <int Unit>
int32_t PlainRunLength(const uint8_t* row, const uint8_t* end)
{
    int32_t count = 1;
    while (row + count * Unit < end && SamePixel<Unit>(row, row + count * Unit))
        ++count;
    return count;
}

template <int Unit>
int32_t PlainLiteralLength(const uint8_t* row, const uint8_t* end)
{
    int32_t count = 1;
    while (row + count * Unit < end &&
           !SamePixel<Unit>(row + count * Unit, row + (count + 1) * Unit))
        ++count;
    return count;
}

template <int Unit>
void PlainFill(uint8_t* dest, int32_t, const uint8_t* value, int32_t count)
{
    for (int32_t i = 0; i < count; ++i)
        std::memcpy(dest + i * Unit, value, Unit);
}

__m128i Load(const uint8_t* bytes)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
}

void Store(uint8_t* bytes, __m128i value)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes), value);
}

// A bit for each of 16 bytes that equals the byte `distance` further on.
uint32_t EqualBytes(const uint8_t* bytes, int distance)
{
    return static_cast<uint32_t>(
        _mm_movemask_epi8(_mm_cmpeq_epi8(Load(bytes), Load(bytes + distance))));
}

// A run is a stretch in which every byte equals the byte one pixel further on.
template <int Unit>
int32_t FastRunLength(const uint8_t* row, const uint8_t* end)
{
    const uint8_t* const last = end - Unit;
    const uint8_t* p = row;
    for (; last - p >= 16; p += 16) {
        const uint32_t different = EqualBytes(p, Unit) ^ 0xFFFF;
        if (different != 0)
            return static_cast<int32_t>(p + std::countr_zero(different) - row) / Unit + 1;
    }
    while (p < last && p[0] == p[Unit])
        ++p;
    return static_cast<int32_t>(p - row) / Unit + 1;
}

// Pixels that one step of the search below looks at, and a bit at the first byte of each that
// equals its successor.
template <int Unit>
struct PairStep {
    static constexpr int kBytes = 16;
    static uint64_t Pairs(const uint8_t* p)
    {
        const __m128i a = Load(p);
        const __m128i b = Load(p + Unit);
        const __m128i equal = Unit == 1   ? _mm_cmpeq_epi8(a, b)
                              : Unit == 2 ? _mm_cmpeq_epi16(a, b)
                                          : _mm_cmpeq_epi32(a, b);
        return static_cast<uint32_t>(_mm_movemask_epi8(equal));
    }
};

template <>
struct PairStep<3> {
    static constexpr int kBytes = 48;
    static uint64_t Pairs(const uint8_t* p)
    {
        const uint64_t bytes = EqualBytes(p, 3) | uint64_t{EqualBytes(p + 16, 3)} << 16 |
                               uint64_t{EqualBytes(p + 32, 3)} << 32;
        return bytes & bytes >> 1 & bytes >> 2 & 0x249249249249; // a bit for each third byte
    }
};

template <int Unit>
int32_t FastLiteralLength(const uint8_t* row, const uint8_t* end)
{
    using Step = PairStep<Unit>;
    const uint8_t* p = row + Unit;
    for (; end - p >= Step::kBytes; p += Step::kBytes)
        if (const uint64_t pairs = Step::Pairs(p); pairs != 0)
            return static_cast<int32_t>(p + std::countr_zero(pairs) - row) / Unit;
    while (p < end && !SamePixel<Unit>(p, p + Unit))
        p += Unit;
    return static_cast<int32_t>(p - row) / Unit;
}

// Lays down whole blocks of 48 bytes, which hold a whole number of pixels of every unit, as long as
// the room lasts.
template <int Unit>
void FastFill(uint8_t* dest, int32_t room, const uint8_t* value, int32_t count)
{
    constexpr int kBlock = 48;
    const int32_t bytes = count * Unit;
    alignas(16) uint8_t block[kBlock];
    if (bytes < 2 * Unit || room < kBlock)
        return PlainFill<Unit>(dest, room, value, count);
    for (int i = 0; i < kBlock; i += Unit)
        std::memcpy(block + i, value, Unit);
    const __m128i a = Load(block);
    const __m128i b = Load(block + 16);
    const __m128i c = Load(block + 32);
    int32_t position = 0;
    for (; position < bytes && room - position >= kBlock; position += kBlock) {
        Store(dest + position, a);
        Store(dest + position + 16, b);
        Store(dest + position + 32, c);
    }
    if (position < bytes)
        std::memcpy(dest + position, block, static_cast<size_t>(bytes - position));
}

template <int Unit>
void SetBytes(uint8_t* dest, int32_t, const uint8_t* value, int32_t count)
{
    static_assert(Unit == 1);
    std::memset(dest, *value, static_cast<size_t>(count));
}

template <int Unit>
constexpr RunFinder kFastFinder{FastRunLength<Unit>, FastLiteralLength<Unit>};
template <int Unit>
constexpr RunFinder kPlainFinder{PlainRunLength<Unit>, PlainLiteralLength<Unit>};

constexpr RunFinder kFastFinders[] = {kFastFinder<1>, kFastFinder<2>, kFastFinder<3>,
                                      kFastFinder<4>};
constexpr RunFinder kPlainFinders[] = {kPlainFinder<1>, kPlainFinder<2>, kPlainFinder<3>,
                                       kPlainFinder<4>};
constexpr RunFill kFastFills[] = {SetBytes<1>, FastFill<2>, FastFill<3>, FastFill<4>};
constexpr RunFill kPlainFills[] = {PlainFill<1>, PlainFill<2>, PlainFill<3>, PlainFill<4>};

} // namespace

const RunFinder& RunFinderFor(int unit)
{
    return kFastFinders[unit - 1];
}

const RunFinder& PlainRunFinderFor(int unit)
{
    return kPlainFinders[unit - 1];
}

RunFill RunFiller(int unit)
{
    return kFastFills[unit - 1];
}

RunFill PlainRunFiller(int unit)
{
    return kPlainFills[unit - 1];
}

} // namespace Project
