#include "images/png/sample_rows.h"

#include "pixels/kernels/cpu.h"
#include "pixels/kernels/kernel_table.h"

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

// Sixteen pixels of N channels, N vectors of their samples in the file's order, become one vector
// for each channel. Of the 2N halves the first N are interleaved with the last N; four such
// shuffles bring 16 pixels into order.
template <std::size_t N>
inline void SplitVectors(Vectors<N>& vectors)
{
    for (int stage = 0; stage < 4; ++stage) {
        const Vectors<N> old = vectors;
        for (std::size_t i = 0; i < N; ++i) {
            const __m128i first = old.at[i / 2], last = old.at[(i + N) / 2];
            if constexpr (N % 2 == 0)
                vectors.at[i] =
                    i % 2 == 0 ? _mm_unpacklo_epi8(first, last) : _mm_unpackhi_epi8(first, last);
            else // one half is the lower one of its vector, and the other the upper
                vectors.at[i] = i % 2 == 0
                                    ? _mm_unpacklo_epi8(first, _mm_unpackhi_epi64(last, last))
                                    : _mm_unpacklo_epi8(_mm_unpackhi_epi64(first, first), last);
        }
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

// Stores the first `channels` of the vectors, `count` pixels of each, at pixel `at` of their
// planes.
template <std::size_t N>
inline void StoreVectors(const Vectors<N>& vectors, std::size_t channels, const PlaneRows& planes,
                         std::size_t at, std::size_t count)
{
    for (std::size_t c = 0; c < N && c < channels; ++c)
        if (count == kVector)
            _mm_storeu_si128(reinterpret_cast<__m128i*>(planes[c] + at), vectors.at[c]);
        else
            std::memcpy(planes[c] + at, &vectors.at[c], count);
}

// Splits the pixels from `start` on, of N channels, into the first `channels` planes.
template <std::size_t N>
void SplitInto(const std::uint8_t* samples, std::size_t pixels, std::size_t channels,
               const PlaneRows& planes, std::size_t start = 0)
{
    const auto split = [&](const std::uint8_t* from, std::size_t at, std::size_t count) {
        auto vectors = LoadVectors<N>(from);
        SplitVectors(vectors);
        StoreVectors(vectors, channels, planes, start + at, count);
    };
    if (pixels < kVector) {
        std::array<std::uint8_t, N * kVector> few{};
        std::memcpy(few.data(), samples, pixels * N);
        split(few.data(), 0, pixels);
        return;
    }
    for (std::size_t i = 0; i + kVector < pixels; i += kVector)
        split(samples + i * N, i, kVector);
    const std::size_t last = pixels - kVector; // some of these pixels may be done already
    split(samples + last * N, last, kVector);
}

void SplitSamples(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels,
                  const PlaneRows& planes)
{
    switch (format.channels) {
    case 1:
        std::memcpy(planes[0], samples, pixels);
        break;
    case 2:
        SplitInto<2>(samples, pixels, 2, planes);
        break;
    case 3:
        SplitInto<3>(samples, pixels, 3, planes);
        break;
    default:
        SplitInto<4>(samples, pixels, 4, planes);
    }
}

void LookUpColors(const SampleFormat& format, const std::uint8_t* indices, std::size_t pixels,
                  const PlaneRows& planes)
{
    if (Kernels::ActiveCpuLevel() >= Kernels::CpuLevel::kAvx512) {
        // Its registers hold a whole table, and look up 64 pixels at once.
        for (std::size_t c = 0; c < format.planes; ++c)
            Kernels::ActiveKernels().mapTable(indices, format.paletteOfPlane[c].data(), planes[c],
                                              pixels);
        return;
    }
    // Colours are found piece by piece: read back at once as vectors, they would have to wait for
    // their writing.
    std::array<std::uint32_t, 256> found;
    for (std::size_t i = 0; i < pixels; i += found.size()) {
        const std::size_t count = std::min(found.size(), pixels - i);
        std::size_t k = 0;
        for (; k + 8 <= count; k += 8)
            for (std::size_t each = k; each < k + 8; ++each)
                found[each] = format.palette[indices[i + each]];
        for (; k < count; ++k)
            found[k] = format.palette[indices[i + k]];
        SplitInto<4>(reinterpret_cast<const std::uint8_t*>(found.data()), count, format.planes,
                     planes, i);
    }
}

// The alpha plane, made of the key colour; it follows those of the samples.
void AddAlpha(const SampleFormat& format, std::size_t pixels, const PlaneRows& planes)
{
    std::uint8_t* alpha = planes[format.channels];
    std::memset(alpha, 0, pixels);
    for (std::size_t c = 0; c < format.channels; ++c)
        for (std::size_t i = 0; i < pixels; ++i)
            alpha[i] =
                static_cast<std::uint8_t>(alpha[i] | (planes[c][i] == format.key[c] ? 0 : 255));
}

} // namespace

void SplitRow(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels,
              const PlaneRows& planes)
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
