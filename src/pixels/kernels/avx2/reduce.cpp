// Reducing along a row. Weights of a reduction are multiples of 2^-23 and at most 1, since the
// edges they come from are at least 1: as whole numbers of 24 bits they and pixels of 8 or 16 bits
// make sums without any rounding, in any order, which as doubles are the sums of the plain loop.
// Sums of 32-bit pixels are rounded, so they are added in the loop's order.
#include "pixels/kernels/avx2/doubles.h"
#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// An entry of at most this many pixels is read as one piece. Four entries are computed together.
constexpr std::int32_t kPiece = 8;
constexpr std::size_t kGroup = 4;

std::int32_t LengthOf(const ScaleEntry& entry)
{
    return entry.fLast - entry.fFirst + 1;
}

// What every plan starts with.
struct PlanHead {
    std::size_t fGroups; // how many groups are laid out
    std::int32_t
        fFoldable; // the number of whole pixels, a power of two, that make each target pixel; or 0
};

PlanHead& HeadOf(const ScaleColumns& columns)
{
    return *static_cast<PlanHead*>(static_cast<void*>(columns.fPlan));
}
template <class Group>
Group* GroupsOf(const ScaleColumns& columns)
{
    return static_cast<Group*>(static_cast<void*>(columns.fPlan + sizeof(PlanHead)));
}

// Calls lay(group, entries) for each group of which all pieces lie in the source row, from the
// first on.
template <class Group, class Lay>
void LayGroups(const ScaleColumns& columns, const Lay& lay)
{
    Group* group = GroupsOf<Group>(columns);
    const std::int32_t lastPiece = columns.fStart + columns.fSourceWidth - kPiece;
    for (std::size_t i = 0; i + kGroup <= columns.fCount; i += kGroup) {
        const ScaleEntry* entries = columns.fEntries + i;
        for (std::size_t k = 0; k < kGroup; ++k)
            if (LengthOf(entries[k]) > kPiece || entries[k].fFirst > lastPiece)
                return;
        lay(*group++, entries);
        ++HeadOf(columns).fGroups;
    }
}

// --- Bytes
// ------------------------------------------------------------------------------------------

constexpr double kUnit = 0x1p-23;

std::uint32_t UnitsOf(float weight)
{
    return static_cast<std::uint32_t>(weight * 8388608.0f);
}

struct ByteGroup {
    std::int32_t fPieces[kGroup];      // where the entries start
    std::uint32_t fFirstUnits[kGroup]; // weights in units of kUnit
    std::uint32_t fLastUnits[kGroup];
    std::uint32_t fLastBits[kGroup]; // where in the piece the last pixel is
    std::uint64_t fInner[kGroup];    // the bytes of the piece between first and last
};

// The number of whole pixels that make up each target pixel, if it is one of 2, 4, 8, 16; otherwise
// 0.
std::int32_t Foldable(const ScaleColumns& columns)
{
    const std::int32_t length = columns.fCount > 0 ? LengthOf(columns.fEntries[0]) : 0;
    if ((length != 2 && length != 4 && length != 8 && length != 16) ||
        columns.fScale * static_cast<float>(length) != 1)
        return 0;
    for (std::size_t i = 0; i < columns.fCount; ++i) {
        const ScaleEntry& entry = columns.fEntries[i];
        if (entry.fFirstWeight != 1 || entry.fLastWeight != 1 || LengthOf(entry) != length ||
            entry.fFirst != columns.fEntries[0].fFirst + static_cast<std::int32_t>(i) * length)
            return 0;
    }
    return length;
}

// The pixels of an entry, eight at most, are read as one number: its first byte is the first pixel,
// a shift gives the last, a mask what lies between.
void PlanBytes(const ScaleColumns& columns)
{
    HeadOf(columns) = {0, Foldable(columns)};
    if (HeadOf(columns).fFoldable != 0)
        return;
    LayGroups<ByteGroup>(columns, [&](ByteGroup& group, const ScaleEntry* entries) {
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            group.fPieces[i] = entries[i].fFirst - columns.fStart;
            group.fFirstUnits[i] = UnitsOf(entries[i].fFirstWeight);
            group.fLastUnits[i] = steps > 0 ? UnitsOf(entries[i].fLastWeight) : 0;
            group.fLastBits[i] = static_cast<std::uint32_t>(8 * steps);
            group.fInner[i] = ((std::uint64_t{1} << group.fLastBits[i]) - 1) & ~std::uint64_t{255};
        }
    });
}

