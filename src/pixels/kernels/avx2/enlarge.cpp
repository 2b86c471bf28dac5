// Enlarging. A pixel between a and b is a + (b - a) * w, nearly: the exact result is the truncated sum of two rounded
// products. Bytes are computed in whole numbers and 16-bit pixels in floats; both know by how much they may be wrong, and
// pixels that come closer than that to the edge between two results are left to the doubles.
#include "pixels/kernels/avx2/doubles.h"
#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// Target pixels that are computed together.
constexpr std::size_t kGroup = 16;

// --- In doubles ----------------------------------------------------------------------------------------------------

__m256d Weighted(__m256d a, __m256d b, __m256d weightA, __m256d weightB)
{
    const __m256d sum = _mm256_add_pd(_mm256_mul_pd(a, weightA), _mm256_mul_pd(b, weightB));
    return _mm256_add_pd(sum, _mm256_set1_pd(0.5));
}

// A copied pixel is its value times 1 plus itself times 0, plus 0.5, truncated: itself. So every entry is one sum.
template <class T>
void ExactRow(const T* source, const ScaleColumns& columns, T* out)
{
    std::size_t i = 0;
    for (; i + 4 <= columns.fCount; i += 4) {
        const ScaleEntry* four = columns.fEntries + i;
        const auto at = [&](std::int32_t index) { return source[index - columns.fStart]; };
        const __m256d first =
            FourDoubles(at(four[0].fFirst), at(four[1].fFirst), at(four[2].fFirst), at(four[3].fFirst));
        const __m256d last = FourDoubles(at(four[0].fLast), at(four[1].fLast), at(four[2].fLast), at(four[3].fLast));
        // The weights lie in the first halves of the four entries.
        const __m256 lower = _mm256_castsi256_ps(Load(four));
        const __m256 upper = _mm256_castsi256_ps(Load(four + 2));
        const __m256 weights =
            _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(lower, upper, 0x44)), 0xD8));
        const __m128 low = _mm256_castps256_ps128(weights), high = _mm256_extractf128_ps(weights, 1);
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

// True for weights that are what rounding made of w and 1 - w.
bool AreShares(float weightA, float weightB)
{
    const double excess = double{weightA} + double{weightB} - 1;
    return weightB >= 0 && weightB < 1 && excess <= 0x1p-24 && excess >= -0x1p-24;
}

// --- Bytes ---------------------------------------------------------------------------------------------------------

// The second weight in whole numbers. A product with a difference of bytes is wrong by at most 128 units for the rounding
// of the weight and by 64 for weights whose sum is not quite 1.
constexpr int kFractionBits = 22;
constexpr std::int32_t kUnits = 1 << kFractionBits;
constexpr std::int32_t kDoubt = 256;

// A weight as the two factors of (d * 128, d), whose sum of products is d * weight.
struct Factors {
    std::int16_t fHigh, fLow;
};

Factors FactorsOf(float weight)
{
    const std::int32_t units = static_cast<std::int32_t>(weight * static_cast<float>(kUnits) + 0.5f);
    const std::int32_t most = units < kUnits ? units : kUnits - 1;
    return {static_cast<std::int16_t>(most >> 7), static_cast<std::int16_t>(most & 127)};
}

// True for weights without any rounding and of so few bits that no product comes near to an edge unless it lies on it.
bool IsCoarse(float weightA, float weightB)
{
    const float steps = weightB * static_cast<float>(kUnits / (4 * kDoubt));
    return steps == static_cast<float>(static_cast<std::int32_t>(steps)) && weightA == 1 - weightB;
}

// Added to a product before it is truncated: a half, and the width of doubt, so that doubtful fractions are those below
// twice that. Products on an edge that are right are lifted out of doubt.
std::int32_t Lift(bool isCoarse)
{
    return kUnits / 2 + (isCoarse ? 2 * kDoubt : kDoubt);
}

