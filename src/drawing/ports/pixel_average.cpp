#include "drawing/ports/pixel_average.h"

#include <emmintrin.h>

#include <algorithm>

namespace Kesto {
namespace {

constexpr std::size_t kChannels = 4;

__m128i LoadInts(const void* from)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

// The channels of four pixels, or of one, as numbers.
struct CFourPixels {
    explicit CFourPixels(const std::uint32_t* pixels)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i bytes = LoadInts(pixels);
        const __m128i low = _mm_unpacklo_epi8(bytes, zero);
        const __m128i high = _mm_unpackhi_epi8(bytes, zero);
        numbers[0] = _mm_unpacklo_epi16(low, zero);
        numbers[1] = _mm_unpackhi_epi16(low, zero);
        numbers[2] = _mm_unpacklo_epi16(high, zero);
        numbers[3] = _mm_unpackhi_epi16(high, zero);
    }
    __m128i numbers[4];
};

__m128i OnePixel(std::uint32_t pixel)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i bytes = _mm_cvtsi32_si128(static_cast<int>(pixel));
    return _mm_unpacklo_epi16(_mm_unpacklo_epi8(bytes, zero), zero);
}

// Calls put(i, the channels of pixel i) for a row.
template <class Put>
void ForEachPixel(const std::uint32_t* row, std::size_t count, const Put& put)
{
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4) {
        const CFourPixels four(row + i);
        for (std::size_t k = 0; k < 4; ++k)
            put(i + k, four.numbers[k]);
    }
    for (; i < count; ++i)
        put(i, OnePixel(row[i]));
}

// a * b / c, and what is left of it as a part of 1.
struct CPlace {
    CPlace(std::int64_t a, std::int64_t b, std::int64_t c)
        : whole(static_cast<std::int32_t>(a * b / c)),
          part(static_cast<float>(static_cast<double>(a * b % c) / static_cast<double>(c)))
    {
    }
    std::int32_t whole;
    float part;
};

} // namespace

CPixelShare CAverageAxis::ShareOf(std::int32_t at) const
{
    if (dest == source)
        return {at, at, 1, 0, 1};
    if (dest > source) {
        const CPlace place(at, source - 1, dest - 1);
        return {place.whole, place.whole + (place.part > 0 ? 1 : 0), 1 - place.part, place.part, 1};
    }
    const CPlace start(at, source, dest);
    const CPlace stop(at + std::int64_t{1}, source, dest);
    const float scale = static_cast<float>(dest) / static_cast<float>(source);
    if (stop.part > 0)
        return {start.whole, stop.whole, 1 - start.part, stop.part, scale};
    return {start.whole, stop.whole - 1, 1 - start.part, 1, scale};
}

void CPixelAverage::Run(CPixelRows& rows, const CAverageAxis& across, const CAverageAxis& down,
                        const CPixelSurface& out)
{
    const std::int32_t left = across.FirstUsed();
    // The shares of the columns are the same in each row.
    fColumns.clear();
    for (std::int32_t x = across.first; x < across.end; ++x) {
        fColumns.push_back(across.ShareOf(x));
        fColumns.back().first -= left;
        fColumns.back().last -= left;
    }
    const auto channels = kChannels * static_cast<std::size_t>(across.EndUsed() - left);
    fSums.resize(channels);
    fInner.assign(channels, 0);
    for (std::int32_t y = down.first; y < down.end; ++y) {
        const CPixelShare share = down.ShareOf(y);
        SumRows(rows, share);
        TakeRow(share.scale, out.At(0, y - down.first));
    }
}

void CPixelAverage::SumRows(CPixelRows& rows, const CPixelShare& share)
{
    // Only the first and the last row have weights; those between are added as integers, which is
    // quicker.
    const std::size_t count = fSums.size() / kChannels;
    const __m128 firstWeight = _mm_set1_ps(share.firstWeight);
    float* const sums = fSums.data();
    ForEachPixel(rows.Row(share.first), count, [&](std::size_t i, __m128i pixel) {
        _mm_storeu_ps(sums + kChannels * i, _mm_mul_ps(_mm_cvtepi32_ps(pixel), firstWeight));
    });
    if (share.last == share.first)
        return;
    std::uint32_t* const inner = fInner.data();
    for (std::int32_t y = share.first + 1; y < share.last; ++y)
        ForEachPixel(rows.Row(y), count, [&](std::size_t i, __m128i pixel) {
            auto* const place = reinterpret_cast<__m128i*>(inner + kChannels * i);
            _mm_storeu_si128(place, _mm_add_epi32(LoadInts(place), pixel));
        });
    const __m128 lastWeight = _mm_set1_ps(share.lastWeight);
    ForEachPixel(rows.Row(share.last), count, [&](std::size_t i, __m128i pixel) {
        auto* const place = reinterpret_cast<__m128i*>(inner + kChannels * i);
        const __m128 outer = _mm_add_ps(_mm_loadu_ps(sums + kChannels * i),
                                        _mm_mul_ps(_mm_cvtepi32_ps(pixel), lastWeight));
        _mm_storeu_ps(sums + kChannels * i, _mm_add_ps(outer, _mm_cvtepi32_ps(LoadInts(place))));
        _mm_storeu_si128(place, _mm_setzero_si128());
    });
}

// Halves are rounded up.
void CPixelAverage::TakeRow(float scale, std::uint32_t* out) const
{
    const auto sumAt = [this](std::int32_t i) {
        return _mm_loadu_ps(fSums.data() + kChannels * static_cast<std::size_t>(i));
    };
    for (const CPixelShare& share : fColumns) {
        __m128 sum = _mm_mul_ps(sumAt(share.first), _mm_set1_ps(share.firstWeight));
        for (std::int32_t i = share.first + 1; i < share.last; ++i)
            sum = _mm_add_ps(sum, sumAt(i));
        if (share.last > share.first)
            sum = _mm_add_ps(sum, _mm_mul_ps(sumAt(share.last), _mm_set1_ps(share.lastWeight)));
        const __m128 mean =
            _mm_add_ps(_mm_mul_ps(sum, _mm_set1_ps(share.scale * scale)), _mm_set1_ps(0.5f));
        const __m128i words = _mm_packs_epi32(_mm_cvttps_epi32(mean), _mm_setzero_si128());
        *out++ = static_cast<std::uint32_t>(
            _mm_cvtsi128_si32(_mm_packus_epi16(words, _mm_setzero_si128())));
    }
}

} // namespace Kesto