__m256i Wide(const std::uint32_t* four)
{
    return _mm256_cvtepu32_epi64(Load128(four));
}

long long PieceAt(const Byte* source)
{
    long long bytes;
    std::memcpy(&bytes, source, sizeof bytes);
    return bytes;
}

// The sums of four entries in units of kUnit, one in each 64 bits.
__m256i SumsOf(const Byte* source, const ByteGroup& group)
{
    const __m256i bytes =
        _mm256_setr_epi64x(PieceAt(source + group.fPieces[0]), PieceAt(source + group.fPieces[1]),
                           PieceAt(source + group.fPieces[2]), PieceAt(source + group.fPieces[3]));
    const __m256i one = _mm256_set1_epi64x(255);
    const __m256i first = _mm256_and_si256(bytes, one);
    const __m256i last = _mm256_and_si256(_mm256_srlv_epi64(bytes, Wide(group.fLastBits)), one);
    const __m256i inner =
        _mm256_sad_epu8(_mm256_and_si256(bytes, Load(group.fInner)), _mm256_setzero_si256());
    const __m256i outer = _mm256_add_epi64(_mm256_mul_epu32(first, Wide(group.fFirstUnits)),
                                           _mm256_mul_epu32(last, Wide(group.fLastUnits)));
    return _mm256_add_epi64(outer, _mm256_slli_epi64(inner, 23));
}

// The sum of a run of pixels.
std::int64_t SumOf(const Byte* first, const Byte* end)
{
    __m256i sums = _mm256_setzero_si256();
    for (; end - first >= 32; first += 32)
        sums = _mm256_add_epi64(sums, _mm256_sad_epu8(Load(first), _mm256_setzero_si256()));
    __m128i sum = _mm_add_epi64(_mm256_castsi256_si128(sums), _mm256_extracti128_si256(sums, 1));
    if (end - first >= 16) {
        sum = _mm_add_epi64(sum, _mm_sad_epu8(Load128(first), _mm_setzero_si128()));
        first += 16;
    }
    if (end - first >= 8) {
        sum = _mm_add_epi64(sum,
                            _mm_sad_epu8(_mm_cvtsi64_si128(PieceAt(first)), _mm_setzero_si128()));
        first += 8;
    }
    std::int64_t total = _mm_cvtsi128_si64(_mm_add_epi64(sum, _mm_unpackhi_epi64(sum, sum)));
    for (; first < end; ++first)
        total += *first;
    return total;
}

// The same sum as in SumsOf for an entry of two pixels or more.
long long LongSum(const Byte* source, const ScaleEntry& entry)
{
    const Byte* last = source + (entry.fLast - entry.fFirst);
    return *source * std::int64_t{UnitsOf(entry.fFirstWeight)} +
           *last * std::int64_t{UnitsOf(entry.fLastWeight)} + (SumOf(source + 1, last) << 23);
}

// --- Whole pixels, a power of two
// --------------------------------------------------------------------------------

// Each gives sixteen means, rounded half up.
__m128i MeansOf2(const Byte* from)
{
    const __m256i ones = _mm256_set1_epi8(1);
    const __m256i means =
        _mm256_avg_epu16(_mm256_maddubs_epi16(Load(from), ones), _mm256_setzero_si256());
    return _mm256_castsi256_si128(
        _mm256_permute4x64_epi64(_mm256_packus_epi16(means, means), 0x08));
}

__m128i MeansOf4(const Byte* from)
{
    const auto sums = [](const Byte* eight) {
        return _mm256_madd_epi16(_mm256_maddubs_epi16(Load(eight), _mm256_set1_epi8(1)),
                                 _mm256_set1_epi16(1));
    };
    const __m256i both = _mm256_packs_epi32(sums(from), sums(from + kVector));
    const __m256i means = _mm256_srli_epi16(_mm256_add_epi16(both, _mm256_set1_epi16(2)), 2);
    const __m256i bytes = _mm256_packus_epi16(means, means);
    return _mm256_castsi256_si128(
        _mm256_permutevar8x32_epi32(bytes, _mm256_setr_epi32(0, 4, 1, 5, 0, 0, 0, 0)));
}

