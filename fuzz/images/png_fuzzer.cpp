// Decodes any bytes, and the same bytes once more with the same decoder: both end in the same pixels or the same failure.
#include "foundation/exceptions.h"
#include "foundation/memory_container.h"
#include "images/png/png_decoder.h"
#include "pixels/memory_pixmap.h"

#include <cstdlib>
#include <cstring>
#include <memory>

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CMemoryContainer stream;
    stream.Write(data, size);
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
