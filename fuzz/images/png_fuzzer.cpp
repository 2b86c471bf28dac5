// Decodes any bytes, and the same bytes once more with the same decoder: both end in the same
// pixels or the same failure.
//
// Bytes that begin as a PNG file are one. Few changes to such leave its compressed rows sound, so
// others are the parts of a file that has sound ones: the sizes of palette and transparency, the
// header, palette, transparency, rows.
#include "foundation/errors/exceptions.h"
#include "images/png/decoding.h"

#include <cstdlib>
#include <span>

using namespace TestPNG;

namespace {

// The picture's size and samples, or the failure's text.
struct End {
    Kesto::PixelPoint size;
    Bytes samples;
    std::string failure;
    bool operator==(const End&) const = default;
};

End EndOf(Kesto::CPNGDecoder& decoder, Kesto::CMemoryContainer& stream)
{
    try {
        const auto pixmap = decoder.Decode(stream);
        return pixmap == nullptr ? End{{}, {}, "null"}
                                 : End{pixmap->GetSize(), SamplesOf(*pixmap), {}};
    } catch (const Kesto::CError& error) {
        return {{}, {}, std::string(error.ErrorText().View())};
    }
}

Bytes FileFrom(std::span<const std::uint8_t> input)
{
    if (input.empty() || input[0] == Signature()[0])
        return {input.begin(), input.end()};
    const auto take = [&](std::size_t size) {
        const auto part = input.first(std::min(size, input.size()));
        input = input.subspan(part.size());
        return Bytes(part.begin(), part.end());
    };
    Bytes sizes = take(2);
    sizes.resize(2);
    const Bytes header = take(13), palette = take(std::size_t{3} * sizes[0]),
                transparency = take(sizes[1]);
    return FileOf(header, {Chunk("PLTE", palette), Chunk("tRNS", transparency),
                           Chunk("IDAT", Deflated(take(input.size()), 1))});
}

// By the size that a file in order names; 0 for lengths below 0.
std::uint64_t PixelsOf(const Bytes& file)
{
    constexpr std::size_t kSizes = 16; // width and height, big-endian
    if (file.size() < kSizes + 8)
        return 0;
    const auto number = [&](std::size_t at) {
        return std::uint64_t{file[at]} << 24 | std::uint64_t{file[at + 1]} << 16 |
               std::uint64_t{file[at + 2]} << 8 | file[at + 3];
    };
    const std::uint64_t width = number(kSizes), height = number(kSizes + 4);
    return width < 0x80000000 && height < 0x80000000 ? width * height : 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Beside a picture whose rows take much few others could be tried: a large one comes rarely,
    // and those that take seconds never. Lengths that lie are caught before memory is taken for
    // them, so small ones reach all there is.
    constexpr std::uint64_t kLarge = 1 << 16, kMost = 1 << 22;
    const Bytes file = FileFrom({data, size});
    if (PixelsOf(file) > (size % 64 == 0 ? kMost : kLarge))
        return 0;
    Kesto::CMemoryContainer stream;
    Put(stream, file);
    Kesto::CPNGDecoder decoder;
    const End first = EndOf(decoder, stream);
    if (EndOf(decoder, stream) != first)
        std::abort();
    return 0;
}
