// CPNGFormat, what the header and the tables of one PNG file say.
//
// The image data, inflated, is a sequence of rows, each led by a byte that names its filter. An
// interlaced image (Adam7) is seven such sequences, one after the other, each a smaller image of
// every dx-th pixel of every dy-th row from (x0, y0).
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace Kesto {

// A sequence of rows in the inflated data, and where its pixels go. Sizes are 0 when it has no
// pixels.
struct PNGPass {
    std::int32_t width = 0; // pixels
    std::int32_t height = 0;
    std::int32_t rowBytes = 0; // of a row, with its filter byte
    std::int32_t size = 0;     // rowBytes * height
    std::int32_t x0 = 0;
    std::int32_t y0 = 0;
    std::int32_t dx = 1;
    std::int32_t dy = 1;

    // Takes over the size of an image of that many bits per pixel. Returns false when a product
    // passes 31 bits; the record is without pixels then.
    bool SetSize(std::int64_t pixelsWide, std::int64_t pixelsHigh, std::int32_t pixelBits,
                 bool hasFilterByte);
};

enum class PNGColor : std::uint8_t { kGrey = 0, kRGB = 2, kPalette = 3, kGreyAlpha = 4, kRGBA = 6 };

inline constexpr std::int32_t kPNGRowAlignment = 4; // of the pixmaps, bytes

class CPNGFormat {
public:
    CPNGFormat() { CPNGFormat::Reset(); }
    virtual ~CPNGFormat() = default;

    // Forgets the file: sizes and counts are 0, the palette is black and opaque, the passes have
    // their places.
    virtual void Reset();

protected:
    CPNGFormat(const CPNGFormat&) = default;
    CPNGFormat& operator=(const CPNGFormat&) = default;

    // Derives the channels, the sizes of all records and the total from what the header chunk said.
    // Returns false for a size below 0, and for one whose data or pixmap no 31 bits can measure.
    bool DeriveSizes();

    bool HasTransparency() const { return fTransparencyCount != 0; }
    bool IsInterlaced() const { return fInterlaceMethod == 1; }
    bool HasFilterBytes() const { return fFilterMethod == 0; }
    std::int32_t PixelBits() const { return fChannels * fBitDepth; }

    // The records that hold the image, in the order of their data.
    std::span<const PNGPass> Passes() const;

    // The planes of a pixmap for this file; 0 for an unknown colour type.
    std::int32_t PlaneCount() const;

    std::int32_t fWidth; // pixels
    std::int32_t fHeight;
    std::uint8_t fBitDepth; // of a sample
    PNGColor fColorType;    // any number that the file holds
    std::uint8_t fCompressionMethod;
    std::uint8_t fFilterMethod; // 0: each row begins with a filter byte
    std::uint8_t fInterlaceMethod;
    std::uint8_t fChannels;         // samples of a pixel; 0 for an unknown colour type
    PNGPass fImage;                 // the whole image
    std::array<PNGPass, 7> fPasses; // of Adam7; empty without interlacing
    std::int32_t fTotalSize;        // bytes of the inflated data
    std::array<std::uint8_t, 256> fPaletteRed;
    std::array<std::uint8_t, 256> fPaletteGreen;
    std::array<std::uint8_t, 256> fPaletteBlue;
    std::int32_t fTransparencyCount; // entries of the transparency chunk; 0 without one
    std::array<std::uint8_t, 256> fPaletteAlpha;
    std::uint16_t fTransparentRed; // the key colour; grey images have their value in all three
    std::uint16_t fTransparentGreen;
    std::uint16_t fTransparentBlue;
};

} // namespace Kesto