// Sixteen pixels in words. The factors of each half of the lanes, as the words unpack; `least` collects the fractions.
__m256i Between(__m256i a, __m256i b, __m256i lowFactors, __m256i highFactors, __m256i lift, __m256i& least)
{
    const __m256i difference = _mm256_sub_epi16(b, a);
    const __m256i shifted = _mm256_slli_epi16(difference, 7);
    const auto product = [&](__m256i pairs, __m256i factors) {
        const __m256i sum = _mm256_add_epi32(_mm256_madd_epi16(pairs, factors), lift);
        least = _mm256_min_epu32(least, _mm256_slli_epi32(sum, 32 - kFractionBits));
        return _mm256_srai_epi32(sum, kFractionBits);
    };
    const __m256i low = product(_mm256_unpacklo_epi16(shifted, difference), lowFactors);
    const __m256i high = product(_mm256_unpackhi_epi16(shifted, difference), highFactors);
    return _mm256_add_epi16(a, _mm256_packs_epi32(low, high));
}

bool AreDoubtful(__m256i least)
{
    const __m256i whole = _mm256_srli_epi32(least, 32 - kFractionBits);
    return _mm256_movemask_epi8(_mm256_cmpgt_epi32(_mm256_set1_epi32(2 * kDoubt), whole)) != 0;
}

// Sixteen target pixels of a row. Each eight lie between pixels of one piece of 16 bytes.
struct ByteGroup {
    std::int32_t fPieces[2];        // where these start, or negative for a group that doubles have to do
    Byte fPlaces[2][2][kGroup / 2]; // of the eight first and the eight second pixels in each
    Factors fFactors[kGroup];       // in the order of the unpacked words
    std::int32_t fLift;
};

// Lays out half a group; returns false if it doesn't fit.
bool Lay(ByteGroup& group, std::size_t half, const ScaleEntry* entries, const ScaleColumns& columns)
{
    const std::int32_t first = entries[0].fFirst - columns.fStart;
    const std::int32_t piece = first + 16 <= columns.fSourceWidth ? first : columns.fSourceWidth - 16;
    if (piece < 0)
        return false;
    group.fPieces[half] = piece;
    for (std::size_t i = 0; i < kGroup / 2; ++i) {
        const ScaleEntry& entry = entries[i];
        const std::int32_t place = entry.fFirst - columns.fStart - piece;
        const std::int32_t next = entry.fLast - columns.fStart - piece;
        if (place < 0 || next < place || next > 15 || !AreShares(entry.fFirstWeight, entry.fLastWeight))
            return false;
        group.fPlaces[half][0][i] = static_cast<Byte>(place);
        group.fPlaces[half][1][i] = static_cast<Byte>(next);
        group.fFactors[i / 4 * 8 + half * 4 + i % 4] = FactorsOf(entry.fLastWeight);
    }
    return true;
}

void PlanBytes(const ScaleColumns& columns)
{
    ByteGroup* group = static_cast<ByteGroup*>(static_cast<void*>(columns.fPlan));
    for (std::size_t i = 0; i + kGroup <= columns.fCount; i += kGroup, ++group) {
        const ScaleEntry* entries = columns.fEntries + i;
        bool isCoarse = true;
        for (std::size_t k = 0; k < kGroup && isCoarse; ++k)
            isCoarse = IsCoarse(entries[k].fFirstWeight, entries[k].fLastWeight);
        group->fLift = Lift(isCoarse);
        if (!Lay(*group, 0, entries, columns) || !Lay(*group, 1, entries + kGroup / 2, columns))
            group->fPieces[0] = -1;
    }
}

void EnlargeBytes(const Byte* source, const ScaleColumns& columns, Byte* out)
{
    const ByteGroup* groups = static_cast<const ByteGroup*>(static_cast<const void*>(columns.fPlan));
    const __m256i zero = _mm256_setzero_si256();
    std::size_t i = 0;
    for (; i + kGroup <= columns.fCount; i += kGroup) {
        const ByteGroup& group = groups[i / kGroup];
        __m256i least = _mm256_set1_epi32(-1);
        if (group.fPieces[0] >= 0) {
            const __m256i pieces = LoadHalves(source + group.fPieces[0], source + group.fPieces[1]);
            const __m256i pixels = _mm256_shuffle_epi8(pieces, Load(group.fPlaces));
            const __m256i words =
                Between(_mm256_unpacklo_epi8(pixels, zero), _mm256_unpackhi_epi8(pixels, zero), Load(group.fFactors),
                        Load(group.fFactors + 8), _mm256_set1_epi32(group.fLift), least);
            const __m256i bytes = _mm256_permute4x64_epi64(_mm256_packus_epi16(words, words), 0x08);
            _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(out + i)), _mm256_castsi256_si128(bytes));
        }
        if (group.fPieces[0] < 0 || AreDoubtful(least))
            ExactRow(source, Part(columns, i, kGroup), out + i);
    }
    ExactRow(source, Rest(columns, i), out + i);
}

