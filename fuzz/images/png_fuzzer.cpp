// Decodes any bytes, and the same bytes once more with the same decoder: both end in the same pixels or the same failure.
//
// Bytes that begin as a PNG file are one. Few changes to such leave its compressed rows sound, so others are the parts of
// a file that has sound ones: the sizes of palette and transparency, the header, palette, transparency, rows.
#include "foundation/exceptions.h"
#include "foundation/memory_container.h"
#include "images/png/png_decoder.h"
#include "images/png/png_writer.h"
#include "pixels/memory_pixmap.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>

namespace {

// The picture, or null for a failure, whose text is then in `failure`.
std::unique_ptr<Kesto::CMemoryPixmap> Decode(Kesto::CPNGDecoder& decoder, Kesto::CMemoryContainer& stream,
                                             Kesto::CText& failure)
{
    try {
        return decoder.Decode(stream);
    } catch (const Kesto::CError& error) {
        failure = error.ErrorText();
        return nullptr;
    }
}

TestPNG::Bytes FileOf(std::span<const std::uint8_t> input)
{
    if (input.empty() || input[0] == TestPNG::Signature()[0])
        return {input.begin(), input.end()};
    const auto take = [&](std::size_t size) {
        const auto part = input.first(std::min(size, input.size()));
        input = input.subspan(part.size());
        return TestPNG::Bytes(part.begin(), part.end());
    };
    TestPNG::Bytes sizes = take(2);
    sizes.resize(2);
    const TestPNG::Bytes header = take(13), palette = take(std::size_t{3} * sizes[0]), transparency = take(sizes[1]);
    return TestPNG::Joined({TestPNG::Signature(), TestPNG::Chunk("IHDR", header), TestPNG::Chunk("PLTE", palette),
                            TestPNG::Chunk("tRNS", transparency),
                            TestPNG::Chunk("IDAT", TestPNG::Deflated(take(input.size()), 1)),
                            TestPNG::Chunk("IEND", {})});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CMemoryContainer stream;
    const TestPNG::Bytes file = FileOf({data, size});
    stream.Write(file.data(), file.size());
    Kesto::CPNGDecoder decoder;
    Kesto::CText firstFailure, secondFailure;
    const auto first = Decode(decoder, stream, firstFailure);
    const auto second = Decode(decoder, stream, secondFailure);
    if (firstFailure.View() != secondFailure.View() || (first == nullptr) != (second == nullptr))
        std::abort();
    if (first == nullptr || first->GetWidth() == 0 || first->GetHeight() == 0)
        return 0;
    Kesto::CPixView one, other;
    first->GetView(one);
    second->GetView(other);
    for (std::int32_t plane = 0; plane < one.planeCount; ++plane)
        for (std::int32_t y = 0; y < one.height; ++y)
            if (std::memcmp(one.planePointers[static_cast<std::size_t>(plane)] + std::ptrdiff_t{y} * one.rowBytes,
                            other.planePointers[static_cast<std::size_t>(plane)] + std::ptrdiff_t{y} * other.rowBytes,
                            static_cast<std::size_t>(one.width)) != 0)
                std::abort();
    return 0;
}
