// Enlarging. The weights of two pixels are rounded shares of 1, and their sum of products is
// truncated. Bytes and 16-bit pixels are computed in whole numbers that may be wrong by a known
// little; groups with a pixel that comes closer than that to the edge between two results are left
// to the doubles, and so is the rare group that a piece of source doesn't cover.
#include "pixels/kernels/avx2/doubles.h"
#include "pixels/kernels/avx2/factors.h"
#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// --- In doubles
// ------------------------------------------------------------------------------------------

__m256d Weighted(__m256d a, __m256d b, __m256d weightA, __m256d weightB)
{
    const __m256d sum = _mm256_add_pd(_mm256_mul_pd(a, weightA), _mm256_mul_pd(b, weightB));
    return _mm256_add_pd(sum, _mm256_set1_pd(0.5));
}

// A copied pixel is its value times 1 plus itself times 0, plus 0.5, truncated: itself. So every
// entry is one sum.
template <class T>
void ExactRow(const T* source, const ScaleColumns& columns, T* out)
{
    std::size_t i = 0;
    for (; i + 4 <= columns.fCount; i += 4) {
        const ScaleEntry* four = columns.fEntries + i;
        const auto at = [&](std::int32_t index) { return source[index - columns.fStart]; };
        const __m256d first = FourDoubles(at(four[0].fFirst), at(four[1].fFirst),
                                          at(four[2].fFirst), at(four[3].fFirst));
        const __m256d last =
            FourDoubles(at(four[0].fLast), at(four[1].fLast), at(four[2].fLast), at(four[3].fLast));
        // The weights lie in the first halves of the four entries.
        const __m256 lower = _mm256_castsi256_ps(Load(four));
        const __m256 upper = _mm256_castsi256_ps(Load(four + 2));
        const __m256 weights = _mm256_castpd_ps(
            _mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(lower, upper, 0x44)), 0xD8));
        const __m128 low = _mm256_castps256_ps128(weights),
                     high = _mm256_extractf128_ps(weights, 1);
        const __m256d firstWeights = _mm256_cvtps_pd(_mm_shuffle_ps(low, high, 0x88));
        const __m256d lastWeights = _mm256_cvtps_pd(_mm_shuffle_ps(low, high, 0xDD));
        StoreTruncated(out + i, Weighted(first, last, firstWeights, lastWeights));
    }
    PlainRows<T>().enlarge(source, Rest(columns, i), out + i);
}

template <class T>
void ExactCombine(const T* a, const T* b, float weightA, float weightB, T* out, std::size_t n)
{
    const __m256d factorA = _mm256_set1_pd(static_cast<double>(weightA));
    const __m256d factorB = _mm256_set1_pd(static_cast<double>(weightB));
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4)
        StoreTruncated(out + i, Weighted(Doubles(a + i), Doubles(b + i), factorA, factorB));
    PlainRows<T>().combine(a + i, b + i, weightA, weightB, out + i, n - i);
}

// Rows are cut into groups of kCount target pixels; the last one overlaps the one before.
template <std::size_t kCount, class Function>
void ForEachGroup(std::size_t n, const Function& group)
{
    for (std::size_t i = 0; i < n && n >= kCount; i += kCount)
        group(i / kCount, i + kCount <= n ? i : n - kCount);
}

template <class Group>
Group* GroupsOf(const ScaleColumns& columns)
{
    return static_cast<Group*>(static_cast<void*>(columns.fPlan));
}

// A piece of 16 bytes of the source row, from the first pixel of some entries on or from further
// left; or -1.
template <class T>
std::int32_t PieceOf(const ScaleEntry& entry, const ScaleColumns& columns)
{
    constexpr std::int32_t kPixels = 16 / sizeof(T);
    const std::int32_t first = entry.fFirst - columns.fStart;
    return columns.fSourceWidth < kPixels
               ? -1
               : (first + kPixels <= columns.fSourceWidth ? first : columns.fSourceWidth - kPixels);
}

// The places of an entry's pixels in a piece of `pixels` pixels; returns false if it doesn't cover
// them.
bool FindPlaces(std::int32_t (&places)[2], const ScaleEntry& entry, const ScaleColumns& columns,
                std::int32_t piece, std::int32_t pixels)
{
    places[0] = entry.fFirst - columns.fStart - piece;
    places[1] = entry.fLast - columns.fStart - piece;
    return piece >= 0 && places[0] >= 0 && places[1] >= places[0] && places[1] < pixels &&
           AreShares(entry.fFirstWeight, entry.fLastWeight);
}

