#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

// Four pixels as doubles.
__m256d Doubles(const std::uint8_t* from)
{
    std::int32_t four;
    std::memcpy(&four, from, 4);
    return _mm256_cvtepi32_pd(_mm_cvtepu8_epi32(_mm_cvtsi32_si128(four)));
}
__m256d Doubles(const std::uint16_t* from)
{
    return _mm256_cvtepi32_pd(
        _mm_cvtepu16_epi32(_mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(from)))));
}
// A 32-bit number is the low part of the double 2^52 + number.
__m256d Doubles(const std::uint32_t* from)
{
    const __m256i wide =
        _mm256_cvtepu32_epi64(_mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(from))));
    const __m256d bias = _mm256_set1_pd(4503599627370496.0);
    return _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(wide, _mm256_castpd_si256(bias))), bias);
}

// Four pixels from anywhere.
__m256d FourDoubles(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    const std::uint32_t pixels[4] = {a, b, c, d};
    return Doubles(pixels);
}
template <class T>
__m256d FourDoubles(T a, T b, T c, T d)
{
    return _mm256_cvtepi32_pd(_mm_setr_epi32(a, b, c, d));
}

// Four results, truncated. All are within their type but for a 32-bit white, which is held to its value.
void StoreTruncated(std::uint8_t* to, __m256d values)
{
    const __m128i words = _mm_packs_epi32(_mm256_cvttpd_epi32(values), _mm_setzero_si128());
    const std::int32_t four = _mm_cvtsi128_si32(_mm_packus_epi16(words, words));
    std::memcpy(to, &four, 4);
}
void StoreTruncated(std::uint16_t* to, __m256d values)
{
    const __m128i words = _mm_packus_epi32(_mm256_cvttpd_epi32(values), _mm_setzero_si128());
    _mm_storel_epi64(static_cast<__m128i*>(static_cast<void*>(to)), words);
}
void StoreTruncated(std::uint32_t* to, __m256d values)
{
    const __m256d held = _mm256_min_pd(values, _mm256_set1_pd(4294967295.0));
    const __m256d whole = _mm256_round_pd(held, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC);
    // Adding 2^52 leaves the number in the low part.
    const __m256i biased = _mm256_castpd_si256(_mm256_add_pd(whole, _mm256_set1_pd(4503599627370496.0)));
    const __m256i low = _mm256_permutevar8x32_epi32(biased, _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
    _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(to)), _mm256_castsi256_si128(low));
}

__m256d Weighted(__m256d a, __m256d b, __m256d weightA, __m256d weightB)
{
    const __m256d sum = _mm256_add_pd(_mm256_mul_pd(a, weightA), _mm256_mul_pd(b, weightB));
    return _mm256_add_pd(sum, _mm256_set1_pd(0.5));
}

// The table of plain operations for one pixel type.
const ScaleRows<std::uint8_t>& PlainRows(std::uint8_t)
{
    return PlainKernels().scale8;
}
const ScaleRows<std::uint16_t>& PlainRows(std::uint16_t)
{
    return PlainKernels().scale16;
}
const ScaleRows<std::uint32_t>& PlainRows(std::uint32_t)
{
    return PlainKernels().scale32;
}

template <class T>
void AddRow(const T* row, float weight, double* sum, std::size_t n)
{
    const __m256d factor = _mm256_set1_pd(static_cast<double>(weight));
    std::size_t i = 0;
    if (weight >= 1)
        for (; i + 4 <= n; i += 4)
            _mm256_storeu_pd(sum + i, _mm256_add_pd(_mm256_loadu_pd(sum + i), Doubles(row + i)));
    else
        for (; i + 4 <= n; i += 4)
            _mm256_storeu_pd(sum + i, _mm256_add_pd(_mm256_loadu_pd(sum + i), _mm256_mul_pd(Doubles(row + i), factor)));
    PlainRows(T()).addRow(row + i, weight, sum + i, n - i);
}

template <class T>
void TakeSums(double* sum, float scale, T* out, std::size_t n)
{
    const __m256d factor = _mm256_set1_pd(static_cast<double>(scale));
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        StoreTruncated(out + i, _mm256_add_pd(_mm256_mul_pd(_mm256_loadu_pd(sum + i), factor), _mm256_set1_pd(0.5)));
        _mm256_storeu_pd(sum + i, _mm256_setzero_pd());
    }
    PlainRows(T()).takeSums(sum + i, scale, out + i, n - i);
}

template <class T>
void Combine(const T* a, const T* b, float weightA, float weightB, T* out, std::size_t n)
{
    const __m256d factorA = _mm256_set1_pd(static_cast<double>(weightA));
    const __m256d factorB = _mm256_set1_pd(static_cast<double>(weightB));
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4)
        StoreTruncated(out + i, Weighted(Doubles(a + i), Doubles(b + i), factorA, factorB));
    PlainRows(T()).combine(a + i, b + i, weightA, weightB, out + i, n - i);
}

