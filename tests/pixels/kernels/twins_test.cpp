// Every kernel gives the same bytes with the plain loops as with each set of instructions that the
// processor has.
#include "pixels/kernels/arithmetic.h"
#include "pixels/kernels/blend.h"
#include "pixels/kernels/box.h"
#include "pixels/kernels/colour.h"
#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/mosaic.h"
#include "pixels/kernels/neighbours.h"
#include "pixels/kernels/noise.h"
#include "pixels/kernels/pictures.h"
#include "pixels/kernels/scale.h"
#include "pixels/kernels/transfer.h"
#include "pixels/kernels/view_access.h"
#include "support/testing.h"

using namespace Kesto;
using namespace Kesto::Kernels;
using Kesto::Testing::CPicture;
using Kesto::Testing::CUseLevel;
using Kesto::Testing::Words;

namespace {

// Widths around the vectors' sizes, with odd ends.
constexpr std::int32_t kWidths[] = {1, 2, 7, 15, 16, 31, 32, 33, 63, 65, 97, 131, 300};

// Runs `kernel` on a fresh random target with every level and compares all bytes of it.
template <class Kernel>
void ExpectTwins(std::int32_t bits, std::int32_t width, std::int32_t height, std::int32_t planes,
                 const Kernel& kernel)
{
    const auto bytes = [&](CpuLevel level) {
        const CUseLevel use(level);
        const CPicture target(bits, width + 3, height, planes, 77);
        kernel(target.View(3, width, height));
        return target.Copied();
    };
    const std::vector<std::uint8_t> expected = bytes(CpuLevel::kBase);
    for (const CpuLevel level : {CpuLevel::kAvx2, CpuLevel::kAvx512})
        if (level <= BestCpuLevel()) {
            EXPECT_EQ(bytes(level), expected)
                << width << " by " << height << " at level " << static_cast<int>(level);
        }
}

void LayOver(const CPixView& out, const CPixView& above)
{
    const Plane<const std::uint32_t> from = PlaneOf<std::uint32_t>(above, 0);
    const Plane<std::uint32_t> to = PlaneOf<std::uint32_t>(out, 0);
    for (std::int32_t y = 0; y < out.height; ++y)
        ActiveKernels().layOver(from.Row(y), to.Row(y), static_cast<std::size_t>(out.width));
}

// The rows of `source` as pixels of three bytes each.
void WidenRGB(const CPixView& out, const CPixView& source)
{
    for (std::int32_t y = 0; y < out.height; ++y)
        ActiveKernels().widenRGB(RowOf<std::uint8_t>(source, 0, y), RowOf<std::uint32_t>(out, 0, y),
                                 static_cast<std::size_t>(out.width));
}

// The bytes 0 to 255 in each row, or column.
CPicture AllBytes(bool down)
{
    CPicture picture(8, 256, 256, 1);
    for (std::int32_t y = 0; y < 256; ++y)
        for (std::int32_t x = 0; x < 256; ++x)
            picture.At(x, y) = static_cast<std::uint8_t>(down ? y : x);
    return picture;
}

// All pairs of two bytes, as the pixels of two pictures.
class AllPairs : public testing::Test {
protected:
    const CPicture fAcross = AllBytes(false);
    const CPicture fDown = AllBytes(true);
    const CPixView a = fAcross.View();
    const CPixView b = fDown.View();
};

std::vector<std::int32_t> SharpenTable(std::int32_t numerator, std::int32_t denominator,
                                       std::int32_t step)
{
    std::vector<std::int32_t> table(kSharpenLevels);
    for (std::int32_t edge = -1020; edge <= 1020; ++edge)
        table[static_cast<std::size_t>(edge + 1020)] =
            edge % 7 == 0 ? edge * numerator / denominator + step : edge * numerator / denominator;
    return table;
}

void ExpectPixelTwins(std::int32_t width, std::int32_t height)
{
    std::array<std::uint8_t, 256> table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::uint8_t>(i * i * 31 + 7);
    const std::array<std::uint8_t, 4> colour = {1, 77, 200, 255};
    const std::array<std::uint8_t, 4> below = {9, 0, 255, 128};
    const CPicture first(8, width + 1, height, 4, 2);
    const CPicture second(8, width + 1, height, 4, 3);
    const CPicture third(8, width + 1, height, 1, 4);
    const CPicture merged(32, width, height, 1, 5);
    const CPixView a = first.View(1, width, height);
    const CPixView b = second.View(1, width, height);
    const CPixView mask = third.View(1, width, height);
    const auto expectTwins = [&](const char* words, const auto& kernel) {
        SCOPED_TRACE(words);
        ExpectTwins(8, width, height, 4, kernel);
    };
    expectTwins("AddCapped(out, a, b)", [&](const CPixView& out) { AddCapped(out, a, b); });
    expectTwins("SubtractFloored(out, out, b)",
                [&](const CPixView& out) { SubtractFloored(out, out, b); });
    expectTwins("Copy(out, a)", [&](const CPixView& out) { Copy(out, a); });
    expectTwins("Invert(out, a)", [&](const CPixView& out) { Invert(out, a); });
    expectTwins("Invert(out, out)", [&](const CPixView& out) { Invert(out, out); });
    expectTwins("Blend(out, a, b, mask)", [&](const CPixView& out) { Blend(out, a, b, mask); });
    expectTwins("Blend(out, a, out, mask)", [&](const CPixView& out) { Blend(out, a, out, mask); });
    expectTwins("Blend(out, a, out, 100)", [&](const CPixView& out) { Blend(out, a, out, 100); });
    expectTwins("BlendColour(out, colour, a, mask)",
                [&](const CPixView& out) { BlendColour(out, colour, a, mask); });
    expectTwins("BlendColour(out, colour, out, mask)",
                [&](const CPixView& out) { BlendColour(out, colour, out, mask); });
    expectTwins("BlendColours(out, colour, below, mask)",
                [&](const CPixView& out) { BlendColours(out, colour, below, mask); });
    expectTwins("ApplyMask(out, mask)", [&](const CPixView& out) { ApplyMask(out, mask); });
    expectTwins("MapTable(out, a, table)", [&](const CPixView& out) { MapTable(out, a, table); });
    expectTwins("MapTable(out, out, table)",
                [&](const CPixView& out) { MapTable(out, out, table); });
    expectTwins("HueToRGB(out, a)", [&](const CPixView& out) { HueToRGB(out, a); });
    expectTwins("HueToRGB(out, out)", [&](const CPixView& out) { HueToRGB(out, out); });
    for (const PlaneOrder& order :
         {kOrder_BGRA, kOrder_BGRConstant, kOrder_GreyAlpha, kOrder_GreyConstant}) {
        SCOPED_TRACE(testing::PrintToString(order));
        ExpectTwins(32, width, height, 1,
                    [&](const CPixView& out) { MergePlanes(out, a, order, 77); });
        ExpectTwins(32, width, height, 1,
                    [&](const CPixView& out) { MergePremultiplied(out, a, order, 77); });
        expectTwins("SplitPlanes(out, merged.View(), order)",
                    [&](const CPixView& out) { SplitPlanes(out, merged.View(), order); });
    }
    ExpectTwins(32, width, height, 1, [&](const CPixView& out) { LayOver(out, merged.View()); });
    const CPicture packed(8, 3 * width, height, 1, 6);
    ExpectTwins(32, width, height, 1, [&](const CPixView& out) { WidenRGB(out, packed.View()); });
    expectTwins("Mosaic(out, a, {9, 4}, true)", [&](const CPixView& out) {
        Mosaic(out, a, {9, 4}, true);
    });
    expectTwins("Mosaic(out, a, {40, 2}, false)", [&](const CPixView& out) {
        Mosaic(out, a, {40, 2}, false);
    });
    expectTwins("AddNoise(out, a, 40, seed)", [&](const CPixView& out) {
        std::uint32_t seed = 12345;
        AddNoise(out, a, 40, seed);
        out.planePointers[0][0] = static_cast<std::uint8_t>(seed >> 16);
    });
    expectTwins("Fill<std::uint8_t>(out, colour)",
                [&](const CPixView& out) { Fill<std::uint8_t>(out, colour); });
    ExpectTwins(32, width, height, 2, [](const CPixView& out) {
        Fill<std::uint32_t>(out, std::array{0x12345678u, 0xFFu});
        SwapBytes(out, out);
    });
    ExpectTwins(16, width, height, 1, [](const CPixView& out) {
        Fill<std::uint16_t>(out, std::array<std::uint16_t, 1>{0x1234});
    });
    expectTwins("Fill at odd addresses", [&](const CPixView& out) {
        CPixView wide = out; // the same rows as 16-bit pixels at odd addresses
        wide.pixelBits = 16;
        wide.width = width / 2;
        Fill<std::uint16_t>(wide, std::array<std::uint16_t, 2>{0x1234, 0xFEDC});
    });
}

} // namespace

