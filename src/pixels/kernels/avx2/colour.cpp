// Noise, eight pixels at once with a generator each, and hue to RGB.
#include "pixels/kernels/avx2/generator.h"
#include "pixels/kernels/avx2/tables.h"
#include "pixels/kernels/avx2/vectors.h"

namespace Kesto::Kernels::Avx2 {

namespace {

__m256i Spread(std::uint32_t value)
{
    return _mm256_set1_epi32(static_cast<int>(value));
}

// The sum of the twelve samples after each of eight seeds, less its mean.
__m256i NoiseSums(__m256i seeds)
{
    __m256i sums = Spread(0u - kNoiseMean);
    for (const Jump& jump : kSampleJumps.fTo) {
        const __m256i state =
            _mm256_add_epi32(_mm256_mullo_epi32(seeds, Spread(jump.fFactor)), Spread(jump.fTerm));
        sums = _mm256_add_epi32(sums, _mm256_srli_epi32(_mm256_slli_epi32(state, 1), 17));
    }
    return sums;
}

// Sums times the amount, through 32767, truncated. The product is first held to a little more than
// 256 times 32767: the pixel is at its limit there anyway, and below it floats divide exactly.
__m256i Scaled(__m256i sums, __m256i amount)
{
    const __m256i limit = Spread(256 * 32767);
    const __m256i product = _mm256_mullo_epi32(sums, amount);
    const __m256i held =
        _mm256_max_epi32(_mm256_min_epi32(product, limit), _mm256_sub_epi32(Spread(0), limit));
    return _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(held), _mm256_set1_ps(32767)));
}

void Noise(const Byte* source, Byte* out, std::size_t n, std::int32_t amount, std::uint32_t& seed)
{
    if (amount > kMostNoise || amount < -kMostNoise || Entangled(out, source, n))
        return PlainKernels().noise(source, out, n, amount, seed);
    // Lane i has the generator's state before pixel i; a jump over eight pixels moves all lanes on.
    constexpr Jump kPixel = Jump::By(kNoiseSamples);
    constexpr Jump kEightPixels = Jump::By(8 * kNoiseSamples);
    std::uint32_t state = seed;
    alignas(kVector) std::uint32_t lanes[8];
    for (std::uint32_t& lane : lanes) {
        lane = state;
        state = kPixel(state);
    }
    __m256i seeds = Load(lanes);
    const __m256i amounts = _mm256_set1_epi32(amount);
    std::size_t i = 0;
    for (; i + 8 <= n; i += 8) {
        const __m256i pixels =
            _mm256_add_epi32(Load32(source + i), Scaled(NoiseSums(seeds), amounts));
        const __m256i words = _mm256_packs_epi32(pixels, pixels);
        const __m256i bytes = _mm256_packus_epi16(words, words);
        const std::uint32_t low = static_cast<std::uint32_t>(_mm256_extract_epi32(bytes, 0));
        const std::uint32_t high = static_cast<std::uint32_t>(_mm256_extract_epi32(bytes, 4));
        std::memcpy(out + i, &low, 4);
        std::memcpy(out + i + 4, &high, 4);
        seeds = _mm256_add_epi32(_mm256_mullo_epi32(seeds, Spread(kEightPixels.fFactor)),
                                 Spread(kEightPixels.fTerm));
    }
    state = static_cast<std::uint32_t>(_mm256_extract_epi32(seeds, 0));
    PlainKernels().noise(source + i, out + i, n - i, amount, state);
    seed = state;
}

struct Colours {
    __m256i fRed, fGreen, fBlue;
};

// Sixteen colours in 16-bit numbers. A saturation of 0 is the value itself.
Colours ToRGB(__m256i hue, __m256i s, __m256i v)
{
    const auto word = [](int value) { return _mm256_set1_epi16(static_cast<short>(value)); };
    const auto is = [](__m256i a, __m256i b) { return _mm256_cmpeq_epi16(a, b); };
    const auto choose = [](__m256i no, __m256i yes, __m256i mask) {
        return _mm256_blendv_epi8(no, yes, mask);
    };
    const __m256i sector = _mm256_mulhi_epu16(hue, word(1525)); // hue / 43
    const __m256i fraction =
        _mm256_mullo_epi16(_mm256_sub_epi16(hue, _mm256_mullo_epi16(sector, word(43))), word(6));
    const __m256i full = word(-1);
    const __m256i grey = is(s, word(0));
    const __m256i p = choose(
        _mm256_srli_epi16(_mm256_mullo_epi16(_mm256_sub_epi16(word(255), s), v), 8), v, grey);
    const __m256i q = choose(
        _mm256_mulhi_epu16(_mm256_sub_epi16(full, _mm256_mullo_epi16(fraction, s)), v), v, grey);
    const __m256i rising = _mm256_mullo_epi16(_mm256_sub_epi16(word(255), fraction), s);
    const __m256i t = choose(_mm256_mulhi_epu16(_mm256_sub_epi16(full, rising), v), v, grey);
    const __m256i is1 = is(sector, word(1)), is2 = is(sector, word(2)), is3 = is(sector, word(3));
    const __m256i is4 = is(sector, word(4)), is0 = is(sector, word(0)), is5 = is(sector, word(5));
    const __m256i red = choose(choose(choose(v, q, is1), p, _mm256_or_si256(is2, is3)), t, is4);
    const __m256i green = choose(choose(choose(p, t, is0), v, _mm256_or_si256(is1, is2)), q, is3);
    const __m256i blue = choose(choose(choose(p, t, is2), v, _mm256_or_si256(is3, is4)), q, is5);
    return {red, green, blue};
}

void HueToRGB(const Byte* const hsv[3], Byte* const rgb[3], std::size_t n)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            // Where an output lies over an input the order of the writes shows, and the plain
            // loop's is the one that counts.
            if (Entangled(rgb[i], hsv[k], n))
                return PlainKernels().hueToRGB(hsv, rgb, n);
    std::size_t i = 0;
    for (; i + kVector <= n; i += kVector) {
        const Colours low = ToRGB(Load16(hsv[0] + i), Load16(hsv[1] + i), Load16(hsv[2] + i));
        const Colours high =
            ToRGB(Load16(hsv[0] + i + 16), Load16(hsv[1] + i + 16), Load16(hsv[2] + i + 16));
        Store(rgb[0] + i, Packed(low.fRed, high.fRed));
        Store(rgb[1] + i, Packed(low.fGreen, high.fGreen));
        Store(rgb[2] + i, Packed(low.fBlue, high.fBlue));
    }
    const Byte* const sources[3] = {hsv[0] + i, hsv[1] + i, hsv[2] + i};
    Byte* const targets[3] = {rgb[0] + i, rgb[1] + i, rgb[2] + i};
    PlainKernels().hueToRGB(sources, targets, n - i);
}

} // namespace

void AddColour(KernelTable& table)
{
    table.noise = Noise;
    table.hueToRGB = HueToRGB;
}

} // namespace Kesto::Kernels::Avx2