// --- Bytes
// ------------------------------------------------------------------------------------------

struct Factors {
    __m256i fWhole, fRest;
};

// Parts of sixteen differences in words: whole numbers, and how far these are from the edge to the
// next one, which is negative where the result is rounded up.
struct PartsOf {
    PartsOf(__m256i nearAndFar, const Factors& factors)
    {
        const __m256i difference =
            _mm256_maddubs_epi16(nearAndFar, _mm256_set1_epi16(0x01FF)); // times -1 and 1
        fWhole = _mm256_mulhi_epi16(difference, factors.fWhole);
        const __m256i fraction = _mm256_mullo_epi16(difference, factors.fWhole);
        const __m256i rest = _mm256_mulhrs_epi16(difference, factors.fRest);
        fToEdge = _mm256_subs_epi16(_mm256_xor_si256(fraction, _mm256_set1_epi16(32767)), rest);
    }

    __m256i fWhole, fToEdge;
};

// The distances from the edges of both halves, capped, in the order of packed bytes.
__m256i Lifted(const PartsOf& low, const PartsOf& high, __m256i lifts)
{
    return _mm256_subs_epi8(_mm256_packs_epi16(low.fToEdge, high.fToEdge), lifts);
}

bool AreDoubtful(__m256i toEdge)
{
    const __m256i below =
        _mm256_subs_epu8(_mm256_set1_epi8(Factor::kDoubt), _mm256_abs_epi8(toEdge));
    return _mm256_testz_si256(below, below) == 0;
}

__m256i RoundedUp(__m256i bytes, __m256i toEdge)
{
    return _mm256_sub_epi8(bytes, _mm256_cmpgt_epi8(_mm256_setzero_si256(), toEdge));
}

// Target pixels of a row. Each eight lie between pixels of one piece.
struct ByteGroup {
    static constexpr std::size_t kCount = 32;

    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        for (std::size_t i = 0; i < kCount; ++i) {
            const ScaleEntry& entry = entries[i];
            if (i % 8 == 0)
                fPieces[i / 8] = PieceOf<Byte>(entry, columns);
            std::int32_t places[2];
            if (!FindPlaces(places, entry, columns, fPieces[i / 8], 16))
                return false;
            const std::size_t near = entry.fLastWeight > entry.fFirstWeight ? 1 : 0;
            fPlaces[i][0] = static_cast<Byte>(places[near]);
            fPlaces[i][1] = static_cast<Byte>(places[1 - near]);
            const Factor factor(entry.fFirstWeight, entry.fLastWeight);
            fWhole[i] = factor.fWhole;
            fRest[i] = factor.fRest;
            fLifts[i / 8 % 2][i / 16][i % 8] = factor.fLift;
        }
        return true;
    }

    std::int32_t fPieces[kCount / 8]; // where they start, the first negative for a group that
                                      // doubles have to do
    Byte fPlaces[kCount][2];          // of the near and the far pixels in their pieces
    std::int16_t fWhole[kCount], fRest[kCount];
    std::int8_t fLifts[2][2][8]; // in the order in which words are packed
};

// The half of a group that starts at pixel i, in words, still to be rounded up.
struct HalfGroup {
    HalfGroup(const Byte* source, const ByteGroup& group, std::size_t i)
        : fPixels(_mm256_shuffle_epi8(
              LoadHalves(source + group.fPieces[i / 8], source + group.fPieces[i / 8 + 1]),
              Load(group.fPlaces + i))),
          fParts(fPixels, {Load(group.fWhole + i), Load(group.fRest + i)})
    {
    }

    __m256i Words() const
    {
        return _mm256_add_epi16(_mm256_and_si256(fPixels, _mm256_set1_epi16(255)), fParts.fWhole);
    }

    __m256i fPixels;
    PartsOf fParts;
};

bool EnlargeGroup(const Byte* source, const ByteGroup& group, Byte* out)
{
    const HalfGroup low(source, group, 0), high(source, group, 16);
    const __m256i toEdge = Lifted(low.fParts, high.fParts, Load(group.fLifts));
    const __m256i bytes = RoundedUp(_mm256_packus_epi16(low.Words(), high.Words()), toEdge);
    Store(out, _mm256_permute4x64_epi64(bytes, 0xD8));
    return !AreDoubtful(toEdge);
}

