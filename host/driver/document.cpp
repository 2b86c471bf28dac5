#include "driver/document.h"

#include "failure.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace Host {
namespace {

constexpr int32_t kWhite16 = 32768;

// A sample of 0 to 255 at the depth of `to`.
void PutSample(uint8_t* to, SampleDepth depth, int32_t value)
{
    if (depth == SampleDepth::k8) {
        *to = static_cast<uint8_t>(value);
    } else if (depth == SampleDepth::k16) {
        const auto wide = static_cast<uint16_t>((value * kWhite16 + 127) / 255);
        std::memcpy(to, &wide, sizeof wide);
    } else {
        const float real = static_cast<float>(value) / 255.0F;
        std::memcpy(to, &real, sizeof real);
    }
}

uint8_t SampleAs8(const uint8_t* from, SampleDepth depth)
{
    if (depth == SampleDepth::k8)
        return *from;
    if (depth == SampleDepth::k16) {
        uint16_t wide = 0;
        std::memcpy(&wide, from, sizeof wide);
        return static_cast<uint8_t>((std::min<int32_t>(wide, kWhite16) * 255 + kWhite16 / 2) /
                                    kWhite16);
    }
    float real = 0;
    std::memcpy(&real, from, sizeof real);
    return static_cast<uint8_t>(std::lround(std::clamp(real > 0 ? real : 0.0F, 0.0F, 1.0F) * 255));
}

template <class Sample>
void Blend(uint8_t* to, const uint8_t* before, int32_t mask)
{
    Sample now{}, then{};
    std::memcpy(&now, to, sizeof now);
    std::memcpy(&then, before, sizeof then);
    if constexpr (std::is_same_v<Sample, float>)
        now = then + (now - then) * static_cast<float>(mask) / 255.0F;
    else
        now = static_cast<Sample>((now * mask + then * (255 - mask) + 127) / 255);
    std::memcpy(to, &now, sizeof now);
}

void BlendSample(uint8_t* to, const uint8_t* before, int32_t mask, SampleDepth depth)
{
    if (depth == SampleDepth::k8)
        Blend<uint8_t>(to, before, mask);
    else if (depth == SampleDepth::k16)
        Blend<uint16_t>(to, before, mask);
    else
        Blend<float>(to, before, mask);
}

// Copies the planes of a request between pixels of all the document's planes and packed ones.
void CopyPlanes(uint8_t* to, size_t toStep, const uint8_t* from, size_t fromStep, size_t bytes,
                int32_t pixels)
{
    if (toStep == bytes && fromStep == bytes) {
        std::memcpy(to, from, bytes * static_cast<size_t>(pixels));
        return;
    }
    for (int32_t x = 0; x < pixels; ++x, to += toStep, from += fromStep)
        std::memcpy(to, from, bytes);
}

} // namespace

Document::Document(PictureSource& source, SampleDepth depth) : fInfo(source.Info()), fDepth(depth)
{
    fBytes.resize(Stride() * static_cast<size_t>(fInfo.height));
    for (int32_t y = 0; y < fInfo.height; ++y) {
        const uint8_t* from = source.Row(y);
        uint8_t* to = Row(y);
        if (depth == SampleDepth::k8) {
            std::memcpy(to, from, fInfo.RowBytes());
            continue;
        }
        for (size_t i = 0; i < fInfo.RowBytes(); ++i)
            PutSample(to + i * SampleBytes(), depth, from[i]);
    }
}

void Document::WriteTo(PictureSink& sink) const
{
    sink.Begin(fInfo);
    if (fDepth == SampleDepth::k8) {
        sink.PutRows(fBytes.data(), Stride(), fInfo.height);
        return;
    }
    std::vector<uint8_t> row(fInfo.RowBytes());
    for (int32_t y = 0; y < fInfo.height; ++y) {
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = SampleAs8(Row(y) + i * SampleBytes(), fDepth);
        sink.PutRows(row.data(), row.size(), 1);
    }
}

