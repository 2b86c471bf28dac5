#include "dialogs/preview/block_copy.h"

#include <algorithm>
#include <cstring>

namespace Project {
namespace {

// The new sample over the old one, `m` of 255. Each depth has a rounding of its own.
uint8_t Blend(uint8_t in, uint8_t old, uint32_t m)
{
    const uint32_t t = in * m + (255 - m) * old + 0x80;
    return static_cast<uint8_t>((t + (t >> 8)) >> 8);
}
uint16_t Blend(uint16_t in, uint16_t old, uint32_t m)
{
    return static_cast<uint16_t>((in * m + (255 - m) * old + 0x7F) / 255);
}
float Blend(float in, float old, uint32_t m)
{
    return old + (in - old) * static_cast<float>(m) / 255;
}

// `in` over `old`, which either of may be `out`.
template <class Sample>
void BlendPixel(uint8_t* out, const uint8_t* in, const uint8_t* old, int32_t samples, uint32_t m)
{
    for (ptrdiff_t i = 0; i < samples * ptrdiff_t{sizeof(Sample)}; i += sizeof(Sample)) {
        Sample over{}, under{};
        std::memcpy(&over, in + i, sizeof over);
        std::memcpy(&under, old + i, sizeof under);
        const Sample blended = Blend(over, under, m);
        std::memcpy(out + i, &blended, sizeof blended);
    }
}

// Calls `run` with a value of the type that samples of the depth have.
template <class Run>
void WithSample(int32_t depth, Run run)
{
    if (depth == 8)
        run(uint8_t{});
    else if (depth == 16)
        run(uint16_t{});
    else
        run(float{});
}

// A walk over the pixels of a row; each is written so many times.
struct PixelWalk {
    const uint8_t* from;
    size_t fromStep;
    uint8_t* to;
    size_t toStep;
    size_t count;
    int32_t times;
};

template <class Pixel>
void ForEachPixel(PixelWalk walk, Pixel pixel)
{
    for (size_t i = 0; i < walk.count; ++i, walk.from += walk.fromStep)
        for (int32_t n = 0; n < walk.times; ++n, walk.to += walk.toStep)
            pixel(walk.to, walk.from, i);
}

// Pixels of the usual sizes have copies of a size that the compiler knows.
template <size_t... kSizes>
void CopyPixels(const PixelWalk& walk, size_t bytes)
{
    const bool isUsual =
        ((bytes == kSizes && (ForEachPixel(walk, [](uint8_t* to, const uint8_t* from,
                                                    size_t) { std::memcpy(to, from, kSizes); }),
                              true)) ||
         ...);
    if (!isUsual)
        ForEachPixel(walk, [bytes](uint8_t* to, const uint8_t* from, size_t) {
            std::memcpy(to, from, bytes);
        });
}

// The first place at or after `at` that a walk from `origin` in steps of `factor` comes to.
int32_t FirstStep(int32_t at, int32_t origin, int32_t factor)
{
    return origin + (at - origin + factor - 1) / factor * factor;
}

const uint8_t* PixelOf(const BlockSamples& block, int32_t x, int32_t y)
{
    return block.bytes + static_cast<size_t>(y - block.rect.top) * block.rowStep +
           static_cast<size_t>(x - block.rect.left) * block.pixelStep;
}

class RowCopier {
public:
    RowCopier(const BlockSamples& block, const BlockSamples* mask, const PixelRect& part,
              const BufferSamples& buffer)
        : fBlock(block), fMask(mask), fPart(part), fBuffer(buffer),
          fSampleBytes(static_cast<size_t>(buffer.depth) / 8)
    {
    }