// A copied pixel is its value times 1 plus itself times 0, plus 0.5, truncated: itself. So every entry is one sum.
template <class T>
void EnlargeRow(const T* source, std::int32_t sourceWidth, std::int32_t start, const ScaleEntry* entries, std::size_t n,
                T* out)
{
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        const ScaleEntry* four = entries + i;
        const auto at = [=](std::int32_t index) { return source[index - start]; };
        const __m256d first =
            FourDoubles(at(four[0].fFirst), at(four[1].fFirst), at(four[2].fFirst), at(four[3].fFirst));
        const __m256d last = FourDoubles(at(four[0].fLast), at(four[1].fLast), at(four[2].fLast), at(four[3].fLast));
        // The weights lie in the first halves of the four entries.
        const __m256 lower = _mm256_castsi256_ps(Load(entries + i));
        const __m256 upper = _mm256_castsi256_ps(Load(entries + i + 2));
        const __m256 weights =
            _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(lower, upper, 0x44)), 0xD8));
        const __m128 low = _mm256_castps256_ps128(weights), high = _mm256_extractf128_ps(weights, 1);
        const __m256d firstWeights = _mm256_cvtps_pd(_mm_shuffle_ps(low, high, 0x88));
        const __m256d lastWeights = _mm256_cvtps_pd(_mm_shuffle_ps(low, high, 0xDD));
        StoreTruncated(out + i, Weighted(first, last, firstWeights, lastWeights));
    }
    PlainRows(T()).enlarge(source, sourceWidth, start, entries + i, n - i, out + i);
}

// Reduction of bytes in whole numbers. Weights of a reduction are multiples of 2^-23 and at most 1, since the edges they
// come from are at least 1: as whole numbers of 24 bits they and the pixels make sums without any rounding, which as
// doubles are the sums of the plain loop.
constexpr double kUnit = 1.0 / 8388608;

// An entry of at most this many pixels is taken with one 64-bit load.
constexpr std::int32_t kLongest = 8;

__m256i Units(__m128 weights)
{
    return _mm256_cvtepu32_epi64(_mm_cvttps_epi32(_mm_mul_ps(weights, _mm_set1_ps(8388608))));
}

long long EightPixels(const Byte* source, std::int32_t start, const ScaleEntry& entry)
{
    long long bytes;
    std::memcpy(&bytes, source + (entry.fFirst - start), 8);
    return bytes;
}

// The sums of four entries of at most kLongest pixels, in units of kUnit, one in each 64 bits. The inner pixels are what is
// left when the first is cleared and what lies from the last on is shifted out and in again.
__m256i FourSums(const Byte* source, std::int32_t start, const ScaleEntry* entries)
{
    const __m256i bytes =
        _mm256_setr_epi64x(EightPixels(source, start, entries[0]), EightPixels(source, start, entries[1]),
                           EightPixels(source, start, entries[2]), EightPixels(source, start, entries[3]));
    // Four entries are a matrix of four rows; its columns are first weights, last weights, firsts, lasts.
    const float* numbers = static_cast<const float*>(static_cast<const void*>(entries));
    __m128 firstWeights = _mm_loadu_ps(numbers), lastWeights = _mm_loadu_ps(numbers + 4);
    __m128 firsts = _mm_loadu_ps(numbers + 8), lasts = _mm_loadu_ps(numbers + 12);
    _MM_TRANSPOSE4_PS(firstWeights, lastWeights, firsts, lasts);
    const __m256i bits =
        _mm256_slli_epi64(_mm256_cvtepu32_epi64(_mm_sub_epi32(_mm_castps_si128(lasts), _mm_castps_si128(firsts))), 3);
    const __m256i one = _mm256_set1_epi64x(255);
    const __m256i first = _mm256_and_si256(bytes, one);
    const __m256i last = _mm256_andnot_si256(_mm256_cmpeq_epi64(bits, _mm256_setzero_si256()), // not if first is last
                                             _mm256_and_si256(_mm256_srlv_epi64(bytes, bits), one));
    const __m256i before = _mm256_andnot_si256(_mm256_sllv_epi64(_mm256_set1_epi64x(-1), bits), bytes);
    const __m256i inner = _mm256_sad_epu8(_mm256_andnot_si256(one, before), _mm256_setzero_si256());
    const __m256i outer =
        _mm256_add_epi64(_mm256_mul_epu32(first, Units(firstWeights)), _mm256_mul_epu32(last, Units(lastWeights)));
    return _mm256_add_epi64(outer, _mm256_slli_epi64(inner, 23));
}

// out = sums * kUnit * scale, of sums below 2^52.
void StoreMeans(Byte* out, __m256i sums, double scale)
{
    const __m256d bias = _mm256_set1_pd(4503599627370496.0);
    const __m256d whole = _mm256_sub_pd(_mm256_castsi256_pd(_mm256_or_si256(sums, _mm256_castpd_si256(bias))), bias);
    StoreTruncated(out, _mm256_add_pd(_mm256_mul_pd(whole, _mm256_set1_pd(scale * kUnit)), _mm256_set1_pd(0.5)));
}