// Word k of each 64 bits is the sum of eight pixels of the k-th vector.
__m256i SumsOf8(const Byte* from)
{
    const auto sums = [from](std::size_t k) {
        return _mm256_sad_epu8(Load(from + k * kVector), _mm256_setzero_si256());
    };
    return _mm256_or_si256(
        _mm256_or_si256(sums(0), _mm256_slli_epi64(sums(1), 16)),
        _mm256_or_si256(_mm256_slli_epi64(sums(2), 32), _mm256_slli_epi64(sums(3), 48)));
}

__m128i MeansOf8(const Byte* from)
{
    const __m256i means =
        _mm256_srli_epi16(_mm256_add_epi16(SumsOf8(from), _mm256_set1_epi16(4)), 3);
    // Four numbers of four: transposed.
    const __m128i bytes =
        _mm_packus_epi16(_mm256_castsi256_si128(means), _mm256_extracti128_si256(means, 1));
    return _mm_shuffle_epi8(bytes,
                            _mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
}

// Eight means in words.
__m128i EightMeansOf16(const Byte* from)
{
    const __m256i sums = SumsOf8(from);
    const __m256i both = _mm256_add_epi16(sums, _mm256_shuffle_epi32(sums, 0x4E));
    const __m256i means = _mm256_srli_epi16(_mm256_add_epi16(both, _mm256_set1_epi16(8)), 4);
    return _mm_unpacklo_epi16(_mm256_castsi256_si128(means), _mm256_extracti128_si256(means, 1));
}

__m128i MeansOf16(const Byte* from)
{
    return _mm_packus_epi16(EightMeansOf16(from), EightMeansOf16(from + 4 * kVector));
}

// Means of kPixels each, halves rounded up, which is what the tables give for a whole ratio.
template <std::int32_t kPixels, __m128i (*kMeans)(const Byte*)>
void FoldRow(const Byte* source, Byte* out, std::size_t n)
{
    std::size_t i = 0;
    for (; i + 16 <= n; i += 16) {
        for (std::size_t k = 0; k < 16 * kPixels; k += 64)
            FetchAhead(source, kPixels * i + k);
        _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(out + i)),
                         kMeans(source + kPixels * i));
    }
    for (; i < n; ++i) {
        std::int32_t sum = kPixels / 2;
        for (std::size_t k = 0; k < kPixels; ++k)
            sum += source[kPixels * i + k];
        out[i] = static_cast<Byte>(sum / kPixels);
    }
}

void FoldRow(std::int32_t pixels, const Byte* source, Byte* out, std::size_t n)
{
    if (pixels == 2)
        FoldRow<2, MeansOf2>(source, out, n);
    else if (pixels == 4)
        FoldRow<4, MeansOf4>(source, out, n);
    else if (pixels == 8)
        FoldRow<8, MeansOf8>(source, out, n);
    else
        FoldRow<16, MeansOf16>(source, out, n);
}

void ReduceBytes(const Byte* source, const ScaleColumns& columns, Byte* out)
{
    const PlanHead& head = HeadOf(columns);
    if (head.fFoldable != 0)
        return FoldRow(head.fFoldable, source + (columns.fEntries[0].fFirst - columns.fStart), out,
                       columns.fCount);
    const __m256d scale = _mm256_set1_pd(static_cast<double>(columns.fScale) * kUnit);
    const ByteGroup* groups = GroupsOf<ByteGroup>(columns);
    std::size_t i = 0;
    for (const std::size_t end = kGroup * head.fGroups; i < end; i += kGroup) {
        FetchAhead(source + groups[i / kGroup].fPieces[0]);
        StoreScaled(out + i, Doubles(SumsOf(source, groups[i / kGroup])), scale);
    }
    // A sum of this many pixels could leave 52 bits; and where first and last are one, only one of
    // them counts.
    const bool isLong = i == 0 && columns.fCount > 0 && LengthOf(columns.fEntries[0]) > 3 &&
                        columns.fSourceWidth < 1 << 20;
    for (; i + kGroup <= columns.fCount && isLong; i += kGroup) {
        const ScaleEntry* entries = columns.fEntries + i;
        const auto sum = [&](std::size_t k) {
            return LongSum(source + (entries[k].fFirst - columns.fStart), entries[k]);
        };
        StoreScaled(out + i, Doubles(_mm256_setr_epi64x(sum(0), sum(1), sum(2), sum(3))), scale);
    }
    PlainRows<Byte>().reduce(source, Rest(columns, i), out + i);
}