void CombineBytes(const Byte* a, const Byte* b, float weightA, float weightB, Byte* out,
                  std::size_t n)
{
    std::size_t i = 0;
    const bool isNear = weightA >= weightB;
    const Byte *near = isNear ? a : b, *far = isNear ? b : a;
    const Factor factor(weightA, weightB);
    const Factors factors{_mm256_set1_epi16(factor.fWhole), _mm256_set1_epi16(factor.fRest)};
    const __m256i lifts = _mm256_set1_epi8(factor.fLift);
    const bool areShares = AreShares(weightA, weightB);
    for (; i + kVector <= n && areShares; i += kVector) {
        const __m256i ours = Load(near + i), theirs = Load(far + i);
        const PartsOf low(_mm256_unpacklo_epi8(ours, theirs), factors);
        const PartsOf high(_mm256_unpackhi_epi8(ours, theirs), factors);
        const __m256i toEdge = Lifted(low, high, lifts);
        Store(out + i, RoundedUp(_mm256_add_epi8(ours, _mm256_packs_epi16(low.fWhole, high.fWhole)),
                                 toEdge));
        // Too near to a half to tell which way the exact sum rounds: these are done again.
        if (AreDoubtful(toEdge))
            ExactCombine(a + i, b + i, weightA, weightB, out + i, kVector);
    }
    ExactCombine(a + i, b + i, weightA, weightB, out + i, n - i);
}

// --- Words
// ------------------------------------------------------------------------------------------

// Sums of the products of pixels less 32768, in units of 2^-14. Weights are of 29 bits, in two
// factors: the products with the lower ones count less 15 bits. A sum is wrong by less than 3
// units; fractions below twice the doubt are doubtful, since all sums are lifted by it, and those
// that are right even on an edge by twice as much.
constexpr int kWordBits = 14;
constexpr std::int32_t kWordDoubt = 4;

struct WordFactors {
    WordFactors(float weightA, float weightB)
    {
        const std::int32_t a = static_cast<std::int32_t>(weightA * 0x1p29f + 0.5f);
        const std::int32_t b = static_cast<std::int32_t>(weightB * 0x1p29f + 0.5f);
        fHigh[0] = static_cast<std::int16_t>(a >> 15);
        fHigh[1] = static_cast<std::int16_t>(b >> 15);
        fLow[0] = static_cast<std::int16_t>(a & 32767);
        fLow[1] = static_cast<std::int16_t>(b & 32767);
        // The sum of the weights may not quite be 1, which is due to 32768 of each pixel.
        fLift = a + b - (1 << 29) + (1 << kWordBits) / 2 +
                (AreCoarse(weightA, weightB, 10) ? 2 : 1) * kWordDoubt;
    }

    std::int16_t fHigh[2], fLow[2];
    std::int32_t fLift;
};

// Eight pixels less 32768, in 32 bits, from eight pairs of them; `least` collects the fractions.
__m256i PairSums(__m256i pairs, __m256i high, __m256i low, __m256i lift, __m256i& least)
{
    const __m256i small = _mm256_srai_epi32(_mm256_madd_epi16(pairs, low), 15);
    const __m256i sums =
        _mm256_add_epi32(_mm256_add_epi32(_mm256_madd_epi16(pairs, high), lift), small);
    least = _mm256_min_epu32(least, _mm256_slli_epi32(sums, 32 - kWordBits));
    return _mm256_srai_epi32(sums, kWordBits);
}

bool AreDoubtfulFractions(__m256i least)
{
    const __m256i whole = _mm256_srli_epi32(least, 32 - kWordBits);
    return _mm256_movemask_epi8(_mm256_cmpgt_epi32(_mm256_set1_epi32(2 * kWordDoubt), whole)) != 0;
}

__m256i Centred(__m256i words)
{
    return _mm256_xor_si256(words, _mm256_set1_epi16(-32768));
}

// Target pixels of a row. Each four lie between pixels of one piece.
struct WordGroup {
    static constexpr std::size_t kCount = 16;

    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        for (std::size_t i = 0; i < kCount; ++i) {
            const ScaleEntry& entry = entries[i];
            if (i % 4 == 0)
                fPieces[i / 4] = PieceOf<std::uint16_t>(entry, columns);
            std::int32_t places[2];
            if (!FindPlaces(places, entry, columns, fPieces[i / 4], 8))
                return false;
            const WordFactors factors(entry.fFirstWeight, entry.fLastWeight);
            for (std::size_t k = 0; k < 2; ++k) {
                fPlaces[i][k][0] = static_cast<Byte>(2 * places[k]);
                fPlaces[i][k][1] = static_cast<Byte>(2 * places[k] + 1);
                fHigh[i][k] = factors.fHigh[k];
                fLow[i][k] = factors.fLow[k];
            }
            fLifts[i] = factors.fLift;
        }
        return true;
    }

    std::int32_t fPieces[kCount / 4]; // as in ByteGroup
    Byte fPlaces[kCount][2][2];       // of the bytes of each pair of pixels in its piece
    std::int16_t fHigh[kCount][2], fLow[kCount][2];
    std::int32_t fLifts[kCount];
};

