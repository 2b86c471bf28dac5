// Table maps, 64 pixels at a time.
#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {
namespace {

constexpr std::size_t kWide = 64; // bytes

// 256 entries in four vectors. Seven bits of a pixel look up two of them at once, its highest bit
// tells which two.
class CTable {
public:
    explicit CTable(const Byte* table)
        : fParts{_mm512_loadu_si512(table), _mm512_loadu_si512(table + kWide),
                 _mm512_loadu_si512(table + 2 * kWide), _mm512_loadu_si512(table + 3 * kWide)}
    {
    }

    __m512i operator()(__m512i pixels) const
    {
        return _mm512_mask_blend_epi8(_mm512_movepi8_mask(pixels),
                                      _mm512_permutex2var_epi8(fParts[0], pixels, fParts[1]),
                                      _mm512_permutex2var_epi8(fParts[2], pixels, fParts[3]));
    }

private:
    __m512i fParts[4];
};

// Less than a vector; no other byte is touched.
void MapFew(const CTable& table, const Byte* source, Byte* out, std::size_t count)
{
    const __mmask64 few = (__mmask64{1} << count) - 1;
    _mm512_mask_storeu_epi8(out, few, table(_mm512_maskz_loadu_epi8(few, source)));
}

// From where `out` is aligned; returns where less than a vector is left.
template <bool kPastCaches>
std::size_t MapAligned(const CTable& table, const Byte* source, Byte* out, std::size_t i,
                       std::size_t n)
{
    for (; i + kWide <= n; i += kWide) {
        FetchAhead(source, i);
        const __m512i mapped = table(_mm512_loadu_si512(source + i));
        kPastCaches
            ? _mm512_stream_si512(static_cast<__m512i*>(static_cast<void*>(out + i)), mapped)
            : _mm512_store_si512(out + i, mapped);
    }
    if constexpr (kPastCaches)
        _mm_sfence();
    return i;
}

template <bool kPastCaches>
void MapTable(const Byte* source, const Byte* table, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n))
        return PlainKernels().mapTable(source, table, out, n);
    const CTable look(table);
    const std::size_t head = (kWide - reinterpret_cast<std::uintptr_t>(out) % kWide) % kWide;
    std::size_t i = head < n ? head : n;
    MapFew(look, source, out, i);
    // A row in place is in the caches already.
    i = kPastCaches && out != source ? MapAligned<true>(look, source, out, i, n)
                                     : MapAligned<false>(look, source, out, i, n);
    MapFew(look, source + i, out + i, n - i);
}

} // namespace

void AddMapping(KernelTable& table, Stores stores)
{
    table.mapTable = stores == Stores::kStreamed ? MapTable<true> : MapTable<false>;
}

} // namespace Kesto::Kernels::Avx512