void Average(const Byte* a, const Byte* b, Byte* out, std::size_t n)
{
    MapVectors(
        out, n, [](__m256i first, __m256i second) { return _mm256_avg_epu8(first, second); }, a, b);
}

void AveragePairs(const Byte* a, const Byte* b, Byte* out, std::size_t n)
{
    const auto means = [](const Byte* from) {
        return _mm256_avg_epu16(_mm256_maddubs_epi16(Load(from), _mm256_set1_epi8(1)),
                                _mm256_setzero_si256());
    };
    // Where the next two rows are likely to be.
    const std::size_t nextRows = 2 * static_cast<std::size_t>(b - a);
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector) {
        FetchAhead(a, 2 * i + nextRows);
        FetchAhead(b, 2 * i + nextRows);
        const auto both = [&](std::size_t at) {
            return _mm256_avg_epu16(means(a + at), means(b + at));
        };
        Store(out + i, Packed(both(2 * i), both(2 * i + kVector)));
    }
    for (; i < n; ++i)
        out[i] = static_cast<Byte>(
            ((a[2 * i] + a[2 * i + 1] + 1) / 2 + (b[2 * i] + b[2 * i + 1] + 1) / 2 + 1) / 2);
}

// --- 16 bits
// ------------------------------------------------------------------------------------------

struct WordGroup {
    std::int32_t fPieces[kGroup]; // where the entries start
    Byte fOuter[kGroup][2][8]; // where the first and the last pixel are, as bytes of 64-bit numbers
    std::uint64_t fUnits[kGroup][2];      // their weights in units of kUnit
    std::uint16_t fInner[kGroup][kPiece]; // all bits for the pixels between
};

void PlanWords(const ScaleColumns& columns)
{
    HeadOf(columns) = {0, 0};
    LayGroups<WordGroup>(columns, [&](WordGroup& group, const ScaleEntry* entries) {
        std::memset(group.fOuter, 0x80, sizeof group.fOuter); // none
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            group.fPieces[i] = entries[i].fFirst - columns.fStart;
            group.fOuter[i][0][0] = 0;
            group.fOuter[i][0][1] = 1;
            group.fOuter[i][1][0] = static_cast<Byte>(2 * steps);
            group.fOuter[i][1][1] = static_cast<Byte>(2 * steps + 1);
            group.fUnits[i][0] = UnitsOf(entries[i].fFirstWeight);
            group.fUnits[i][1] = steps > 0 ? UnitsOf(entries[i].fLastWeight) : 0;
            for (std::int32_t k = 0; k < kPiece; ++k)
                group.fInner[i][k] = k > 0 && k < steps ? 0xFFFF : 0;
        }
    });
}

// The sums of two entries in units of kUnit, each in two parts.
__m256i TwoSums(const std::uint16_t* source, const WordGroup& group, std::size_t i)
{
    const __m256i pieces = LoadHalves(source + group.fPieces[i], source + group.fPieces[i + 1]);
    const __m256i outer =
        _mm256_mul_epu32(_mm256_shuffle_epi8(pieces, Load(group.fOuter[i])), Load(group.fUnits[i]));
    const __m256i inner = _mm256_and_si256(pieces, Load(group.fInner[i]));
    const __m256i low =
        _mm256_sad_epu8(_mm256_and_si256(inner, _mm256_set1_epi16(255)), _mm256_setzero_si256());
    const __m256i high = _mm256_sad_epu8(_mm256_srli_epi16(inner, 8), _mm256_setzero_si256());
    const __m256i sums = _mm256_add_epi64(low, _mm256_slli_epi64(high, 8));
    return _mm256_add_epi64(outer, _mm256_slli_epi64(sums, 23));
}

void ReduceWords(const std::uint16_t* source, const ScaleColumns& columns, std::uint16_t* out)
{
    const __m256d scale = _mm256_set1_pd(static_cast<double>(columns.fScale) * kUnit);
    const WordGroup* group = GroupsOf<WordGroup>(columns);
    std::size_t i = 0;
    for (const std::size_t end = kGroup * HeadOf(columns).fGroups; i < end; i += kGroup, ++group) {
        FetchAhead(source + group->fPieces[0]);
        const __m256i low = TwoSums(source, *group, 0), high = TwoSums(source, *group, 2);
        const __m256i sums =
            _mm256_add_epi64(_mm256_unpacklo_epi64(low, high), _mm256_unpackhi_epi64(low, high));
        StoreScaled(out + i, Doubles(_mm256_permute4x64_epi64(sums, 0xD8)), scale);
    }
    PlainRows<std::uint16_t>().reduce(source, Rest(columns, i), out + i);
}