// The sum of a run of pixels.
std::int64_t SumOf(const Byte* first, const Byte* end)
{
    __m256i sums = _mm256_setzero_si256();
    for (; end - first >= 32; first += 32)
        sums = _mm256_add_epi64(sums, _mm256_sad_epu8(Load(first), _mm256_setzero_si256()));
    __m128i sum = _mm_add_epi64(_mm256_castsi256_si128(sums), _mm256_extracti128_si256(sums, 1));
    if (end - first >= 16) {
        sum = _mm_add_epi64(sum,
                            _mm_sad_epu8(_mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(first))),
                                         _mm_setzero_si128()));
        first += 16;
    }
    if (end - first >= 8) {
        sum = _mm_add_epi64(sum,
                            _mm_sad_epu8(_mm_loadl_epi64(static_cast<const __m128i*>(static_cast<const void*>(first))),
                                         _mm_setzero_si128()));
        first += 8;
    }
    std::int64_t total = _mm_cvtsi128_si64(_mm_add_epi64(sum, _mm_unpackhi_epi64(sum, sum)));
    for (; first < end; ++first)
        total += *first;
    return total;
}

// The same sums for entries of any length.
long long LongSum(const Byte* source, std::int32_t start, const ScaleEntry& entry)
{
    const Byte* first = source + (entry.fFirst - start);
    const Byte* last = source + (entry.fLast - start);
    const auto units = [](float weight) { return static_cast<std::int64_t>(weight * 8388608.0f); };
    return *first * units(entry.fFirstWeight) + *last * units(entry.fLastWeight) + (SumOf(first + 1, last) << 23);
}

// Exact halves are means of two pixels, rounded up.
void Halve(const Byte* source, Byte* out, std::size_t n)
{
    const __m256i ones = _mm256_set1_epi8(1);
    const auto means = [&](const Byte* from) {
        return _mm256_avg_epu16(_mm256_maddubs_epi16(Load(from), ones), _mm256_setzero_si256());
    };
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector)
        Store(out + i, Packed(means(source + 2 * i), means(source + 2 * i + kVector)));
    for (; i < n; ++i)
        out[i] = static_cast<Byte>((source[2 * i] + source[2 * i + 1] + 1) / 2);
}

void Average(const Byte* a, const Byte* b, Byte* out, std::size_t n)
{
    MapVectors(
        out, n, [](__m256i first, __m256i second) { return _mm256_avg_epu8(first, second); }, a, b);
}

void ReduceRow(const Byte* source, std::int32_t sourceWidth, std::int32_t start, const ScaleEntry* entries,
               std::size_t n, float scale, Byte* out)
{
    std::size_t i = 0;
    // The shortest and the longest of the entries differ by two pixels at most.
    const bool isShort = n > 0 && entries[0].fLast - entries[0].fFirst + 3 <= kLongest;
    const std::int32_t lastLoad = start + sourceWidth - 8;
    for (; i + 4 <= n && isShort && entries[i + 3].fFirst <= lastLoad; i += 4)
        StoreMeans(out + i, FourSums(source, start, entries + i), static_cast<double>(scale));
    // A sum of this many pixels could leave 52 bits; and where first and last are one, only one of them counts.
    const bool isLong = !isShort && sourceWidth < 1 << 20;
    for (; i + 4 <= n && isLong; i += 4)
        StoreMeans(out + i,
                   _mm256_setr_epi64x(LongSum(source, start, entries[i]), LongSum(source, start, entries[i + 1]),
                                      LongSum(source, start, entries[i + 2]), LongSum(source, start, entries[i + 3])),
                   static_cast<double>(scale));
    PlainKernels().scale8.reduce(source, sourceWidth, start, entries + i, n - i, scale, out + i);
}

} // namespace

void AddScaling(KernelTable& table)
{
    table.scale8 = {
        ReduceRow, EnlargeRow<std::uint8_t>, AddRow<std::uint8_t>, TakeSums<std::uint8_t>, Combine<std::uint8_t>, Halve,
        Average};
    table.scale16 = {PlainKernels().scale16.reduce,
                     EnlargeRow<std::uint16_t>,
                     AddRow<std::uint16_t>,
                     TakeSums<std::uint16_t>,
                     Combine<std::uint16_t>,
                     nullptr,
                     nullptr};
    table.scale32 = {PlainKernels().scale32.reduce,
                     EnlargeRow<std::uint32_t>,
                     AddRow<std::uint32_t>,
                     TakeSums<std::uint32_t>,
                     Combine<std::uint32_t>,
                     nullptr,
                     nullptr};
}

} // namespace Kesto::Kernels::Avx2
