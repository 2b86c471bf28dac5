// The fast ways to undo filters against the plain one.
#include "images/png/unfilter.h"
#include "pixels/kernels/cpu.h"
#include "support/testing.h"

namespace Kernels = Kesto::Kernels;

namespace {

TEST(PNGUnfilter, GivesTheBytesOfThePlainLoopAtEveryLevel)
{
    std::minstd_rand random(5);
    const auto below = [&](std::uint32_t limit) {
        return static_cast<std::int32_t>((random() >> 8) % limit);
    };
    for (std::int32_t i = 0; i < 2000; ++i) {
        const std::int32_t pixelBytes = 1 + i % 6, rows = 1 + below(70);
        const std::int32_t rowBytes = 1 + below(500); // seldom a whole number of pixels
        std::vector<std::uint8_t> fast(static_cast<std::size_t>(rows) *
                                       static_cast<std::size_t>(rowBytes));
        for (std::uint8_t& byte :
             fast) // the ends of the range and steps of 1 are where predictions turn
            byte = static_cast<std::uint8_t>(below(2) != 0 ? below(256) : below(3) - 1);
        const std::int32_t kind = below(4); // of two kinds, all rows but the first few are alike
        for (std::int32_t y = 0; y < rows; ++y)
            fast[static_cast<std::size_t>(y * rowBytes)] =
                static_cast<std::uint8_t>(kind < 2 && y > 2 ? 3 + kind : below(6));
        std::vector<std::uint8_t> plain = fast;
        Kernels::UseCpuLevel(i % 12 < 6 ? Kernels::CpuLevel::kBase : Kernels::BestCpuLevel());
        Kesto::UnfilterRows(fast.data(), rowBytes, rows, pixelBytes);
        Kesto::UnfilterRowsPlainly(plain.data(), rowBytes, rows, pixelBytes);
        ASSERT_TRUE(fast == plain)
            << pixelBytes << " bytes a pixel, " << rows << " rows of " << rowBytes;
    }
}

} // namespace
