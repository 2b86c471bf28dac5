// What the AVX2 sources share. Everything here has internal linkage, and no source in this folder
// instantiates a template or an inline function that others use: the linker could otherwise hand
// this folder's copy to a processor without AVX2.
#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kesto::Kernels {
namespace {

using Byte = std::uint8_t;
constexpr std::size_t kVector = 32; // bytes

inline __m256i Load(const void* from)
{
    return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

inline void Store(void* to, __m256i value)
{
    _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

inline __m128i Load128(const void* from)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

// Two pieces of 16 bytes.
inline __m256i LoadHalves(const void* low, const void* high)
{
    return _mm256_inserti128_si256(_mm256_castsi128_si256(Load128(low)), Load128(high), 1);
}

// Sixteen bytes as 16-bit numbers.
inline __m256i Load16(const Byte* from)
{
    return _mm256_cvtepu8_epi16(
        _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(from))));
}

// Eight bytes as 32-bit numbers.
inline __m256i Load32(const Byte* from)
{
    return _mm256_cvtepu8_epi32(
        _mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(from))));
}

// 16-bit numbers as bytes, capped at 255, in order.
inline __m256i Packed(__m256i low, __m256i high)
{
    return _mm256_permute4x64_epi64(_mm256_packus_epi16(low, high), 0xD8);
}

// The blend table's value of sixteen pairs: ((a * v + 128) * 257) >> 16, which equals it for all
// pairs.
inline __m256i Weighted(__m256i alpha, __m256i value)
{
    const __m256i product =
        _mm256_add_epi16(_mm256_mullo_epi16(alpha, value), _mm256_set1_epi16(128));
    return _mm256_mulhi_epu16(product, _mm256_set1_epi16(257));
}

// The first bytes of a vector.
inline void StoreFirst(Byte* to, __m256i value, std::size_t count)
{
    alignas(kVector) Byte bytes[kVector];
    Store(bytes, value);
    std::memcpy(to, bytes, count);
}

// An operand of a row operation: a row of bytes, or one value for all pixels.
struct Value {
    __m256i fValue;
};
inline Value ValueOf(Byte value)
{
    return {_mm256_set1_epi8(static_cast<char>(value))};
}
inline __m256i At(const Byte* row, std::size_t i)
{
    return Load(row + i);
}
inline __m256i At(Value value, std::size_t)
{
    return value.fValue;
}

// Asks for pixels that will be wanted soon: the processor by itself looks no further than the
// memory page.
inline void FetchAhead(const Byte* row, std::size_t i)
{
    constexpr std::uintptr_t kAhead = 2048;
    _mm_prefetch(reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(row) + i + kAhead),
                 _MM_HINT_T0);
}
inline void FetchAhead(Value, std::size_t) {}
inline void FetchAhead(const void* pixels)
{
    FetchAhead(static_cast<const Byte*>(pixels), 0);
}

// The last pixels of a row, copied to where a whole vector can be read.
class CTail {
public:
    CTail(const Byte* row, std::size_t start, std::size_t count)
    {
        std::memcpy(fBytes, row + start, count);
    }
    __m256i Vector() const { return Load(fBytes); }

private:
    alignas(kVector) Byte fBytes[kVector] = {};
};
class CValueTail {
public:
    CValueTail(Value value, std::size_t, std::size_t) : fValue(value) {}
    __m256i Vector() const { return fValue.fValue; }

private:
    Value fValue;
};
inline CTail TailOf(const Byte* row, std::size_t start, std::size_t count)
{
    return {row, start, count};
}
inline CValueTail TailOf(Value value, std::size_t start, std::size_t count)
{
    return {value, start, count};
}

inline bool IsRow(const Byte* row, const Byte* out)
{
    return row == out;
}
inline bool IsRow(Value, const Byte*)
{
    return false;
}

// out[i] = operation(operands[i]...) from i on, where `out` is aligned, a cache line of 64 pixels
// at a time. Returns where less than a vector is left.
template <bool kPastCaches, bool kFetch, class Operation, class... Operands>
inline std::size_t MapAligned(Byte* out, std::size_t i, std::size_t n, const Operation& operation,
                              Operands... operands)
{
    const auto store = [](Byte* to, __m256i value) {
        __m256i* const vector = static_cast<__m256i*>(static_cast<void*>(to));
        kPastCaches ? _mm256_stream_si256(vector, value) : _mm256_store_si256(vector, value);
    };
    for (; i + 2 * kVector <= n; i += 2 * kVector) {
        if constexpr (kFetch)
            (FetchAhead(operands, i), ...);
        store(out + i, operation(At(operands, i)...));
        store(out + i + kVector, operation(At(operands, i + kVector)...));
    }
    for (; i + kVector <= n; i += kVector)
        store(out + i, operation(At(operands, i)...));
    if constexpr (kPastCaches)
        _mm_sfence();
    return i;
}

// The same for a whole row. A row that is also an operand is in the caches already. Operations that
// take no time do better without fetching ahead.
template <bool kPastCaches = false, bool kFetch = true, class Operation, class... Operands>
inline void MapVectors(Byte* out, std::size_t n, const Operation& operation, Operands... operands)
{
    std::size_t i = 0;
    if (n >= kVector) {
        // The first vector overlaps the second, which may still have to read what it overwrites.
        const __m256i first = operation(At(operands, 0)...);
        i = (kVector - reinterpret_cast<std::uintptr_t>(out) % kVector) % kVector;
        if (kPastCaches && !(IsRow(operands, out) || ...))
            i = MapAligned<kPastCaches, kFetch>(out, i, n, operation, operands...);
        else
            i = MapAligned<false, kFetch>(out, i, n, operation, operands...);
        if (i < n)
            StoreFirst(out + i, operation(TailOf(operands, i, n - i).Vector()...), n - i);
        Store(out, first);
        return;
    }
    if (n > 0)
        StoreFirst(out, operation(TailOf(operands, i, n).Vector()...), n);
}

// 32 bytes from the k-th on of two vectors.
template <int k>
inline __m256i Shifted(__m256i low, __m256i high)
{
    const __m256i middle = _mm256_permute2x128_si256(low, high, 0x21);
    if constexpr (k < 16)
        return _mm256_alignr_epi8(middle, low, k);
    else
        return _mm256_alignr_epi8(high, middle, k - 16);
}

// Scratch from the next cache line on. Rows of BoxShape::ScratchRow keep to the lines from there,
// which spares stores that straddle two.
inline Byte* Aligned(std::byte* scratch)
{
    const std::size_t over =
        static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(scratch) % 64);
    return static_cast<Byte*>(static_cast<void*>(scratch)) + (over > 0 ? 64 - over : 0);
}

// True when the output is one of the input's bytes, but not the same row: the order of reads and
// writes matters then.
inline bool Entangled(const void* out, const void* in, std::size_t bytes)
{
    const std::uintptr_t a = reinterpret_cast<std::uintptr_t>(out);
    const std::uintptr_t b = reinterpret_cast<std::uintptr_t>(in);
    return a != b && (a < b ? b - a : a - b) < bytes;
}

} // namespace
} // namespace Kesto::Kernels
