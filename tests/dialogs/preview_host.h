// A host that serves the filter record from a picture that is a formula, so that it can be as large
// as it likes, and that fails when it is told to.
#pragma once

#include "dialogs/preview/preview_globals.h"

#include "lumograph/lumograph.h"

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace Testing {

class PreviewHost {
public:
    PreviewHost(int32_t width, int32_t height, int16_t colours, int32_t depth)
    {
        fCurrent = this;
        record.documentWidth = static_cast<int16_t>(width);
        record.documentHeight = static_cast<int16_t>(height);
        record.targetRect = {0, 0, static_cast<int16_t>(height), static_cast<int16_t>(width)};
        record.inputColorPlanes = record.outputColorPlanes = colours;
        record.depth = depth;
        record.fetchBlocks = Fetch;
        Project::gFilterRecord = &record;
    }
    ~PreviewHost()
    {
        Project::gFilterRecord = nullptr;
        Project::gHostGaveUp = false;
        fCurrent = nullptr;
    }
    PreviewHost(const PreviewHost&) = delete;
    PreviewHost& operator=(const PreviewHost&) = delete;

    // The document's samples before their depth: 0 to 255.
    static int32_t Sample(int32_t x, int32_t y, int32_t plane)
    {
        return (x * 7 + y * 13 + plane * 50 + x * y / 5) & 0xFF;
    }
    static int32_t MaskSample(int32_t x, int32_t y) { return (x * 31 + y * 3) & 0xFF; }

    // Puts a sample of 0 to 255 at a depth.
    static void Put(uint8_t* to, int32_t depth, int32_t sample)
    {
        const auto wide = static_cast<uint16_t>(sample * 128);
        const float real = static_cast<float>(sample) / 255;
        const auto byte = static_cast<uint8_t>(sample);
        const void* const from = depth == 8    ? static_cast<const void*>(&byte)
                                 : depth == 16 ? static_cast<const void*>(&wide)
                                               : &real;
        std::memcpy(to, from, static_cast<size_t>(depth / 8));
    }

    HostFilterRecord record{};
    int fetches = 0;
    int failAt = -1; // the fetch, from 0
    int16_t code = kHostIoError;
    int32_t extraStride = 0; // bytes after each row
    // Called at the end of each fetch that goes well: for lies.
    std::function<void(HostFilterRecord&)> afterFetch;

private:
    static int16_t Fetch() { return fCurrent->Serve(); }

    int16_t Serve()
    {
        if (fetches++ == failAt)
            return code;
        const int32_t planes = record.sourceLastPlane - record.sourceFirstPlane + 1;
        Fill(fSource, record.sourceBlockRect, planes, record.depth, record.sourceStride, Sample);
        record.sourceBlock = fSource.data();
        if (record.maskPresent != 0) {
            Fill(fMask, record.maskBlockRect, 1, 8, record.maskStride,
                 [](int32_t x, int32_t y, int32_t) { return MaskSample(x, y); });
            record.maskBlock = fMask.data();
        }
        if (afterFetch)
            afterFetch(record);
        return kHostNoError;
    }

    template <class Formula>
    void Fill(std::vector<uint8_t>& bytes, const HostRect16& rect, int32_t planes, int32_t depth,
              int32_t& stride, Formula formula) const
    {
        const int32_t sample = depth / 8;
        const int32_t width = rect.right - rect.left, height = rect.bottom - rect.top;
        stride = width * planes * sample + extraStride;
        bytes = std::vector<uint8_t>(static_cast<size_t>(stride) * static_cast<size_t>(height));
        for (int32_t y = 0; y < height; ++y)
            for (int32_t x = 0; x < width; ++x)
                for (int32_t plane = 0; plane < planes; ++plane)
                    Put(&bytes[static_cast<size_t>(y * stride + (x * planes + plane) * sample)],
                        depth, formula(rect.left + x, rect.top + y, plane));
    }

    static inline PreviewHost* fCurrent = nullptr;
    std::vector<uint8_t> fSource;
    std::vector<uint8_t> fMask;
};

} // namespace Testing
