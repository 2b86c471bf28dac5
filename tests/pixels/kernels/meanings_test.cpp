// What the kernels compute, on pictures small enough to check by hand.
#include "pixels/kernels/arithmetic.h"
#include "pixels/kernels/blend.h"
#include "pixels/kernels/blend_table.h"
#include "pixels/kernels/box.h"
#include "pixels/kernels/colour.h"
#include "pixels/kernels/mosaic.h"
#include "pixels/kernels/neighbours.h"
#include "pixels/kernels/noise.h"
#include "pixels/kernels/pictures.h"
#include "pixels/kernels/plain/colour.h"
#include "pixels/kernels/transfer.h"
#include "support/testing.h"

using namespace Kesto;
using namespace Kesto::Kernels;
using namespace Kesto::Testing;

namespace {

using Rows = std::vector<std::vector<std::uint8_t>>;

// What a kernel makes of a target of that size.
template <class Kernel>
Rows Made(std::int32_t width, std::int32_t height, const Kernel& kernel)
{
    const CPicture out(8, width, height, 1);
    kernel(out.View());
    return RowsOf(out);
}

} // namespace

TEST(BlendTable, RoundsTheProductSoThatTheTwoPartsOfAValueAddUpToIt)
{
    const CBlendTable& table = *CBlendTable::Get();
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
        for (std::uint32_t value = 0; value < 256; ++value) {
            SCOPED_TRACE(testing::Message() << "alpha " << alpha << ", value " << value);
            ASSERT_EQ(table(alpha, value), ((alpha * value + 128) * 257) >> 16);
            ASSERT_EQ(table(alpha, value) + table(255 - alpha, value), static_cast<int>(value));
        }
}

TEST(Blending, KeepsAColourUnderItselfAndServesEachPlaneWithOneMask)
{
    const CPicture ramp(8, 256, 1, 1);
    std::iota(&ramp.At(0, 0), &ramp.At(0, 0) + 256, std::uint8_t{0});
    const std::array<std::uint8_t, 1> colour = {93};
    EXPECT_EQ(
        Made(256, 1, [&](const CPixView& out) { BlendColours(out, colour, colour, ramp.View()); }),
        (Rows{std::vector<std::uint8_t>(256, 93)}));
    const CPicture out(8, 2, 1, 3);
    std::fill(out.Bytes().begin(), out.Bytes().end(), std::uint8_t{10});
    const CPicture mask = PictureOf({{0, 255}});
    BlendColour(out.View(), std::array<std::uint8_t, 3>{1, 2, 3}, out.View(), mask.View());
    EXPECT_EQ(out.Copied(), (std::vector<std::uint8_t>{10, 1, 10, 2, 10, 3}));
}

TEST(Arithmetic, WrapsOrHolds)
{
    const CPicture first = PictureOf({{200, 10}});
    const CPicture second = PictureOf({{100, 20}});
    const CPixView a = first.View();
    const CPixView b = second.View();
    const auto made = [&](auto kernel) {
        return Made(2, 1, [&](const CPixView& out) { kernel(out, a, b); });
    };
    EXPECT_EQ(made(AddWrapping), (Rows{{44, 30}}));
    EXPECT_EQ(made(AddCapped), (Rows{{255, 30}}));
    EXPECT_EQ(made(SubtractWrapping), (Rows{{100, 246}}));
    EXPECT_EQ(made(SubtractFloored), (Rows{{100, 0}}));
    std::array<std::int32_t, 256> table{};
    table[100] = 1000;
    table[20] = -3;
    EXPECT_EQ(Made(2, 1, [&](const CPixView& out) { AddLookup(out, a, b, table); }),
              (Rows{{255, 7}}));
    std::vector<std::uint8_t> levels(65536);
    levels[3 << 8 | 200] = 99;
    const std::span<const std::uint8_t, 65536> all(levels);
    EXPECT_EQ(Made(2, 1, [&](const CPixView& out) { MapTable(out, a, all, 3); }), (Rows{{99, 0}}));
}

TEST(Views, OfOtherPixelSizesAreLeftAlone)
{
    const CPicture out(16, 4, 4, 1);
    const std::vector<std::uint8_t> before = out.Copied();
    AddWrapping(out.View(), out.View(), out.View());
    BlendColour(out.View(), std::array<std::uint8_t, 1>{1}, out.View(), 200);
    BoxMean(out.View(), out.View(), {1, 1}, false);
    Invert(CPixView(), out.View());
    EXPECT_EQ(out.Copied(), before);
}

TEST(Boxes, MeansAreTruncatedOrRoundedAndMayLean)
{
    const CPicture source = PictureOf({{0, 1, 0}, {1, 0, 9}});
    const auto mean = [](const CPicture& from, const BoxShape& shape, bool rounds) {
        return Made(from.View().width - shape.ExtraColumns(), 1,
                    [&](const CPixView& out) { BoxMean(out, from.View(), shape, rounds); });
    };
    EXPECT_EQ(mean(source, {2, 2}, false), (Rows{{0, 2}}));
    EXPECT_EQ(mean(source, {2, 2}, true), (Rows{{1, 3}}));
    const CPicture slope = PictureOf({{1, 2, 3, 4}, {10, 20, 30, 40}});
    EXPECT_EQ(mean(slope, {1, 2, 1}, false), (Rows{{6, 11, 17}}))
        << "the upper row is one further right";
    EXPECT_EQ(mean(slope, {1, 2, -1}, false), (Rows{{10, 16, 21}})) << "the lower row is";
}

