// Decoding for tests: from bytes to samples.
#pragma once

#include "foundation/streams/memory_container.h"
#include "images/png/png_decoder.h"
#include "images/png/png_writer.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <memory>

namespace TestPNG {

inline void Put(Kesto::CContainer& stream, const Bytes& file)
{
    stream.Write(file.data(), file.size());
}

inline std::unique_ptr<Kesto::CMemoryPixmap> Decode(const Bytes& file)
{
    Kesto::CMemoryContainer stream;
    Put(stream, file);
    Kesto::CPNGDecoder decoder;
    return decoder.Decode(stream);
}

// The pixmap's planes as samples, pixel by pixel, row by row. There may be billions of rows without
// a pixel.
inline Bytes SamplesOf(const Kesto::CBasicPixmap& pixmap)
{
    Kesto::CPixView view;
    pixmap.GetView(view);
    if (view.width <= 0 || view.height <= 0)
        return {};
    const auto width = static_cast<std::size_t>(view.width);
    const auto planes = static_cast<std::size_t>(view.planeCount);
    Bytes samples(width * planes * static_cast<std::size_t>(view.height));
    std::uint8_t* sample = samples.data();
    for (std::int32_t y = 0; y < view.height; ++y)
        for (std::size_t x = 0; x < width; ++x)
            for (std::size_t plane = 0; plane < planes; ++plane)
                *sample++ =
                    view.planePointers[plane][y * view.rowBytes + static_cast<std::ptrdiff_t>(x)];
    return samples;
}

} // namespace TestPNG