TEST_F(AllPairs, OfArithmetic)
{
    for (const auto& [words, kernel] : {std::pair{"AddWrapping", &AddWrapping},
                                        {"AddCapped", AddCapped},
                                        {"SubtractWrapping", SubtractWrapping},
                                        {"SubtractFloored", SubtractFloored}}) {
        SCOPED_TRACE(words);
        ExpectTwins(8, 256, 256, 1, [&, run = kernel](const CPixView& out) { run(out, a, b); });
    }
    ExpectTwins(8, 256, 256, 1, [&](const CPixView& out) { Invert(out, a); });
    for (const auto& [words, kernel] :
         {std::pair{"ApplyMask", &ApplyMask}, {"ApplyInvertedMask", ApplyInvertedMask}}) {
        SCOPED_TRACE(words);
        ExpectTwins(8, 256, 256, 1, [&, run = kernel](const CPixView& out) {
            Copy(out, a);
            run(out, b);
        });
    }
}

TEST_F(AllPairs, OfBlendingWithEveryAlpha)
{
    for (std::int32_t alpha = 0; alpha < 256; ++alpha) {
        SCOPED_TRACE(Words("alpha", alpha));
        const std::uint8_t value = static_cast<std::uint8_t>(alpha);
        const std::array<std::uint8_t, 1> colour = {value};
        ExpectTwins(8, 256, 256, 1, [&](const CPixView& out) { Blend(out, a, b, value); });
        if (alpha % 15 == 0) {
            ExpectTwins(8, 256, 256, 1,
                        [&](const CPixView& out) { BlendColour(out, colour, a, b); });
            ExpectTwins(8, 256, 256, 1,
                        [&](const CPixView& out) { BlendColour(out, colour, a, value); });
            ExpectTwins(8, 256, 256, 1, [&](const CPixView& out) { Blend(out, a, a, b); });
        }
    }
}

