// Results that are larger than the caches go past them, and are the same bytes still.
#include "pixels/kernels/arithmetic.h"
#include "pixels/kernels/blend.h"
#include "pixels/kernels/pictures.h"
#include "pixels/kernels/transfer.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

using namespace Kesto;
using namespace Kesto::Kernels;
using Kesto::Testing::CPicture;
using Kesto::Testing::CUseLevel;

TEST(LargePictures, HaveTheBytesOfThePlainLoops)
{
    constexpr std::int32_t kWidth = 1501, kHeight = 1433, kPlanes = 4; // 8.2 MiB, odd rows
    const CPicture a(8, kWidth + 1, kHeight, kPlanes, 1), b(8, kWidth + 1, kHeight, kPlanes, 2);
    const CPicture plain(8, kWidth + 1, kHeight, kPlanes, 3), fast(8, kWidth + 1, kHeight, kPlanes, 3);
    const CPixView from = a.View(1, kWidth, kHeight), other = b.View(1, kWidth, kHeight);
    CPixView mask = other;
    mask.planeCount = 1;
    std::array<std::uint8_t, 256> table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::uint8_t>(7 * i + 3);
    const std::array<std::uint8_t, 4> colour = {1, 90, 200, 255};
    const std::array<std::uint16_t, 2> words = {0x1234, 0xFEDC};
    const std::function<void(const CPixView&)> kernels[] = {
        [&](const CPixView& out) { AddCapped(out, from, other); },
        [&](const CPixView& out) { SubtractFloored(out, from, other); },
        [&](const CPixView& out) { Invert(out, from); },
        [](const CPixView& out) { Invert(out, out); },
        [&](const CPixView& out) { Copy(out, from); },
        [&](const CPixView& out) { MapTable(out, from, table); },
        [&](const CPixView& out) { Blend(out, from, other, mask); },
        [&](const CPixView& out) { Blend(out, from, out, 77); },
        [&](const CPixView& out) { BlendColour(out, colour, from, mask); },
        [&](const CPixView& out) { ApplyMask(out, mask); },
        [&](const CPixView& out) { Fill<std::uint8_t>(out, colour); },
        [&](const CPixView& out) {
            CPixView wide = out; // the same rows as 16-bit pixels at odd addresses
            wide.pixelBits = 16;
            wide.width = kWidth / 2;
            Fill<std::uint16_t>(wide, words);
        },
    };
    for (std::size_t i = 0; i < std::size(kernels); ++i) {
        {
            const CUseLevel level(CpuLevel::kBase);
            kernels[i](plain.View(1, kWidth, kHeight));
        }
        kernels[i](fast.View(1, kWidth, kHeight));
        ASSERT_TRUE(std::ranges::equal(plain.Bytes(), fast.Bytes())) << "kernel " << i;
    }
}