void CombineBytes(const Byte* a, const Byte* b, float weightA, float weightB, Byte* out, std::size_t n)
{
    std::size_t i = 0;
    if (AreShares(weightA, weightB)) {
        const Factors factors = FactorsOf(weightB);
        const __m256i both = _mm256_set1_epi32(factors.fHigh | factors.fLow << 16);
        const __m256i lift = _mm256_set1_epi32(Lift(IsCoarse(weightA, weightB)));
        const __m256i zero = _mm256_setzero_si256();
        for (; i + kVector <= n; i += kVector) {
            __m256i least = _mm256_set1_epi32(-1);
            const __m256i first = Load(a + i), second = Load(b + i);
            const __m256i low =
                Between(_mm256_unpacklo_epi8(first, zero), _mm256_unpacklo_epi8(second, zero), both, both, lift, least);
            const __m256i high =
                Between(_mm256_unpackhi_epi8(first, zero), _mm256_unpackhi_epi8(second, zero), both, both, lift, least);
            Store(out + i, _mm256_packus_epi16(low, high));
            if (AreDoubtful(least))
                ExactCombine(a + i, b + i, weightA, weightB, out + i, kVector);
        }
    }
    ExactCombine(a + i, b + i, weightA, weightB, out + i, n - i);
}

// --- Words ---------------------------------------------------------------------------------------------------------

// A product of a difference of words is wrong by at most 2^-9 for the rounding of floats and 2^-8 for weights whose sum is
// not quite 1.
constexpr float kMostCertain = 0.5f - 0.00586f;

// Eight pixels in 32 bits; `most` collects the distances of the products from the nearest whole number.
__m256i Between(__m256i a, __m256i b, __m256 weights, __m256& most)
{
    const __m256 product = _mm256_mul_ps(_mm256_cvtepi32_ps(_mm256_sub_epi32(b, a)), weights);
    const __m256i whole = _mm256_cvtps_epi32(product);
    const __m256 rest = _mm256_sub_ps(product, _mm256_cvtepi32_ps(whole));
    most = _mm256_max_ps(most, _mm256_andnot_ps(_mm256_set1_ps(-0.0f), rest));
    return _mm256_add_epi32(a, whole);
}

bool AreDoubtful(__m256 most)
{
    return _mm256_movemask_ps(_mm256_cmp_ps(most, _mm256_set1_ps(kMostCertain), _CMP_GT_OQ)) != 0;
}

// Sixteen pixels from twice eight in 32 bits.
void StoreWords(std::uint16_t* out, __m256i low, __m256i high)
{
    Store(out, _mm256_permute4x64_epi64(_mm256_packus_epi32(low, high), 0xD8));
}

// Sixteen target pixels of a row. Each four lie between pixels of one piece of 16 bytes.
struct WordGroup {
    std::int32_t fPieces[4]; // as in ByteGroup
    Byte fFirsts[4][4][4];   // where the bytes of 32-bit numbers are in each, or kNoByte
    Byte fLasts[4][4][4];
    float fWeights[kGroup];
};
constexpr Byte kNoByte = 0x80;

