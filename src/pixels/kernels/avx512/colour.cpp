// Noise, sixteen pixels at once with a generator each, and hue to RGB.
#include "pixels/kernels/avx2/generator.h"
#include "pixels/kernels/avx2/vectors.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {
namespace {

constexpr std::size_t kLanes = 16; // 32-bit numbers of a vector
constexpr std::size_t kWords = 32; // 16-bit ones

__m512i Spread(std::uint32_t value)
{
    return _mm512_set1_epi32(static_cast<int>(value));
}

__m512i MovedOn(__m512i seeds, Jump jump)
{
    return _mm512_add_epi32(_mm512_mullo_epi32(seeds, Spread(jump.fFactor)), Spread(jump.fTerm));
}

// The sum of the twelve samples after each seed, less its mean.
__m512i NoiseSums(__m512i seeds)
{
    __m512i sums = Spread(0u - kNoiseMean);
    for (const Jump& jump : kSampleJumps.fTo)
        sums = _mm512_add_epi32(sums,
                                _mm512_srli_epi32(_mm512_slli_epi32(MovedOn(seeds, jump), 1), 17));
    return sums;
}

// Sums times the amount, through 32767, truncated. The product is first held to a little more than
// 256 times 32767: the pixel is at its limit there anyway, and below it floats divide exactly.
__m512i Scaled(__m512i sums, __m512i amount)
{
    const __m512i limit = Spread(256 * 32767);
    const __m512i held = _mm512_max_epi32(_mm512_min_epi32(_mm512_mullo_epi32(sums, amount), limit),
                                          _mm512_sub_epi32(Spread(0), limit));
    return _mm512_cvttps_epi32(_mm512_div_ps(_mm512_cvtepi32_ps(held), _mm512_set1_ps(32767)));
}

void Noise(const Byte* source, Byte* out, std::size_t n, std::int32_t amount, std::uint32_t& seed)
{
    if (amount > kMostNoise || amount < -kMostNoise || Entangled(out, source, n))
        return PlainKernels().noise(source, out, n, amount, seed);
    // As in the AVX2 kernel, with sixteen lanes.
    constexpr Jump kPixel = Jump::By(kNoiseSamples);
    constexpr Jump kVectorOfPixels = Jump::By(kLanes * kNoiseSamples);
    std::uint32_t state = seed;
    alignas(64) std::uint32_t lanes[kLanes];
    for (std::uint32_t& lane : lanes) {
        lane = state;
        state = kPixel(state);
    }
    __m512i seeds = _mm512_load_si512(lanes);
    const __m512i amounts = _mm512_set1_epi32(amount);
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        const __m128i pixels = Load128(source + i);
        const __m512i noisy =
            _mm512_add_epi32(_mm512_cvtepu8_epi32(pixels), Scaled(NoiseSums(seeds), amounts));
        _mm_storeu_si128(static_cast<__m128i*>(static_cast<void*>(out + i)),
                         _mm512_cvtusepi32_epi8(_mm512_max_epi32(noisy, _mm512_setzero_si512())));
        seeds = MovedOn(seeds, kVectorOfPixels);
    }
    state = static_cast<std::uint32_t>(_mm512_cvtsi512_si32(seeds));
    PlainKernels().noise(source + i, out + i, n - i, amount, state);
    seed = state;
}

struct Colours {
    __m512i fRed, fGreen, fBlue;
};

__m512i Word(int value)
{
    return _mm512_set1_epi16(static_cast<short>(value));
}

// 32 colours in 16-bit numbers. A saturation of 0 is the value itself.
Colours ToRGB(__m512i hue, __m512i s, __m512i v)
{
    const auto choose = [](__mmask32 mask, __m512i no, __m512i yes) {
        return _mm512_mask_blend_epi16(mask, no, yes);
    };
    const __m512i sector = _mm512_mulhi_epu16(hue, Word(1525)); // hue / 43
    const __m512i fraction =
        _mm512_mullo_epi16(_mm512_sub_epi16(hue, _mm512_mullo_epi16(sector, Word(43))), Word(6));
    const __mmask32 grey = _mm512_testn_epi16_mask(s, s);
    const __m512i full = Word(-1);
    const __m512i falling = _mm512_sub_epi16(full, _mm512_mullo_epi16(fraction, s));
    const __m512i rising =
        _mm512_sub_epi16(full, _mm512_mullo_epi16(_mm512_sub_epi16(Word(255), fraction), s));
    const __m512i least =
        _mm512_srli_epi16(_mm512_mullo_epi16(_mm512_sub_epi16(Word(255), s), v), 8);
    const __m512i p = choose(grey, least, v);
    const __m512i q = choose(grey, _mm512_mulhi_epu16(falling, v), v);
    const __m512i t = choose(grey, _mm512_mulhi_epu16(rising, v), v);
    const auto is = [sector](int which) { return _mm512_cmpeq_epi16_mask(sector, Word(which)); };
    const __mmask32 is0 = is(0), is1 = is(1), is2 = is(2), is3 = is(3), is4 = is(4), is5 = is(5);
    return {choose(is4, choose(is2 | is3, choose(is1, v, q), p), t),
            choose(is3, choose(is1 | is2, choose(is0, p, t), v), q),
            choose(is5, choose(is3 | is4, choose(is2, p, t), v), q)};
}

__m512i Load32Words(const Byte* from)
{
    return _mm512_cvtepu8_epi16(Load(from));
}

void HueToRGB(const Byte* const hsv[3], Byte* const rgb[3], std::size_t n)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            // The order of the plain loop's writes shows where an output lies over an input.
            if (Entangled(rgb[i], hsv[k], n))
                return PlainKernels().hueToRGB(hsv, rgb, n);
    std::size_t i = 0;
    for (; i + kWords <= n; i += kWords) {
        const Colours colours =
            ToRGB(Load32Words(hsv[0] + i), Load32Words(hsv[1] + i), Load32Words(hsv[2] + i));
        Store(rgb[0] + i, _mm512_cvtepi16_epi8(colours.fRed));
        Store(rgb[1] + i, _mm512_cvtepi16_epi8(colours.fGreen));
        Store(rgb[2] + i, _mm512_cvtepi16_epi8(colours.fBlue));
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

} // namespace Kesto::Kernels::Avx512
