// The loops over pixels: rows of every width and place, and means against the plain formula.
#include "drawing/ports/pixel_average.h"
#include "drawing/ports/pixel_surface.h"
#include "support/testing.h"

namespace Kesto {
namespace {

// Pixels of a surface with something else around them.
struct Pixels {
    Pixels(std::int32_t width, std::int32_t height)
        : memory(static_cast<std::size_t>(width * height)),
          surface{reinterpret_cast<std::uint8_t*>(memory.data()), 4 * width, {width, height}}
    {
    }
    std::vector<std::uint32_t> memory;
    CPixelSurface surface;
};

TEST(PixelSurface, FillsTheRectangleAndNothingElse)
{
    constexpr std::int32_t kSize = 210;
    for (std::int32_t width = 1; width <= 200; width += width < 20 ? 1 : 29)
        for (const std::int32_t left : {0, 1, 2, 3, 7})
            for (const std::int32_t rows : {1, 15, 16, 40}) {
                SCOPED_TRACE(::testing::Message()
                             << width << " by " << rows << " pixels from " << left);
                Pixels pixels(kSize, 44);
                const PixelRect rect{left, 2, left + width, 2 + rows};
                FillPixels(pixels.surface, rect, SolidPixels({1, 2, 3}));
                std::size_t wrong = 0;
                for (std::int32_t y = 0; y < 44; ++y)
                    for (std::int32_t x = 0; x < kSize; ++x) {
                        const bool inside =
                            x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
                        wrong += *pixels.surface.At(x, y) != (inside ? 0xFF010203u : 0u);
                    }
                EXPECT_EQ(wrong, 0u);
            }
}

class RowsOf : public CPixelRows {
public:
    RowsOf(const Pixels& pixels, std::int32_t left) : fPixels(pixels), fLeft(left) {}
    const std::uint32_t* Row(std::int32_t y) override { return fPixels.surface.At(fLeft, y); }

private:
    const Pixels& fPixels;
    std::int32_t fLeft;
};

// How much of source pixel `from` a destination pixel takes along one axis.
double Weight(const CAverageAxis& axis, std::int32_t at, std::int32_t from)
{
    if (axis.dest <= axis.source) {
        const double size = static_cast<double>(axis.source) / axis.dest;
        const double covered =
            std::min((at + 1) * size, from + 1.0) - std::max(at * size, 0.0 + from);
        return std::max(covered, 0.0) / size;
    }
    const double place = at * (axis.source - 1.0) / (axis.dest - 1.0);
    return std::max(1 - std::abs(place - from), 0.0);
}

TEST(PixelAverage, IsTheMeanOfWhatAPixelCovers)
{
    const struct {
        std::int32_t width, height, newWidth, newHeight;
    } rows[] = {{9, 9, 3, 3},  {10, 7, 4, 3},   {31, 5, 2, 5},   {6, 6, 5, 5}, {300, 2, 1, 1},
                {4, 40, 9, 7}, {40, 1, 39, 12}, {50, 600, 7, 1}, {1, 3, 1, 2}, {48, 48, 30, 36}};
    std::mt19937 random(7);
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.width << " x " << row.height << " to "
                                          << row.newWidth << " x " << row.newHeight);
        Pixels source(row.width, row.height);
        for (std::uint32_t& pixel : source.memory)
            pixel = static_cast<std::uint32_t>(random());
        const CAverageAxis across{row.width, row.newWidth, 0, row.newWidth};
        const CAverageAxis down{row.height, row.newHeight, 0, row.newHeight};
        Pixels out(row.newWidth, row.newHeight);
        CPixelAverage average;
        RowsOf all(source, 0);
        average.Run(all, across, down, out.surface);
        for (std::int32_t y = 0; y < row.newHeight; ++y)
            for (std::int32_t x = 0; x < row.newWidth; ++x)
                for (const std::uint32_t shift : {0u, 8u, 16u, 24u}) {
                    double mean = 0;
                    for (std::int32_t j = 0; j < row.height; ++j)
                        for (std::int32_t i = 0; i < row.width; ++i)
                            mean += Weight(across, x, i) * Weight(down, y, j) *
                                    (*source.surface.At(i, j) >> shift & 255);
                    EXPECT_NEAR(*out.surface.At(x, y) >> shift & 255, mean, 0.501)
                        << x << ", " << y;
                }

        // A part comes out as it does in the whole.
        CAverageAxis someAcross = across;
        CAverageAxis someDown = down;
        someAcross.first = row.newWidth / 2;
        someDown.first = row.newHeight / 2;
        Pixels part(row.newWidth, row.newHeight);
        RowsOf some(source, someAcross.FirstUsed());
        average.Run(some, someAcross, someDown, part.surface);
        for (std::int32_t y = someDown.first; y < row.newHeight; ++y)
            for (std::int32_t x = someAcross.first; x < row.newWidth; ++x)
                EXPECT_EQ(*part.surface.At(x - someAcross.first, y - someDown.first),
                          *out.surface.At(x, y));
    }
}

} // namespace
} // namespace Kesto
