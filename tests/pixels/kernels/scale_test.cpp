// Scaling of planes: the fast rows give the plain rows' bytes, and the arithmetic is the documented
// one.
#include "pixels/kernels/scaled.h"
#include "support/testing.h"

using namespace Kesto;
using namespace Kesto::Kernels;
using namespace Kesto::Testing;

namespace {

template <class T>
void ExpectTwins(const CPicture& source, std::int32_t width, std::int32_t height)
{
    const auto scaled = [&](CpuLevel level) {
        const CUseLevel use(level);
        return Scaled<T>(source, width, height);
    };
    EXPECT_EQ(scaled(CpuLevel::kBase), scaled(BestCpuLevel()))
        << 8 * sizeof(T) << " bits, " << width << " by " << height;
}

template <class T>
class ScaleTwins : public testing::Test {
};
using PixelTypes = testing::Types<std::uint8_t, std::uint16_t, std::uint32_t>;
TYPED_TEST_SUITE(ScaleTwins, PixelTypes);

std::vector<std::uint8_t> ScaledLine(const std::vector<std::uint8_t>& line, std::int32_t width)
{
    return Scaled<std::uint8_t>(PictureOf({line}), width, 1);
}

} // namespace

// Every small size, and ratios that matter.
TYPED_TEST(ScaleTwins, OfManySizes)
{
    const CPicture small(8 * sizeof(TypeParam), 61, 23, 1, 3);
    for (std::int32_t width = 1; width < 130; ++width)
        ExpectTwins<TypeParam>(small, width, 1 + width * 7 % 50);
    const CPicture large(8 * sizeof(TypeParam), 592, 64, 1, 4);
    for (const std::int32_t width :
         {592, 296, 295, 297, 160, 148, 100, 90, 74, 73, 37, 36, 5, 1, 888, 889, 1183})
        for (const std::int32_t height : {64, 32, 17, 4, 1, 96, 95})
            ExpectTwins<TypeParam>(large, width, height);
}

TYPED_TEST(ScaleTwins, OfExtremePixels)
{
    for (const std::uint8_t value : {0, 255}) {
        SCOPED_TRACE(value == 0 ? "black" : "white");
        const CPicture source(8 * sizeof(TypeParam), 700, 9, 1);
        std::fill(source.Bytes().begin(), source.Bytes().end(), value);
        for (const std::int32_t width : {1, 3, 189, 350, 699, 1050})
            for (const std::int32_t height : {4, 13}) {
                ExpectTwins<TypeParam>(source, width, height);
                if (sizeof(TypeParam) == 1) {
                    EXPECT_THAT(Scaled<TypeParam>(source, width, height), testing::Each(value));
                }
            }
    }
}

// Halves fall on every pixel here: the place where rounding shows.
TYPED_TEST(ScaleTwins, OfTies)
{
    for (const std::int32_t size : {2, 3, 4, 7, 11, 33, 65, 129}) {
        const CPicture source(8 * sizeof(TypeParam), size, size, 1, 11);
        for (const std::int32_t factor : {2, 3, 4, 6, 8})
            ExpectTwins<TypeParam>(source, (size - 1) * factor + 1, (size - 1) * factor + 1);
    }
}

TEST(ScaleLine, IsTheMeanOfWholeAndSharedPixelsOrLiesBetweenThem)
{
    using Line = std::vector<std::uint8_t>;
    const std::pair<Line, Line> cases[] = {
        {{1, 2, 10, 20, 255, 255}, {2, 15, 255}},
        {{0, 0, 1, 9, 9, 9}, {0, 9}},
        {{30, 60, 90}, {40, 80}}, // (30 + 60 / 2) / 1.5 and (60 / 2 + 90) / 1.5
        {{0, 100}, {0, 25, 50, 75, 100}},
        {{0, 1}, {0, 1, 1}},
        {{7}, {7, 7}},
    };
    for (const auto& [from, to] : cases)
        EXPECT_EQ(ScaledLine(from, static_cast<std::int32_t>(to.size())), to)
            << testing::PrintToString(from);
}