TEST(Boxes, MeansOf32BitPixels)
{
    const CPicture source(32, 2, 1, 1);
    source.At<std::uint32_t>(0, 0) = 0xFFFFFFFF;
    source.At<std::uint32_t>(1, 0) = 0xFFFFFFFE;
    const CPicture out(32, 1, 1, 1);
    BoxMean(out.View(), source.View(), {2, 1}, true);
    EXPECT_EQ(out.At<std::uint32_t>(0, 0), 0xFFFFFFFFu);
}

TEST(Boxes, ExtremesAndTheirDifference)
{
    const CPicture source = PictureOf({{5, 9, 1}, {4, 2, 8}});
    const auto made = [&](auto kernel) {
        return Made(2, 1, [&](const CPixView& out) { kernel(out, source.View(), BoxShape{2, 2}); });
    };
    EXPECT_EQ(made(Dilate), (Rows{{9, 9}}));
    EXPECT_EQ(made(Erode), (Rows{{2, 1}}));
    EXPECT_EQ(made(BoxRange), (Rows{{7, 8}}));
}

TEST(Boxes, RankIsTheLowestBinWithThatManyAtOrBelow)
{
    const CPicture source(32, 5, 1, 1);
    for (std::int32_t x = 0; x < 5; ++x)
        source.At<std::uint32_t>(x, 0) =
            std::array{7u, 1u, 9u, 1u, 400u}[static_cast<std::size_t>(x)];
    const CPicture out(32, 3, 1, 1);
    std::vector<std::int32_t> counts(16);
    const auto ranked = [&](std::int32_t rank) {
        Rank(out.View(), source.View(), {3, 1}, rank, counts);
        return std::vector{out.At<std::uint32_t>(0, 0), out.At<std::uint32_t>(1, 0),
                           out.At<std::uint32_t>(2, 0)};
    };
    EXPECT_EQ(ranked(2), (std::vector{7u, 1u, 9u}));
    EXPECT_EQ(ranked(3), (std::vector{9u, 9u, 15u})); // 400 counts in the last bin
    EXPECT_EQ(ranked(0), (std::vector{0u, 0u, 0u}));
    EXPECT_EQ(ranked(4), (std::vector{15u, 15u, 15u}));
}

TEST(Neighbours, LightFallsFromTheDirectionCounted)
{
    std::array<std::int32_t, 256> table;
    std::iota(table.begin(), table.end(), 0);
    const CPicture source = PictureOf({{1, 2, 3}, {4, 0, 5}, {6, 7, 8}});
    const CPicture out(8, 1, 1, 1);
    // Sums on either side: top 1 2 3, bottom 6 7 8, right 3 5 8, left 1 4 6, and the corners
    // between.
    const int differences[8] = {6 - 21, 10 - 17, 16 - 11, 20 - 7, 21 - 6, 17 - 10, 11 - 16, 7 - 20};
    for (std::int32_t direction = 0; direction < 8; ++direction) {
        for (const int base : {100, 250}) {
            Emboss(out.View(), source.View(), table, direction, base);
            EXPECT_EQ(out.At(0, 0), std::min(255, base + differences[direction])) << direction;
        }
    }
}

TEST(Neighbours, SharpenAndMean)
{
    const CPicture source = PictureOf({{0, 10, 0}, {20, 50, 30}, {0, 40, 0}});
    const CPicture out(8, 1, 1, 1);
    std::array<std::int32_t, kSharpenLevels> table{};
    table[1020 + 100] = -7; // 4 * 50 - 100
    Sharpen(out.View(), source.View(), table);
    EXPECT_EQ(out.At(0, 0), 43);
    for (const int weight : {3, -4}) {
        NeighbourMean(out.View(), source.View(), weight);
        EXPECT_EQ(out.At(0, 0), (3 * 50 + 100) / 7)
            << (weight == -4 ? "nothing is done where the weights cancel" : "a mean");
    }
}

TEST(Mosaics, CellsAtTheEdgeAreSmaller)
{
    const CPicture picture = PictureOf({{1, 2, 9}, {2, 2, 10}});
    Mosaic(picture.View(), picture.View(), {2, 2}, true);
    EXPECT_EQ(RowsOf(picture), (Rows{{2, 2, 10}, {2, 2, 10}}));
}

