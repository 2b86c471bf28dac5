// Reducing along a row, eight target pixels at a time, each from at most eight source pixels. As in
// the source for AVX2, sums are whole numbers in units of 2^-23, and exact.
#include "pixels/kernels/avx512/doubles.h"
#include "pixels/kernels/avx512/plans.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {

namespace {

constexpr std::size_t kGroup = 8;       // entries
constexpr std::int32_t kMostPixels = 8; // of an entry
constexpr double kUnit = 0x1p-23;

std::uint32_t UnitsOf(float weight)
{
    return static_cast<std::uint32_t>(weight * 8388608.0f);
}

// What the groups of both kinds of pixels have in common: the source pixels of eight entries lie in
// a piece of 64, of which those may be read that are in the row.
struct GroupHead {
    std::int32_t fPiece; // where it starts
    std::int32_t fReadable;
    std::uint32_t fFirstUnits[kGroup]; // weights in units of kUnit
    std::uint32_t fLastUnits[kGroup];  // 0 for an entry of one pixel

    // False if an entry has too many pixels or the piece doesn't hold it.
    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        fPiece = entries[0].fFirst - columns.fStart;
        fReadable = columns.fSourceWidth - fPiece;
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            if (steps >= kMostPixels || entries[i].fFirst < entries[0].fFirst ||
                entries[i].fLast - entries[0].fFirst >= 64)
                return false;
            fFirstUnits[i] = UnitsOf(entries[i].fFirstWeight);
            fLastUnits[i] = steps > 0 ? UnitsOf(entries[i].fLastWeight) : 0;
        }
        return true;
    }

    // The sums of eight entries, whose first pixels are the lower halves of `outer` and whose last
    // ones the upper halves, and of whose other pixels the sums are known.
    __m512d Sums(__m512i outer, __m512i inner) const
    {
        const __m512i first = _mm512_mul_epu32(outer, Wide(fFirstUnits));
        const __m512i last = _mm512_mul_epu32(_mm512_srli_epi64(outer, 32), Wide(fLastUnits));
        return _mm512_cvtepi64_pd(
            _mm512_add_epi64(_mm512_add_epi64(first, last), _mm512_slli_epi64(inner, 23)));
    }

    static __m512i Wide(const std::uint32_t* eight) { return _mm512_cvtepu32_epi64(Load(eight)); }
};

// Each entry's pixels come into 64 bits: the first and the last as the lowest bytes of the halves,
// the others wherever there is room.
struct ByteGroup {
    static constexpr std::size_t kCount = kGroup;

    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        if (!fHead.Lay(entries, columns))
            return false;
        fPresent = 0;
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t first = entries[i].fFirst - entries[0].fFirst;
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            Put(8 * i, first);
            if (steps > 0)
                Put(8 * i + 4, first + steps);
            for (std::int32_t k = 1; k < steps; ++k)
                Put(8 * i + static_cast<std::size_t>(k < 4 ? k : k + 1), first + k);
        }
        return true;
    }

    void Put(std::size_t lane, std::int32_t place)
    {
        fPlaces[lane] = static_cast<Byte>(place);
        fPresent |= __mmask64{1} << lane;
    }

    __m512d Sums(const Byte* source) const
    {
        const __m512i piece =
            _mm512_maskz_loadu_epi8(FirstLanes(fHead.fReadable), source + fHead.fPiece);
        const __m512i pixels =
            _mm512_maskz_permutexvar_epi8(fPresent, _mm512_loadu_si512(fPlaces), piece);
        const __m512i isOuter = _mm512_set1_epi32(255);
        return fHead.Sums(
            _mm512_and_si512(pixels, isOuter),
            _mm512_sad_epu8(_mm512_andnot_si512(isOuter, pixels), _mm512_setzero_si512()));
    }

    GroupHead fHead;
    __mmask64 fPresent;
    Byte fPlaces[64]; // of each byte in the piece
};

