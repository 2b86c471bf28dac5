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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CMemoryContainer stream;
    Put(stream, FileFrom({data, size}));
    Kesto::CPNGDecoder decoder;
    const End first = EndOf(decoder, stream);
    if (EndOf(decoder, stream) != first)
        std::abort();
    return 0;
}