TEST(Noises, AdvanceTheSeedAndKeepToTheThreshold)
{
    const CPicture picture(8, 100, 10, 3);
    const std::vector<std::uint8_t> before = picture.Copied();
    std::uint32_t seed = 1;
    AddNoise(picture.View(), picture.View(), 0, seed);
    std::uint32_t expected = 1;
    for (int i = 0; i < 100 * 10 * 3 * 12; ++i)
        expected = expected * 1103515245u + 12345u;
    EXPECT_EQ(seed, expected);
    const std::array<std::uint8_t, 3> colour = {1, 2, 3};
    RandomColour(picture.View(), picture.View(), colour, 0);
    EXPECT_EQ(picture.Copied(), before);
    RandomColour(picture.View(), picture.View(), colour, 32768);
    EXPECT_EQ(picture.At(50, 5, 2), 3);
    EXPECT_EQ(std::count(picture.Bytes().begin(), picture.Bytes().end(), 2), 1000);
}

TEST(Colours, OfTheSixSectors)
{
    using Colour = Plain::RGBValue;
    EXPECT_EQ(Plain::HueToRGB(0, 255, 255), (Colour{255, 1, 0}));
    EXPECT_EQ(Plain::HueToRGB(43, 255, 255), (Colour{254, 255, 0}));
    EXPECT_EQ(Plain::HueToRGB(100, 0, 77), (Colour{77, 77, 77}));
    EXPECT_EQ(Plain::HueToRGB(258, 255, 255), (Colour{0, 0, 0}));
    EXPECT_EQ(Plain::HueToRGB(129, 128, 200), (Colour{99, 199, 200}));
}

TEST(Colours, PlanesAreMergedInTheGivenOrder)
{
    constexpr struct {
        const char* fWords;
        PlaneOrder fOrder;
        std::uint8_t fConstant;
        std::uint32_t fMerged;
        std::uint32_t fPremultiplied; // 51 is a fifth
    } kRows[] = {
        {"colours and alpha", kOrder_BGRA, 9, 0x3364C8FF, 0x33142833},
        {"colours without alpha", kOrder_BGRConstant, 255, 0xFF64C8FF, 0xFF64C8FF},
        {"grey and the second plane", kOrder_GreyAlpha, 9, 0xC8646464, 0xC84E4E4E},
        {"grey alone, unseen", kOrder_GreyConstant, 0, 0x00646464, 0},
        {"a plane that is not there", {7, 1, 2, 3}, 5, 0x33FFC805, 0x33332801},
    };
    const CPicture source(8, 1, 1, 4);
    const std::uint8_t planes[] = {100, 200, 255, 51};
    std::copy(std::begin(planes), std::end(planes), source.Bytes().begin());
    const CPicture out(32, 1, 1, 1);
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.fWords);
        MergePlanes(out.View(), source.View(), row.fOrder, row.fConstant);
        EXPECT_EQ(out.At<std::uint32_t>(0, 0), row.fMerged);
        MergePremultiplied(out.View(), source.View(), row.fOrder, row.fConstant);
        EXPECT_EQ(out.At<std::uint32_t>(0, 0), row.fPremultiplied);
    }
}

TEST(Colours, PixelsAreSplitIntoTheirPlanes)
{
    const CPicture source(32, 1, 1, 1);
    source.At<std::uint32_t>(0, 0) = 0x04030201;
    const CPicture out(8, 1, 1, 4);
    const auto split = [&](const PlaneOrder& order) {
        std::fill(out.Bytes().begin(), out.Bytes().end(), std::uint8_t{9});
        SplitPlanes(out.View(), source.View(), order);
        return out.Copied();
    };
    EXPECT_EQ(split(kOrder_BGRA), (std::vector<std::uint8_t>{3, 2, 1, 4}));
    EXPECT_EQ(split(kOrder_BGRConstant), (std::vector<std::uint8_t>{3, 2, 1, 9}));
    EXPECT_EQ(split({-1, 0, 4, 2}), (std::vector<std::uint8_t>{2, 9, 4, 9}));
}

TEST(Transfers, FillOnlyTheFrame)
{
    const CPicture picture = PictureOf(Rows(3, {1, 1, 1, 1}));
    FillFrame<std::uint8_t>(picture.View(), {1, 1, 3, 2}, std::array<std::uint8_t, 1>{7});
    EXPECT_EQ(RowsOf(picture), (Rows{{7, 7, 7, 7}, {7, 1, 1, 7}, {7, 7, 7, 7}}));
    FillFrame<std::uint8_t>(picture.View(), {9, 9, 10, 10}, std::array<std::uint8_t, 1>{8});
    EXPECT_EQ(RowsOf(picture), (Rows(3, {8, 8, 8, 8})));
}

TEST(Transfers, CopyOverlappingViews)
{
    const CPicture picture = PictureOf({{1, 2, 3, 4}, {5, 6, 7, 8}, {0, 0, 0, 0}});
    CPixView to = picture.View();
    to.MoveTo({1, 1, 4, 3});
    CPixView from = picture.View();
    from.MoveTo({0, 0, 3, 2});
    Copy(to, from);
    EXPECT_EQ(RowsOf(picture), (Rows{{1, 2, 3, 4}, {5, 1, 2, 3}, {0, 5, 6, 7}}));
}