// --- 32 bits
// ------------------------------------------------------------------------------------------

struct LongGroup {
    std::int32_t fFirsts[kGroup]; // places in the source row
    std::int32_t fLasts[kGroup];
    double fFirstWeights[kGroup];
    double fLastWeights[kGroup];
    std::uint32_t fInner[kGroup]
                        [kPiece]; // all bits for the pixels of a piece between first and last
};

void PlanLongs(const ScaleColumns& columns)
{
    HeadOf(columns) = {0, 0};
    LayGroups<LongGroup>(columns, [&](LongGroup& group, const ScaleEntry* entries) {
        for (std::size_t i = 0; i < kGroup; ++i) {
            const std::int32_t steps = entries[i].fLast - entries[i].fFirst;
            group.fFirsts[i] = entries[i].fFirst - columns.fStart;
            group.fLasts[i] = entries[i].fLast - columns.fStart;
            group.fFirstWeights[i] = static_cast<double>(entries[i].fFirstWeight);
            group.fLastWeights[i] = steps > 0 ? static_cast<double>(entries[i].fLastWeight) : 0;
            for (std::int32_t k = 0; k < kPiece; ++k)
                group.fInner[i][k] = k > 0 && k < steps ? 0xFFFFFFFF : 0;
        }
    });
}

// The sums of the inner pixels of four entries.
__m256d InnerSums(const std::uint32_t* source, const LongGroup& group)
{
    const auto pairs = [&](std::size_t i) {
        const __m256i inner =
            _mm256_and_si256(Load(source + group.fFirsts[i]), Load(group.fInner[i]));
        return _mm256_add_epi64(_mm256_srli_epi64(inner, 32),
                                _mm256_and_si256(inner, _mm256_set1_epi64x(0xFFFFFFFF)));
    };
    const auto two = [](__m256i a, __m256i b) {
        return _mm256_add_epi64(_mm256_unpacklo_epi64(a, b), _mm256_unpackhi_epi64(a, b));
    };
    const __m256i low = two(pairs(0), pairs(1)), high = two(pairs(2), pairs(3));
    return Doubles(_mm256_add_epi64(_mm256_permute2x128_si256(low, high, 0x20),
                                    _mm256_permute2x128_si256(low, high, 0x31)));
}

// 32-bit sums need all the bits of a double: first, inner and last are added in the plain loop's
// order, or the last bit would differ.
void ReduceLongs(const std::uint32_t* source, const ScaleColumns& columns, std::uint32_t* out)
{
    const __m256d scale = _mm256_set1_pd(static_cast<double>(columns.fScale));
    const LongGroup* group = GroupsOf<LongGroup>(columns);
    std::size_t i = 0;
    for (const std::size_t end = kGroup * HeadOf(columns).fGroups; i < end; i += kGroup, ++group) {
        FetchAhead(source + group->fFirsts[0]);
        const auto four = [source](const std::int32_t* places) {
            return FourDoubles(source[places[0]], source[places[1]], source[places[2]],
                               source[places[3]]);
        };
        const __m256d first =
            _mm256_mul_pd(four(group->fFirsts), _mm256_loadu_pd(group->fFirstWeights));
        const __m256d last =
            _mm256_mul_pd(four(group->fLasts), _mm256_loadu_pd(group->fLastWeights));
        StoreScaled(out + i, _mm256_add_pd(_mm256_add_pd(first, InnerSums(source, *group)), last),
                    scale);
    }
    PlainRows<std::uint32_t>().reduce(source, Rest(columns, i), out + i);
}

} // namespace

void AddReducing(KernelTable& table)
{
    table.scale8.planReduce = PlanBytes;
    table.scale8.reduce = ReduceBytes;
    table.scale8.average = Average;
    table.scale8.averagePairs = AveragePairs;
    table.scale16.planReduce = PlanWords;
    table.scale16.reduce = ReduceWords;
    table.scale32.planReduce = PlanLongs;
    table.scale32.reduce = ReduceLongs;
}

} // namespace Kesto::Kernels::Avx2
