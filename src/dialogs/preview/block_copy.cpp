#include "dialogs/preview/block_copy.h"

#include <algorithm>
#include <cstring>
#include <vector>

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

template <class Sample>
void BlendPixel(uint8_t* to, const uint8_t* from, int32_t samples, uint32_t m)
{
    for (int32_t i = 0; i < samples; ++i, to += sizeof(Sample), from += sizeof(Sample)) {
        Sample in{}, old{};
        std::memcpy(&in, from, sizeof in);
        std::memcpy(&old, to, sizeof old);
        const Sample out = Blend(in, old, m);
        std::memcpy(to, &out, sizeof out);
    }
}

void BlendPixel(uint8_t* to, const uint8_t* from, int32_t samples, uint32_t m, int32_t depth)
{
    if (depth == 8)
        BlendPixel<uint8_t>(to, from, samples, m);
    else if (depth == 16)
        BlendPixel<uint16_t>(to, from, samples, m);
    else
        BlendPixel<float>(to, from, samples, m);
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
        uint8_t* const begin = to;
        const int32_t step = fBuffer.factors.source;
        for (int32_t x = FirstStep(fPart.left, fBuffer.rect.left, step); x < fPart.right; x += step)
            for (int32_t n = 0; n < fBuffer.factors.dest; ++n, to += fBuffer.pixelStep)
                Pixel(to, x, y);
        return static_cast<size_t>(to - begin);
    }

    void Pixel(uint8_t* to, int32_t x, int32_t y) const
    {
        const uint8_t* const from = PixelOf(fBlock, x, y);
        if (fMask == nullptr) {
            std::memcpy(to, from, static_cast<size_t>(fBuffer.samples) * fSampleBytes);
            return;
        }
        BlendPixel(to, from, fBuffer.samples, *PixelOf(*fMask, x, y), fBuffer.depth);
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
    std::vector<uint8_t> under(step);
    for (size_t i = 0; i < count; ++i, pixels += step, old += step) {
        std::memcpy(under.data(), old, step);
        BlendPixel(under.data(), pixels, samples, mask[i], depth);
        std::memcpy(pixels, under.data(), step);
    }
}

} // namespace Project
