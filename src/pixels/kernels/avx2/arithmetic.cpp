// Arithmetic, copying, filling, exchanging and table lookup, 32 bytes at a time.
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

struct AddWrapping {
    static constexpr auto kPlain = &KernelTable::addWrapping;
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_add_epi8(a, b); }
};
struct AddCapped {
    static constexpr auto kPlain = &KernelTable::addCapped;
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_adds_epu8(a, b); }
};
struct SubtractWrapping {
    static constexpr auto kPlain = &KernelTable::subtractWrapping;
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_sub_epi8(a, b); }
};
struct SubtractFloored {
    static constexpr auto kPlain = &KernelTable::subtractFloored;
    __m256i operator()(__m256i a, __m256i b) const { return _mm256_subs_epu8(a, b); }
};

template <class Operation, bool kPastCaches>
void MapRows(const Byte* a, const Byte* b, Byte* out, std::size_t n)
{
    if (Entangled(out, a, n) || Entangled(out, b, n))
        return (PlainKernels().*Operation::kPlain)(a, b, out, n);
    MapVectors<kPastCaches, false>(out, n, Operation(), a, b);
}

template <bool kPastCaches>
void Invert(const Byte* source, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n))
        return PlainKernels().invert(source, out, n);
    const __m256i ones = _mm256_set1_epi8(-1);
    MapVectors<kPastCaches>(
        out, n, [ones](__m256i v) { return _mm256_xor_si256(v, ones); }, source);
}

template <bool kPastCaches>
void SwapBytes(const std::uint32_t* source, std::uint32_t* out, std::size_t n)
{
    if (Entangled(out, source, 4 * n))
        return PlainKernels().swapBytes(source, out, n);
    const __m256i order = _mm256_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12, 3,
                                           2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    MapVectors<kPastCaches>(
        static_cast<Byte*>(static_cast<void*>(out)), 4 * n,
        [order](__m256i v) { return _mm256_shuffle_epi8(v, order); },
        static_cast<const Byte*>(static_cast<const void*>(source)));
}

template <bool kPastCaches>
void Copy(const Byte* source, Byte* out, std::size_t n)
{
    if constexpr (kPastCaches)
        MapVectors<true>(
            out, n, [](__m256i v) { return v; }, source);
    else
        std::memcpy(out, source, n);
}

template <bool kPastCaches>
void Fill(std::uint32_t pattern, Byte* out, std::size_t n)
{
    if (!kPastCaches && pattern == (pattern & 0xFF) * 0x01010101u) {
        std::memset(out, static_cast<int>(pattern & 0xFF), n);
        return;
    }
    // From an address on where every vector starts with the same byte of the pattern.
    const std::size_t toFour = (4 - reinterpret_cast<std::uintptr_t>(out) % 4) % 4;
    const std::size_t lead = toFour < n ? toFour : n;
    PlainKernels().fill(pattern, out, lead);
    const std::uint64_t twice = std::uint64_t{pattern} << 32 | pattern;
    MapVectors<kPastCaches>(
        out + lead, n - lead, [](__m256i v) { return v; },
        Value{_mm256_set1_epi32(static_cast<int>(twice >> 8 * lead))});
}

void Exchange(Byte* a, Byte* b, std::size_t n)
{
    std::size_t i = 0;
    for (; i + 2 * kVector <= n; i += 2 * kVector) {
        const __m256i a0 = Load(a + i), a1 = Load(a + i + kVector);
        const __m256i b0 = Load(b + i), b1 = Load(b + i + kVector);
        Store(a + i, b0);
        Store(a + i + kVector, b1);
        Store(b + i, a0);
        Store(b + i + kVector, a1);
    }
    PlainKernels().exchange(a + i, b + i, n - i);
}

// A table of 256 entries is 16 of 16: each is looked up with the low half of the pixel, and the
// high half's bits pick one of them, two at a time.
template <bool kPastCaches>
void MapTable(const Byte* source, const Byte* table, Byte* out, std::size_t n)
{
    if (Entangled(out, source, n))
        return PlainKernels().mapTable(source, table, out, n);
    __m256i parts[16];
    for (std::size_t i = 0; i < 16; ++i)
        parts[i] = _mm256_broadcastsi128_si256(
            _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(table + 16 * i))));
    const __m256i lowBits = _mm256_set1_epi8(15);
    const auto look = [&](__m256i v) {
        const __m256i low = _mm256_and_si256(v, lowBits);
        const __m256i bit6 = _mm256_slli_epi16(v, 1), bit5 = _mm256_slli_epi16(v, 2),
                      bit4 = _mm256_slli_epi16(v, 3);
        const auto pair = [&](std::size_t i) {
            return _mm256_blendv_epi8(_mm256_shuffle_epi8(parts[i], low),
                                      _mm256_shuffle_epi8(parts[i + 1], low), bit4);
        };
        const auto four = [&](std::size_t i) {
            return _mm256_blendv_epi8(pair(i), pair(i + 2), bit5);
        };
        const auto eight = [&](std::size_t i) {
            return _mm256_blendv_epi8(four(i), four(i + 4), bit6);
        };
        return _mm256_blendv_epi8(eight(0), eight(8), v);
    };
    MapVectors<kPastCaches>(out, n, look, source);
}

template <bool kPastCaches>
void AddAll(KernelTable& table)
{
    table.addWrapping = MapRows<AddWrapping, kPastCaches>;
    table.addCapped = MapRows<AddCapped, kPastCaches>;
    table.subtractWrapping = MapRows<SubtractWrapping, kPastCaches>;
    table.subtractFloored = MapRows<SubtractFloored, kPastCaches>;
    table.invert = Invert<kPastCaches>;
    table.swapBytes = SwapBytes<kPastCaches>;
    table.copy = Copy<kPastCaches>;
    table.fill = Fill<kPastCaches>;
    table.exchange = Exchange;
    table.mapTable = MapTable<kPastCaches>;
}

} // namespace

void AddArithmetic(KernelTable& table, Stores stores)
{
    stores == Stores::kStreamed ? AddAll<true>(table) : AddAll<false>(table);
}

} // namespace Kesto::Kernels::Avx2
