// Pictures as they pass between picture files, the driver of modules and the frame encoder: 8 bits
// a channel, the channels of a pixel side by side, rows from the top.
#pragma once

#include "lumograph/records.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Host {

// The values are the host's colour modes.
enum class PictureMode : int16_t {
    kGrayscale = kHostModeGrayscale,
    kIndexed = kHostModeIndexed,
    kRgb = kHostModeRGB,
};

struct Palette {
    std::array<uint8_t, 256> red = {};
    std::array<uint8_t, 256> green = {};
    std::array<uint8_t, 256> blue = {};

    // Entry i is the grey of level i.
    static Palette Grays();
};

struct PictureInfo {
    PictureMode mode = PictureMode::kRgb;
    int32_t width = 0;
    int32_t height = 0;
    int32_t planes = 3; // bytes of a pixel: 1 for grey and indices, 3 for RGB, 4 for RGB and alpha
    Palette palette;    // indexed pictures; greys for a grey one

    size_t RowBytes() const { return static_cast<size_t>(width) * static_cast<size_t>(planes); }
};

// The name of the mode in the host's property lists: "GrayScale", "IndexedColor", "RGBColor".
const char* ModeKey(PictureMode mode);

// Words for people: "indexed", "RGB with alpha".
const char* KindOf(const PictureInfo& info);

// A picture to be read. Failures of the file are thrown as Failure.
class PictureSource {
public:
    virtual ~PictureSource() = default;
    virtual const PictureInfo& Info() const = 0;

    // The pixels of a row, Info().RowBytes() of them, valid until the next call. Rows may be asked
    // for in any order; from the top down is fastest.
    virtual const uint8_t* Row(int32_t y) = 0;
};

// A picture to be written. The file isn't there before Finish; an object that ends
// without it leaves nothing. Failures are thrown as Failure.
class PictureSink {
public:
    virtual ~PictureSink() = default;

    // Once, first: what is to come.
    virtual void Begin(const PictureInfo& info) = 0;

    // The next `count` rows from the top, `stride` bytes apart.
    virtual void PutRows(const uint8_t* rows, size_t stride, int32_t count) = 0;

    // Once, after the last row.
    virtual void Finish() = 0;
};

} // namespace Host