// The half of a group that starts at the given pixel.
__m256i HalfOfGroup(const std::uint16_t* source, const WordGroup& group, std::size_t i,
                    __m256i& least)
{
    const __m256i pieces =
        LoadHalves(source + group.fPieces[i / 4], source + group.fPieces[i / 4 + 1]);
    const __m256i pairs = Centred(_mm256_shuffle_epi8(pieces, Load(group.fPlaces + i)));
    return PairSums(pairs, Load(group.fHigh + i), Load(group.fLow + i), Load(group.fLifts + i),
                    least);
}

bool EnlargeGroup(const std::uint16_t* source, const WordGroup& group, std::uint16_t* out)
{
    __m256i least = _mm256_set1_epi32(-1);
    const __m256i low = HalfOfGroup(source, group, 0, least);
    const __m256i words = _mm256_packs_epi32(low, HalfOfGroup(source, group, 8, least));
    Store(out, Centred(_mm256_permute4x64_epi64(words, 0xD8)));
    return !AreDoubtfulFractions(least);
}

void CombineWords(const std::uint16_t* a, const std::uint16_t* b, float weightA, float weightB,
                  std::uint16_t* out, std::size_t n)
{
    std::size_t i = 0;
    if (AreShares(weightA, weightB)) {
        // Both weights in one multiplication: the factors of a and b lie side by side, as the
        // unpacked pixels do.
        const WordFactors factors(weightA, weightB);
        const __m256i high = _mm256_set1_epi32(factors.fHigh[0] | factors.fHigh[1] << 16);
        const __m256i low = _mm256_set1_epi32(factors.fLow[0] | factors.fLow[1] << 16);
        const __m256i lift = _mm256_set1_epi32(factors.fLift);
        for (; i + WordGroup::kCount <= n; i += WordGroup::kCount) {
            __m256i least = _mm256_set1_epi32(-1);
            const __m256i first = Centred(Load(a + i)), second = Centred(Load(b + i));
            const __m256i left =
                PairSums(_mm256_unpacklo_epi16(first, second), high, low, lift, least);
            const __m256i right =
                PairSums(_mm256_unpackhi_epi16(first, second), high, low, lift, least);
            Store(out + i, Centred(_mm256_packs_epi32(left, right)));
            if (AreDoubtfulFractions(least))
                ExactCombine(a + i, b + i, weightA, weightB, out + i, WordGroup::kCount);
        }
    }
    ExactCombine(a + i, b + i, weightA, weightB, out + i, n - i);
}

// --- Rows of groups

template <class Group>
void PlanGroups(const ScaleColumns& columns)
{
    Group* groups = GroupsOf<Group>(columns);
    ForEachGroup<Group::kCount>(columns.fCount, [&](std::size_t index, std::size_t i) {
        if (!groups[index].Lay(columns.fEntries + i, columns))
            groups[index].fPieces[0] = -1;
    });
}

template <class Group, class T>
void EnlargeGroups(const T* source, const ScaleColumns& columns, T* out)
{
    const Group* groups = GroupsOf<Group>(columns);
    if (columns.fCount < Group::kCount)
        return ExactRow(source, columns, out);
    ForEachGroup<Group::kCount>(columns.fCount, [&](std::size_t index, std::size_t i) {
        FetchAhead(source + (columns.fEntries[i].fFirst - columns.fStart));
        if (groups[index].fPieces[0] < 0 || !EnlargeGroup(source, groups[index], out + i))
            ExactRow(source, Part(columns, i, Group::kCount), out + i);
    });
}

} // namespace

void AddEnlarging(KernelTable& table)
{
    table.scale8.planEnlarge = PlanGroups<ByteGroup>;
    table.scale8.enlarge = EnlargeGroups<ByteGroup, Byte>;
    table.scale8.combine = CombineBytes;
    table.scale16.planEnlarge = PlanGroups<WordGroup>;
    table.scale16.enlarge = EnlargeGroups<WordGroup, std::uint16_t>;
    table.scale16.combine = CombineWords;
    table.scale32.enlarge = ExactRow<std::uint32_t>;
    table.scale32.combine = ExactCombine<std::uint32_t>;
}

} // namespace Kesto::Kernels::Avx2