TEST_F(AllPairs, OfHueWithEveryValue)
{
    const CPicture source(8, 256, 256, 3);
    Copy(source.Plane(0), a);
    Copy(source.Plane(1), b);
    for (int value = 0; value < 256; ++value) {
        SCOPED_TRACE(Words("value", value));
        Fill<std::uint8_t>(source.Plane(2), std::array{static_cast<std::uint8_t>(value)});
        ExpectTwins(8, 256, 256, 3, [&](const CPixView& out) { HueToRGB(out, source.View()); });
    }
}

// Each value with each alpha, in each of the three bytes.
TEST_F(AllPairs, OfPremultiplying)
{
    const CPicture source(8, 256, 256, 2);
    Copy(source.Plane(0), a);
    Copy(source.Plane(1), b);
    ExpectTwins(32, 256, 256, 1, [&](const CPixView& out) {
        MergePremultiplied(out, source.View(), kOrder_GreyAlpha);
    });
}

// Each alpha over each value, with colours from none to more than the alpha allows.
TEST_F(AllPairs, OfLayingOver)
{
    for (const std::uint8_t colour : {0, 100, 255}) {
        SCOPED_TRACE(int{colour});
        const CPicture planes(8, 256, 256, 2);
        Fill<std::uint8_t>(planes.Plane(0), std::array{colour});
        Copy(planes.Plane(1), b);
        const CPicture above(32, 256, 256, 1);
        MergePlanes(above.View(), planes.View(), kOrder_GreyAlpha);
        ExpectTwins(32, 256, 256, 1, [&](const CPixView& out) {
            MergePlanes(out, a, {0, 0, 0, 0});
            LayOver(out, above.View());
        });
    }
}

TEST(Twins, PixelKernelsOfOddSizesAndBeyondTheCaches)
{
    for (const std::int32_t width : kWidths) {
        SCOPED_TRACE(Words("width", width));
        ExpectPixelTwins(width, 5);
    }
    ExpectPixelTwins(1501, 1433); // 8.2 MiB in four planes
}

// Rows that follow each other without a gap are worked on as longer ones, the last run shorter than
// the others.
TEST(Twins, PlanesWithoutGaps)
{
    for (const std::int32_t width : {64, 40000}) {
        SCOPED_TRACE(Words("width", width));
        const CPicture source(8, width, 7, 3, 2), mask(8, width, 7, 1, 4);
        const auto blended = [&](CpuLevel level, std::int32_t rows) {
            const CUseLevel use(level);
            const CPicture out(8, width, 7, 3, 5);
            for (std::int32_t y = 0; y < 7; y += rows) {
                const auto part = [&](const CPicture& picture) {
                    CPixView view = picture.View();
                    view.MoveTo({0, y, width, std::min(y + rows, 7)});
                    return view;
                };
                Blend(part(out), part(source), part(out), part(mask));
                Invert(part(out), part(out));
            }
            return out.Copied();
        };
        const std::vector<std::uint8_t> rowByRow = blended(CpuLevel::kBase, 1);
        EXPECT_EQ(blended(CpuLevel::kBase, 7), rowByRow);
        EXPECT_EQ(blended(BestCpuLevel(), 7), rowByRow);
    }
}

