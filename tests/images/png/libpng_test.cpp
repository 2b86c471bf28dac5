// Another decoder finds the same samples in the same files.
#include "images/png/decoding.h"
#include "pixels/kernels/cpu.h"
#include "support/testing.h"

#include <png.h>

using namespace TestPNG;
using Kesto::Kernels::CpuLevel;

namespace {

Bytes ReferenceSamples(const Bytes& file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_memory(&image, file.data(), file.size()), 0)
        << image.message;
    image.format &= ~static_cast<png_uint_32>(
        PNG_FORMAT_FLAG_COLORMAP); // colours for indices, alpha where there is any
    Bytes samples(PNG_IMAGE_SIZE(image));
    EXPECT_NE(png_image_finish_read(&image, nullptr, samples.data(), 0, nullptr), 0)
        << image.message;
    return samples;
}

TEST(PNGPictures, OfEveryKindSizeAndFilterAreDecodedAsByAnotherDecoder)
{
    for (const std::int32_t size : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33, 40, 150, 1500})
        for (const Picture& picture : EveryKind(size, 1 + size * 7 % 40, 8))
            for (const Bytes& filters : {Bytes{0}, {1}, {2}, {3}, {4}, {4, 3, 1, 2, 0, 3, 4}}) {
                const Bytes file = Encoded(picture, filters, 100);
                const Bytes reference = ReferenceSamples(file);
                for (const auto level : {CpuLevel::kBase, CpuLevel::kAvx2, CpuLevel::kAvx512}) {
                    Kesto::Kernels::UseCpuLevel(level); // or stay at what there is
                    EXPECT_TRUE(SamplesOf(*Decode(file)) == reference)
                        << "colour type " << int{picture.colorType} << ", size " << size
                        << ", first filter " << int{filters[0]} << ", level " << int(level);
                }
            }
}

} // namespace
