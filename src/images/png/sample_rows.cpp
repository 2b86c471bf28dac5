#include "images/png/sample_rows.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>

namespace Kesto {

namespace {

constexpr std::size_t kVector = 16; // bytes, and so pixels of a plane row

template <std::size_t N>
struct Vectors {
    __m128i at[N];
};

// Sixteen pixels of N channels, N vectors of their samples in the file's order, become one vector for each channel.
template <std::size_t N>
inline void SplitVectors(Vectors<N>& vectors)
{
    // As 2N halves, the first N are interleaved with the last N; four such shuffles bring 16 pixels into order.
    for (int stage = 0; stage < 4; ++stage) {
        Vectors<2 * N> halves;
        for (std::size_t i = 0; i < N; ++i) {
            halves.at[2 * i] = vectors.at[i];
            halves.at[2 * i + 1] = _mm_unpackhi_epi64(vectors.at[i], vectors.at[i]);
        }
        for (std::size_t i = 0; i < N; ++i)
            vectors.at[i] = _mm_unpacklo_epi8(halves.at[i], halves.at[i + N]);
    }
}

template <std::size_t N>
inline Vectors<N> LoadVectors(const std::uint8_t* samples)
{
    Vectors<N> vectors;
    for (std::size_t i = 0; i < N; ++i)
        vectors.at[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(samples + i * kVector));
    return vectors;
}

// Stores the first `channels` of the vectors, `count` pixels of each, at pixel `at` of their planes.
template <std::size_t N>
inline void StoreVectors(const Vectors<N>& vectors, std::size_t channels, const PlaneRows& planes, std::size_t at,
                         std::size_t count)
{
    for (std::size_t c = 0; c < channels; ++c)
        if (count == kVector)
            _mm_storeu_si128(reinterpret_cast<__m128i*>(planes[c] + at), vectors.at[c]);
        else
            std::memcpy(planes[c] + at, &vectors.at[c], count);
}

template <std::size_t N>
void SplitInto(const std::uint8_t* samples, std::size_t pixels, const PlaneRows& planes)
{
    std::array<std::uint8_t, N * kVector> last{};
    for (std::size_t i = 0; i < pixels; i += kVector) {
        const std::size_t count = std::min(kVector, pixels - i);
        const std::uint8_t* from = samples + i * N;
        if (count < kVector)
            from = static_cast<const std::uint8_t*>(std::memcpy(last.data(), from, count * N));
        auto vectors = LoadVectors<N>(from);
        SplitVectors(vectors);
        StoreVectors(vectors, N, planes, i, count);
    }
}

void SplitSamples(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels, const PlaneRows& planes)
{
    switch (format.channels) {
    case 1:
        std::memcpy(planes[0], samples, pixels);
        break;
    case 2:
        SplitInto<2>(samples, pixels, planes);
        break;
    case 3:
        SplitInto<3>(samples, pixels, planes);
        break;
    default:
        SplitInto<4>(samples, pixels, planes);
    }
}

void LookUpColors(const SampleFormat& format, const std::uint8_t* indices, std::size_t pixels, const PlaneRows& planes)
{
    for (std::size_t i = 0; i < pixels; i += kVector) {
        const std::size_t count = std::min(kVector, pixels - i);
        alignas(kVector) std::array<std::uint32_t, kVector> found{};
        for (std::size_t k = 0; k < count; ++k)
            found[k] = format.palette[indices[i + k]];
        auto vectors = LoadVectors<4>(reinterpret_cast<const std::uint8_t*>(found.data()));
        SplitVectors(vectors);
        StoreVectors(vectors, format.planes, planes, i, count);
    }
}

// The plane behind the samples', from the key colour.
void AddAlpha(const SampleFormat& format, std::size_t pixels, const PlaneRows& planes)
{
    std::uint8_t* alpha = planes[format.channels];
    std::memset(alpha, 0, pixels);
    for (std::size_t c = 0; c < format.channels; ++c)
        for (std::size_t i = 0; i < pixels; ++i)
            alpha[i] = static_cast<std::uint8_t>(alpha[i] | (planes[c][i] == format.key[c] ? 0 : 255));
}

} // namespace

void SplitRow(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels, const PlaneRows& planes)
{
    if (format.isIndexed) {
        LookUpColors(format, samples, pixels, planes);
        return;
    }
    SplitSamples(format, samples, pixels, planes);
    if (format.planes > format.channels)
        AddAlpha(format, pixels, planes);
}

} // namespace Kesto
