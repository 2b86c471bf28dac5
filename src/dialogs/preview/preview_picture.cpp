#include "dialogs/preview/preview_picture.h"

#include "pixels/kernels/kernel_table.h"

#include <algorithm>
#include <cstring>

namespace Project {
namespace {

uint32_t Shown(uint8_t sample)
{
    return sample;
}
uint32_t Shown(uint16_t sample)
{
    return (std::min<uint32_t>(sample, 0x8000) * 255 + 0x4000) >> 15;
}
uint32_t Shown(float sample)
{
    return static_cast<uint32_t>((sample > 0 ? std::min(sample, 1.0F) : 0.0F) * 255 + 0.5F);
}

template <class Sample>
uint32_t ShownAt(const uint8_t* from)
{
    Sample sample{};
    std::memcpy(&sample, from, sizeof sample);
    return Shown(sample);
}

template <class Sample, bool kHasAlpha>
void Show(uint8_t* to, const ShownRow& row)
{
    const size_t step = static_cast<size_t>(row.planes) * sizeof(Sample);
    // Grey shows its one plane three times.
    const size_t green = row.planes < 3 ? 0 : sizeof(Sample);
    const uint8_t* from = row.samples;
    const uint8_t* alphas = row.alphas;
    for (int32_t x = 0; x < row.width; ++x, from += step, to += 4) {
        uint32_t colours[] = {ShownAt<Sample>(from + 2 * green), ShownAt<Sample>(from + green),
                              ShownAt<Sample>(from)};
        if constexpr (kHasAlpha) {
            const uint32_t alpha = ShownAt<Sample>(alphas);
            alphas += sizeof(Sample);
            for (uint32_t& colour : colours)
                colour = (colour * alpha + 255 * (255 - alpha) + 127) / 255;
        }
        const uint32_t pixel = 0xFF000000 | colours[2] << 16 | colours[1] << 8 | colours[0];
        std::memcpy(to, &pixel, sizeof pixel);
    }
}

template <class Sample>
void Show(uint8_t* to, const ShownRow& row)
{
    row.alphas != nullptr ? Show<Sample, true>(to, row) : Show<Sample, false>(to, row);
}

} // namespace

void ShowRow(uint8_t* to, const ShownRow& row)
{
    if (row.depth == 8 && row.planes == 3 && row.alphas == nullptr)
        Kesto::Kernels::ActiveKernels().widenRGB(row.samples,
                                                 static_cast<uint32_t*>(static_cast<void*>(to)),
                                                 static_cast<size_t>(row.width));
    else if (row.depth == 8)
        Show<uint8_t>(to, row);
    else if (row.depth == 16)
        Show<uint16_t>(to, row);
    else
        Show<float>(to, row);
}

} // namespace Project