// Each entry's pixels come into three times four words: the first and the last as the lower words
// of the halves, the next four after the first, and up to two more.
struct WordGroup {
    static constexpr std::size_t kCount = kGroup;
    static constexpr std::size_t kWords = 32; // of a vector

    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        if (!fHead.Lay(entries, columns))
            return false;
        for (__mmask32& present : fPresent)
            present = 0;
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t first = entries[i].fFirst - entries[0].fFirst;
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            Put(0, 4 * i, first);
            if (steps > 0)
                Put(0, 4 * i + 2, first + steps);
            for (std::int32_t k = 1; k < steps; ++k)
                Put(k < 5 ? 1 : 2, 4 * i + static_cast<std::size_t>((k - 1) % 4), first + k);
        }
        return true;
    }

    void Put(std::size_t vector, std::size_t lane, std::int32_t place)
    {
        fPlaces[vector][lane] = static_cast<Byte>(place);
        fPresent[vector] |= __mmask32{1} << lane;
    }

    __m512d Sums(const std::uint16_t* source) const
    {
        const __mmask64 readable = FirstLanes(fHead.fReadable);
        const auto load = [&](std::size_t half) {
            return _mm512_maskz_loadu_epi16(static_cast<__mmask32>(readable >> (kWords * half)),
                                            source + fHead.fPiece + kWords * half);
        };
        const __m512i low = load(0), high = load(1);
        const auto pixels = [&](std::size_t vector) {
            return _mm512_maskz_permutex2var_epi16(
                fPresent[vector], low, _mm512_cvtepu8_epi16(Load(fPlaces[vector])), high);
        };
        // The lower bytes of all of them, and the higher ones.
        const __m512i next = pixels(1), more = pixels(2), lower = _mm512_set1_epi16(255);
        const __m512i lowers =
            _mm512_or_si512(_mm512_and_si512(next, lower), _mm512_slli_epi16(more, 8));
        const __m512i highers =
            _mm512_or_si512(_mm512_srli_epi16(next, 8), _mm512_andnot_si512(lower, more));
        const auto sums = [](__m512i bytes) {
            return _mm512_sad_epu8(bytes, _mm512_setzero_si512());
        };
        return fHead.Sums(pixels(0),
                          _mm512_add_epi64(sums(lowers), _mm512_slli_epi64(sums(highers), 8)));
    }

    GroupHead fHead;
    __mmask32 fPresent[3];
    Byte fPlaces[3][kWords]; // of each word in the piece
};

template <class T>
const ScaleRows<T>& Avx2Rows()
{
    if constexpr (sizeof(T) == 1)
        return Avx2Kernels().scale8;
    else
        return Avx2Kernels().scale16;
}

// Reductions by a power of two have ways of their own.
bool IsPowerOfTwo(const ScaleColumns& columns)
{
    if (columns.fCount == 0)
        return false;
    const std::int32_t length = columns.fEntries[0].fLast - columns.fEntries[0].fFirst + 1;
    return (length & (length - 1)) == 0 && columns.fScale * static_cast<float>(length) == 1;
}

template <class T, class Group>
void Plan(const ScaleColumns& columns)
{
    HeadOf(columns).fGroups = IsPowerOfTwo(columns) ? 0 : LayGroups<Group>(columns);
    if (HeadOf(columns).fGroups == 0)
        Avx2Rows<T>().planReduce(WithInnerPlan(columns));
}

template <class T, class Group>
void Reduce(const T* source, const ScaleColumns& columns, T* out)
{
    const std::size_t groups = HeadOf(columns).fGroups;
    if (groups == 0)
        return Avx2Rows<T>().reduce(source, WithInnerPlan(columns), out);
    const __m512d scale = _mm512_set1_pd(static_cast<double>(columns.fScale) * kUnit);
    const __m512d half = _mm512_set1_pd(0.5);
    const Group* group = GroupsOf<Group>(columns);
    const std::size_t count = columns.fCount;
    for (std::size_t index = 0; index < groups; ++index, ++group) {
        FetchAhead(source + group->fHead.fPiece);
        Store8(out + EntryOf<Group>(count, index),
               _mm512_add_pd(_mm512_mul_pd(group->Sums(source), scale), half));
    }
}

} // namespace

void AddReducing(KernelTable& table)
{
    table.scale8.planReduce = Plan<Byte, ByteGroup>;
    table.scale8.reduce = Reduce<Byte, ByteGroup>;
    table.scale16.planReduce = Plan<std::uint16_t, WordGroup>;
    table.scale16.reduce = Reduce<std::uint16_t, WordGroup>;
}

} // namespace Kesto::Kernels::Avx512