    // The row of the document at `y`, `dest` times.
    void Row(int32_t y) const
    {
        const PreviewFactors& factors = fBuffer.factors;
        uint8_t* const row = To(FirstStep(fPart.left, fBuffer.rect.left, factors.source), y);
        if (fMask == nullptr && factors == PreviewFactors{} && IsPacked()) {
            std::memcpy(row, PixelOf(fBlock, fPart.left, y),
                        static_cast<size_t>(fPart.right - fPart.left) * fBuffer.pixelStep);
            return;
        }
        if (fMask == nullptr) {
            const size_t bytes = Across(row, y);
            for (int32_t down = 1; down < factors.dest; ++down)
                std::memcpy(row + static_cast<size_t>(down) * fBuffer.rowStep, row, bytes);
            return;
        }
        for (int32_t down = 0; down < factors.dest; ++down) // what is blended over may differ
            Across(row + static_cast<size_t>(down) * fBuffer.rowStep, y);
    }

private:
    bool IsPacked() const
    {
        return fBlock.pixelStep == fBuffer.pixelStep &&
               static_cast<size_t>(fBuffer.samples) * fSampleBytes == fBuffer.pixelStep;
    }

    uint8_t* To(int32_t x, int32_t y) const
    {
        const auto scaled = [this](int32_t distance) {
            return static_cast<size_t>(distance / fBuffer.factors.source * fBuffer.factors.dest);
        };
        return fBuffer.bytes + scaled(y - fBuffer.rect.top) * fBuffer.rowStep +
               scaled(x - fBuffer.rect.left) * fBuffer.pixelStep;
    }

    // One row of the buffer; the bytes that it has grown by.
    size_t Across(uint8_t* to, int32_t y) const
    {
        const PreviewFactors& factors = fBuffer.factors;
        const int32_t first = FirstStep(fPart.left, fBuffer.rect.left, factors.source);
        const auto step = static_cast<size_t>(factors.source);
        const PixelWalk walk{
            PixelOf(fBlock, first, y),
            step * fBlock.pixelStep,
            to,
            fBuffer.pixelStep,
            static_cast<size_t>((fPart.right - first + factors.source - 1) / factors.source),
            factors.dest};
        if (fMask == nullptr)
            CopyPixels<1, 2, 3, 4, 6, 8, 12, 16>(walk, static_cast<size_t>(fBuffer.samples) *
                                                           fSampleBytes);
        else
            BlendPixels(walk, PixelOf(*fMask, first, y), step * fMask->pixelStep);
        return walk.count * static_cast<size_t>(factors.dest) * fBuffer.pixelStep;
    }

    void BlendPixels(const PixelWalk& walk, const uint8_t* mask, size_t maskStep) const
    {
        WithSample(fBuffer.depth, [&](auto sample) {
            ForEachPixel(walk, [&](uint8_t* to, const uint8_t* from, size_t i) {
                BlendPixel<decltype(sample)>(to, from, to, fBuffer.samples, mask[i * maskStep]);
            });
        });
    }

    const BlockSamples& fBlock;
    const BlockSamples* fMask;
    const PixelRect& fPart;
    const BufferSamples& fBuffer;
    size_t fSampleBytes;
};

} // namespace

DocumentSize ScaledSize(const PixelRect& rect, const PreviewFactors& factors)
{
    const auto scaled = [&](int32_t length) {
        return (std::max(length, 0) + factors.source - 1) / factors.source * factors.dest;
    };
    return {scaled(rect.right - rect.left), scaled(rect.bottom - rect.top)};
}

void CopyBlock(const BlockSamples& block, const BlockSamples* mask, const PixelRect& part,
               const BufferSamples& buffer)
{
    PixelRect both = Intersect(Intersect(part, block.rect), buffer.rect);
    if (mask != nullptr)
        both = Intersect(both, mask->rect);
    const int32_t step = buffer.factors.source;
    if (both.IsEmpty() || FirstStep(both.left, buffer.rect.left, step) >= both.right)
        return;
    const RowCopier copier(block, mask, both, buffer);
    for (int32_t y = FirstStep(both.top, buffer.rect.top, step); y < both.bottom; y += step)
        copier.Row(y);
}

void BlendOver(uint8_t* pixels, const uint8_t* old, const uint8_t* mask, size_t count,
               int32_t samples, int32_t depth)
{
    const size_t step = static_cast<size_t>(samples) * static_cast<size_t>(depth) / 8;
    WithSample(depth, [&](auto sample) {
        for (size_t i = 0; i < count; ++i, pixels += step, old += step)
            BlendPixel<decltype(sample)>(pixels, pixels, old, samples, mask[i]);
    });
}

} // namespace Project