TEST(Twins, MosaicOfTallCells)
{
    const CPicture mixed(8, 50, 600, 1);
    const CPicture white(8, 50, 600, 1);
    std::fill(white.Bytes().begin(), white.Bytes().end(), std::uint8_t{255});
    for (const auto& [words, source] : {std::pair{"mixed", mixed.View()}, {"white", white.View()}})
        for (const std::int32_t width : {1, 20})
            for (const std::int32_t height : {257, 258, 600}) {
                SCOPED_TRACE(Words(words, "cells of", width, "by", height));
                const CPixView& from = source;
                ExpectTwins(8, 50, 600, 1, [&](const CPixView& out) {
                    Mosaic(out, from, {width, height}, true);
                });
            }
}

TEST(Twins, OverlappingRows)
{
    const std::array<std::uint8_t, 1> colour = {200};
    for (const std::int32_t shift : {-33, -5, -1, 1, 4, 40}) {
        SCOPED_TRACE(Words("moved by", shift));
        ExpectTwins(8, 200, 3, 1, [&](const CPixView& out) {
            CPixView from = out;
            from.MoveTo({60 + shift, 0, 160 + shift, 3});
            CPixView to = out;
            to.MoveTo({60, 0, 160, 3});
            AddWrapping(to, from, to);
            Invert(to, from);
            Blend(to, from, to, 77);
            BlendColour(to, colour, to, from);
        });
    }
}

TEST(Twins, ExchangedRows)
{
    for (const std::int32_t width : kWidths) {
        ExpectTwins(16, width, 4, 2, [](const CPixView& out) {
            CPixView upper = out;
            upper.MoveTo({out.x, out.y, out.x + out.width, out.y + 2});
            CPixView lower = out;
            lower.MoveTo({out.x, out.y + 2, out.x + out.width, out.y + 4});
            Exchange(upper, lower);
        });
    }
}

TEST(Twins, BoxesOfManyShapes)
{
    constexpr BoxShape kShapes[] = {{1, 1},   {2, 3},    {3, 1},     {9, 9},   {4, 9},
                                    {6, 2},   {7, 5},    {8, 3},     {10, 4},  {16, 16},
                                    {31, 40}, {5, 3, 1}, {4, 4, -1}, {128, 2}, {1, 9}};
    for (const BoxShape& shape : kShapes) {
        for (const std::int32_t width : kWidths) {
            const CPicture source(8, width + shape.ExtraColumns(), 12 + shape.ExtraRows(), 2, 5);
            const CPixView from = source.View();
            SCOPED_TRACE(Words("box", shape.fWidth, "by", shape.fHeight, "lean", shape.fLean));
            for (const bool rounds : {true, false}) {
                SCOPED_TRACE(Words("BoxMean", rounds ? "rounded" : "cut off"));
                ExpectTwins(8, width, 12, 2,
                            [&](const CPixView& out) { BoxMean(out, from, shape, rounds); });
            }
            for (const auto& [words, kernel] :
                 {std::pair{"Dilate", &Dilate}, {"Erode", Erode}, {"BoxRange", BoxRange}}) {
                SCOPED_TRACE(words);
                ExpectTwins(8, width, 12, 2,
                            [&, run = kernel](const CPixView& out) { run(out, from, shape); });
            }
        }
    }
}

TEST(Twins, WhiteAndBlackBoxes)
{
    for (const std::int32_t size : {9, 11, 15, 16, 17}) {
        const CPicture source(8, 60 + size, 6 + size, 1);
        for (const int value : {0, 255}) {
            SCOPED_TRACE(Words("size", size, "value", value));
            std::fill(source.Bytes().begin(), source.Bytes().end(),
                      static_cast<std::uint8_t>(value));
            ExpectTwins(8, 60, 6, 1, [&](const CPixView& out) {
                BoxMean(out, source.View(), {size, size}, true);
            });
        }
    }
}

