// Planes to 32-bit pixels past the caches, 64 pixels at a time: each store is a whole line of the
// cache, which needn't wait for its other parts.
#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {

namespace {

constexpr std::size_t kWide = 64; // bytes, and pixels of a step

void StorePast(void* to, __m512i value)
{
    _mm512_stream_si512(static_cast<__m512i*>(to), value);
}

// Four vectors as rows of four quarters each: rows become columns.
void TransposeQuarters(__m512i (&rows)[4])
{
    const __m512i low01 = _mm512_shuffle_i32x4(rows[0], rows[1], 0x44);
    const __m512i high01 = _mm512_shuffle_i32x4(rows[0], rows[1], 0xEE);
    const __m512i low23 = _mm512_shuffle_i32x4(rows[2], rows[3], 0x44);
    const __m512i high23 = _mm512_shuffle_i32x4(rows[2], rows[3], 0xEE);
    rows[0] = _mm512_shuffle_i32x4(low01, low23, 0x88);
    rows[1] = _mm512_shuffle_i32x4(low01, low23, 0xDD);
    rows[2] = _mm512_shuffle_i32x4(high01, high23, 0x88);
    rows[3] = _mm512_shuffle_i32x4(high01, high23, 0xDD);
}

// Sixteen pixels of which byte c of pixel i is byte 16 c + i.
__m512i ByPixels(__m512i planes)
{
    alignas(kWide) static constexpr auto kPlaces = [] {
        struct {
            Byte bytes[kWide];
        } places{};
        for (std::size_t i = 0; i < kWide; ++i)
            places.bytes[i] = static_cast<Byte>(i % 4 * 16 + i / 4);
        return places;
    }();
    return _mm512_permutexvar_epi8(_mm512_load_si512(kPlaces.bytes), planes);
}

// Bytes from the address to the next line of the cache.
std::size_t ToLine(const void* address)
{
    return (kWide - reinterpret_cast<std::uintptr_t>(address) % kWide) % kWide;
}

MergedRows From(MergedRows rows, std::size_t i)
{
    for (const Byte*& row : rows.fBytes)
        row = row == nullptr ? nullptr : row + i;
    return rows;
}

// Whole lines from pixel i on, where `out` begins one; returns where less than a step is left.
std::size_t MergeLines(const MergedRows& source, std::uint32_t* out, std::size_t i, std::size_t n)
{
    const Byte* const rows[4] = {source.fBytes[0], source.fBytes[1], source.fBytes[2],
                                 source.fBytes[3]};
    const __m512i constant = _mm512_set1_epi8(static_cast<char>(source.fConstant));
    for (; i + kWide <= n; i += kWide) {
        __m512i vectors[4];
        for (std::size_t c = 0; c < 4; ++c) {
            if (rows[c] != nullptr)
                FetchAhead(rows[c], i);
            vectors[c] = rows[c] != nullptr ? _mm512_loadu_si512(rows[c] + i) : constant;
        }
        TransposeQuarters(vectors);
        for (std::size_t k = 0; k < 4; ++k)
            StorePast(out + i + 16 * k, ByPixels(vectors[k]));
    }
    _mm_sfence();
    return i;
}

void MergePlanes(const MergedRows& source, std::uint32_t* out, std::size_t n)
{
    const std::size_t head = ToLine(out) / sizeof *out;
    if (n < head + kWide || ToLine(out + head) != 0)
        return Avx2StreamingKernels().mergePlanes(source, out, n);
    Avx2Kernels().mergePlanes(source, out, head);
    const std::size_t i = MergeLines(source, out, head, n);
    Avx2Kernels().mergePlanes(From(source, i), out + i, n - i);
}

} // namespace

void AddMerging(KernelTable& table, Stores stores)
{
    if (stores == Stores::kStreamed) // the caches are no faster with these
        table.mergePlanes = MergePlanes;
}

} // namespace Kesto::Kernels::Avx512
