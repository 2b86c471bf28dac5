// The checksum of inflated data, against zlib's.
#include "images/png/adler_sum.h"
#include "pixels/kernels/cpu.h"
#include "support/testing.h"

#include <zlib.h>

namespace Kernels = Kesto::Kernels;

namespace {

TEST(PNGAdlerSum, IsThatOfZlibForBytesInPiecesOfAnySize)
{
    std::minstd_rand random(3);
    for (const std::size_t size : {0, 1, 15, 16, 17, 31, 32, 33, 4095, 4096, 4097, 5552, 300'000}) {
        SCOPED_TRACE(size);
        // Bytes of 255 make the largest sums there are.
        std::vector<std::uint8_t> bytes(size, 255);
        for (const bool isFull : {true, false}) {
            for (std::uint8_t& byte : bytes)
                byte = isFull ? 255 : static_cast<std::uint8_t>(random() >> 8);
            Kernels::UseCpuLevel(random() % 2 == 0 ? Kernels::CpuLevel::kBase
                                                   : Kernels::BestCpuLevel());
            Kesto::AdlerSum sum;
            std::span<const std::uint8_t> left(bytes);
            while (!left.empty()) {
                const std::size_t piece = std::min<std::size_t>(left.size(), random() % 20'000);
                sum.Add(left.first(piece));
                left = left.subspan(piece);
            }
            const auto count = static_cast<uInt>(size);
            EXPECT_EQ(sum.Value(), adler32(adler32(0, nullptr, 0), bytes.data(), count)) << isFull;
        }
    }
}

} // namespace
