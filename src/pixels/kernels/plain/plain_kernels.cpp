// The table of the plain loops.
#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/arithmetic.h"
#include "pixels/kernels/plain/blend.h"
#include "pixels/kernels/plain/box.h"
#include "pixels/kernels/plain/colour.h"
#include "pixels/kernels/plain/merge.h"
#include "pixels/kernels/plain/mosaic.h"
#include "pixels/kernels/plain/neighbours.h"
#include "pixels/kernels/plain/noise.h"
#include "pixels/kernels/plain/rank.h"
#include "pixels/kernels/plain/scale.h"

namespace Kesto::Kernels {

const KernelTable& PlainKernels()
{
    using namespace Plain;
    static constexpr KernelTable kTable = {
        .addWrapping = MapRows<Plain::AddWrapping>,
        .addCapped = MapRows<Plain::AddCapped>,
        .subtractWrapping = MapRows<Plain::SubtractWrapping>,
        .subtractFloored = MapRows<Plain::SubtractFloored>,
        .invert = MapRow<Complement, std::uint8_t>,
        .copy = Plain::Copy,
        .fill = Plain::Fill,
        .exchange = Plain::Exchange,
        .swapBytes = MapRow<SwappedBytes, std::uint32_t>,
        .blend = Plain::Blend,
        .blendConstant = BlendConstant,
        .blendColour = BlendColour,
        .blendColourConstant = BlendColourConstant,
        .blendColours = BlendColours,
        .applyMask = Plain::ApplyMask<0>,
        .applyInvertedMask = Plain::ApplyMask<255>,
        .mapTable = Plain::MapTable,
        .noise = Noise,
        .hueToRGB = HueRowToRGB<std::uint8_t>,
        .mergePlanes = Merge,
        .mergePremultiplied = Plain::MergePremultiplied,
        .splitPlanes = Split,
        .widenRGB = WidenRGB,
        .layOver = Plain::LayOver,
        .embossRow = EmbossRow<std::int16_t>,
        .neighbourMeanRow = NeighbourMeanRow,
        .sharpen = Plain::Sharpen,
        .mosaicBand = MosaicBand,
        .rank = Plain::Rank,
        .boxMean = Plain::BoxMean<std::uint8_t>,
        .boxMaximum = BoxExtreme<Larger, std::uint8_t>,
        .boxMinimum = BoxExtreme<Smaller, std::uint8_t>,
        .boxRange = Plain::BoxRange<std::uint8_t>,
        .scale8 = kScaleRows<std::uint8_t>,
        .scale16 = kScaleRows<std::uint16_t>,
        .scale32 = kScaleRows<std::uint32_t>,
    };
    return kTable;
}

} // namespace Kesto::Kernels