TEST(Twins, Ranks)
{
    for (const BoxShape shape : {BoxShape{1, 1}, {3, 3}, {9, 9}, {5, 2}, {20, 16}}) {
        for (const std::int32_t width : {1, 8, 33, 70}) {
            const CPicture source(32, width + shape.ExtraColumns(), 6 + shape.ExtraRows(), 1, 9);
            for (const std::size_t levels :
                 {std::size_t{1}, std::size_t{200}, std::size_t{256}, std::size_t{1000}}) {
                std::vector<std::int32_t> counts(levels);
                const CPixView from = source.View();
                for (std::int32_t y = 0; y < from.height; ++y)
                    for (std::int32_t x = 0; x < from.width; ++x)
                        source.At<std::uint32_t>(x, y) %= 300;
                for (const std::int32_t rank :
                     {-1, 0, 1, shape.Area() / 2 + 1, shape.Area(), shape.Area() + 1}) {
                    SCOPED_TRACE(Words("box", shape.fWidth, "by", shape.fHeight, "levels", levels,
                                       "rank", rank));
                    ExpectTwins(32, width, 6, 1,
                                [&](const CPixView& out) { Rank(out, from, shape, rank, counts); });
                }
            }
        }
    }
}

TEST(Twins, Neighbours)
{
    struct Light {
        const char* fWords;
        const std::array<std::int32_t, 256>& fTable;
        std::int32_t fLevel;
    };
    std::array<std::int32_t, 256> relief;
    std::array<std::int32_t, 256> huge;
    std::array<std::int32_t, 256> steep; // as much as 16 bits hold
    for (std::size_t i = 0; i < 256; ++i) {
        relief[i] = static_cast<std::int32_t>(i) * 3 - 300;
        huge[i] = i == 3 ? -0x7FFFFFFF : 0x7FFFFFFF;
        steep[i] = i % 2 == 0 ? 4096 : -4096;
    }
    for (const std::int32_t width : kWidths) {
        const CPicture source(8, width + 2, 7, 2, 6);
        const CPicture base(8, width, 5, 2, 8);
        const CPixView from = source.View();
        const CPixView under = base.View();
        SCOPED_TRACE(Words("width", width));
        for (std::int32_t direction = 0; direction < 8; ++direction) {
            for (const auto& [words, table, level] :
                 {Light{"relief", relief, 128}, {"huge", huge, -5}, {"steep", steep, 4096}}) {
                SCOPED_TRACE(Words("Emboss", words, "direction", direction));
                const auto& values = table;
                const std::int32_t lift = level;
                ExpectTwins(8, width, 5, 2, [&](const CPixView& out) {
                    Emboss(out, from, values, direction, lift);
                });
            }
            SCOPED_TRACE(Words("Emboss on a base, direction", direction));
            ExpectTwins(8, width, 5, 2,
                        [&](const CPixView& out) { Emboss(out, from, relief, direction, under); });
        }
        for (const std::int32_t weight : {0, 1, 2, 4, 5, 12, 13, 100, 253, 254, 4000, -1, -3, -9}) {
            SCOPED_TRACE(Words("NeighbourMean, weight", weight));
            ExpectTwins(8, width, 5, 2,
                        [&](const CPixView& out) { NeighbourMean(out, from, weight); });
        }
        constexpr std::array<std::int32_t, 3> kSlopes[] = {
            {1, 1, 0}, {1, 2, 0}, {77, 256, 0},  {-3, 4, 0},
            {1, 3, 0}, {1, 2, 5}, {90000, 1, 0}, {4000, 256, 0}};
        for (const auto& [numerator, denominator, step] : kSlopes) {
            SCOPED_TRACE(Words("Sharpen", numerator, "/", denominator, "+", step));
            const auto table = SharpenTable(numerator, denominator, step);
            ExpectTwins(8, width, 5, 2, [&](const CPixView& out) {
                Sharpen(out, from, std::span<const std::int32_t, kSharpenLevels>(table));
            });
        }
    }
}

TEST(Twins, NoiseOfManyAmounts)
{
    const CPicture source(8, 203, 40, 1, 6);
    for (const std::int32_t amount : {0, 1, -1, 3, 40, 255, -255, 1000, 10922, 10923, -10922,
                                      100000, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(Words("amount", amount));
        ExpectTwins(8, 203, 40, 1, [&](const CPixView& out) {
            std::uint32_t seed = 99;
            AddNoise(out, source.View(), amount, seed);
            out.planePointers[0][5] = static_cast<std::uint8_t>(seed);
        });
    }
}
