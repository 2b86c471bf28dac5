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
    Bytes samples;
    if (view.width == 0)
        return samples;
    for (std::int32_t y = 0; y < view.height; ++y)
        for (std::int32_t x = 0; x < view.width; ++x)
            for (std::int32_t plane = 0; plane < view.planeCount; ++plane)
                samples.push_back(
                    view.planePointers[static_cast<std::size_t>(plane)][y * view.rowBytes + x]);
    return samples;
}

} // namespace TestPNG