bool Lay(WordGroup& group, std::size_t quarter, const ScaleEntry* entries, const ScaleColumns& columns)
{
    const std::int32_t first = entries[0].fFirst - columns.fStart;
    const std::int32_t piece = first + 8 <= columns.fSourceWidth ? first : columns.fSourceWidth - 8;
    if (piece < 0)
        return false;
    group.fPieces[quarter] = piece;
    const auto put = [](Byte* bytes, std::int32_t place) {
        bytes[0] = static_cast<Byte>(2 * place);
        bytes[1] = static_cast<Byte>(2 * place + 1);
        bytes[2] = bytes[3] = kNoByte;
    };
    for (std::size_t i = 0; i < 4; ++i) {
        const ScaleEntry& entry = entries[i];
        const std::int32_t place = entry.fFirst - columns.fStart - piece;
        const std::int32_t next = entry.fLast - columns.fStart - piece;
        if (place < 0 || next < place || next > 7 || !AreShares(entry.fFirstWeight, entry.fLastWeight))
            return false;
        put(group.fFirsts[quarter][i], place);
        put(group.fLasts[quarter][i], next);
        group.fWeights[4 * quarter + i] = entry.fLastWeight;
    }
    return true;
}

void PlanWords(const ScaleColumns& columns)
{
    WordGroup* groups = static_cast<WordGroup*>(static_cast<void*>(columns.fPlan));
    for (std::size_t i = 0; i + kGroup <= columns.fCount; i += kGroup) {
        WordGroup& group = groups[i / kGroup];
        bool fits = true;
        for (std::size_t quarter = 0; quarter < 4 && fits; ++quarter)
            fits = Lay(group, quarter, columns.fEntries + i + 4 * quarter, columns);
        if (!fits)
            group.fPieces[0] = -1;
    }
}

// The half of a group that starts with the given quarter.
__m256i EightWords(const std::uint16_t* source, const WordGroup& group, std::size_t quarter, __m256& most)
{
    const __m256i pieces = LoadHalves(source + group.fPieces[quarter], source + group.fPieces[quarter + 1]);
    return Between(_mm256_shuffle_epi8(pieces, Load(group.fFirsts[quarter])),
                   _mm256_shuffle_epi8(pieces, Load(group.fLasts[quarter])),
                   _mm256_loadu_ps(group.fWeights + 4 * quarter), most);
}

void EnlargeWords(const std::uint16_t* source, const ScaleColumns& columns, std::uint16_t* out)
{
    const WordGroup* groups = static_cast<const WordGroup*>(static_cast<const void*>(columns.fPlan));
    std::size_t i = 0;
    for (; i + kGroup <= columns.fCount; i += kGroup) {
        const WordGroup& group = groups[i / kGroup];
        __m256 most = _mm256_setzero_ps();
        if (group.fPieces[0] >= 0) {
            const __m256i low = EightWords(source, group, 0, most);
            StoreWords(out + i, low, EightWords(source, group, 2, most));
        }
        if (group.fPieces[0] < 0 || AreDoubtful(most))
            ExactRow(source, Part(columns, i, kGroup), out + i);
    }
    ExactRow(source, Rest(columns, i), out + i);
}

void CombineWords(const std::uint16_t* a, const std::uint16_t* b, float weightA, float weightB, std::uint16_t* out,
                  std::size_t n)
{
    std::size_t i = 0;
    const __m256 weights = _mm256_set1_ps(weightB);
    for (; i + kGroup <= n && AreShares(weightA, weightB); i += kGroup) {
        __m256 most = _mm256_setzero_ps();
        const auto eight = [&](std::size_t at) {
            return Between(_mm256_cvtepu16_epi32(Load128(a + at)), _mm256_cvtepu16_epi32(Load128(b + at)), weights,
                           most);
        };
        const __m256i low = eight(i);
        StoreWords(out + i, low, eight(i + 8));
        if (AreDoubtful(most))
            ExactCombine(a + i, b + i, weightA, weightB, out + i, kGroup);
    }
    ExactCombine(a + i, b + i, weightA, weightB, out + i, n - i);
}

} // namespace

void AddEnlarging(KernelTable& table)
{
    table.scale8.planEnlarge = PlanBytes;
    table.scale8.enlarge = EnlargeBytes;
    table.scale8.combine = CombineBytes;
    table.scale16.planEnlarge = PlanWords;
    table.scale16.enlarge = EnlargeWords;
    table.scale16.combine = CombineWords;
    table.scale32.enlarge = ExactRow<std::uint32_t>;
    table.scale32.combine = ExactCombine<std::uint32_t>;
}

} // namespace Kesto::Kernels::Avx2