void BlockRequest::Check(const Document& document, int16_t fill, const char* which) const
{
    const auto fault = [&](const std::string& what) {
        return Failure("the module asks for a " + std::string(which) + " block with " + what,
                       "This is a fault of the module; please report it.", kHostBadParameter);
    };
    const int32_t planes = document.Info().planes;
    if (firstPlane < 0 || lastPlane >= planes || firstPlane > lastPlane)
        throw fault("planes " + std::to_string(firstPlane) + " to " + std::to_string(lastPlane) +
                    "; the picture has " + std::to_string(planes));
    if (fill < kHostFillNone || fill > 255)
        throw fault("the fill " + std::to_string(fill));
}

void Block::Lend(const Document& document, const BlockRequest& request, int16_t fill)
{
    const size_t sample = document.SampleBytes();
    const size_t bytes = static_cast<size_t>(request.lastPlane - request.firstPlane + 1) * sample;
    const size_t step = static_cast<size_t>(document.Info().planes) * sample;
    const HostRect32 extent = document.Extent();
    fRequest = request;
    fStride = static_cast<size_t>(request.Width()) * bytes;
    const size_t size = fStride * static_cast<size_t>(request.Height());
    if (size > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        throw FailureOf("a block of " + std::to_string(size) + " bytes", kHostMemoryFull);
    fBytes.resize(size);
    if (fill >= 0)
        for (size_t at = 0; at < size; at += sample)
            PutSample(fBytes.data() + at, document.Depth(), fill);
    // Around the picture: the fill that is there already, or the edge repeated.
    const bool repeats = fill == kHostFillEdge;
    const int32_t left = std::clamp(request.rect.left, extent.left, extent.right);
    const int32_t right = std::clamp(request.rect.right, left, extent.right);
    for (int32_t y = request.rect.top; y < request.rect.bottom; ++y) {
        if (!repeats && (y < 0 || y >= extent.bottom))
            continue;
        const uint8_t* const from = document.Row(std::clamp(y, 0, extent.bottom - 1)) +
                                    static_cast<size_t>(request.firstPlane) * sample;
        uint8_t* const to = fBytes.data() + static_cast<size_t>(y - request.rect.top) * fStride;
        if (right > left)
            CopyPlanes(to + static_cast<size_t>(left - request.rect.left) * bytes, bytes,
                       from + static_cast<size_t>(left) * step, step, bytes, right - left);
        for (int32_t x = request.rect.left; repeats && x < request.rect.right; ++x)
            if (x < left || x >= right)
                std::memcpy(to + static_cast<size_t>(x - request.rect.left) * bytes,
                            from + static_cast<size_t>(std::clamp(x, 0, extent.right - 1)) * step,
                            bytes);
    }
}

void Block::TakeInto(Document& document, const Document& before, const Document* mask) const
{
    const size_t sample = document.SampleBytes();
    const size_t planes = static_cast<size_t>(fRequest.lastPlane - fRequest.firstPlane) + 1;
    const size_t step = static_cast<size_t>(document.Info().planes) * sample;
    const size_t at = static_cast<size_t>(fRequest.rect.left) * step +
                      static_cast<size_t>(fRequest.firstPlane) * sample;
    for (int32_t y = fRequest.rect.top; y < fRequest.rect.bottom; ++y) {
        uint8_t* const to = document.Row(y) + at;
        CopyPlanes(to, step, fBytes.data() + static_cast<size_t>(y - fRequest.rect.top) * fStride,
                   planes * sample, planes * sample, fRequest.Width());
        if (mask == nullptr)
            continue;
        // Blended with the document before the run, since a block may be lent more than once.
        const uint8_t* const then = before.Row(y) + at;
        const uint8_t* const selected = mask->Row(y) + fRequest.rect.left;
        for (int32_t x = 0; x < fRequest.Width(); ++x)
            for (size_t plane = 0; plane < planes; ++plane) {
                const size_t i = static_cast<size_t>(x) * step + plane * sample;
                BlendSample(to + i, then + i, selected[x], document.Depth());
            }
    }
}

void Block::Drop()
{
    fBytes.clear();
    fBytes.shrink_to_fit();
}

} // namespace Host
