// The handlers of the decoder, one for each kind of chunk.
#include "foundation/streams/container.h"
#include "images/png/png_decoder.h"

#include <algorithm>

namespace Kesto {

bool CPNGDecoder::OnIDAT(CContainer& chunk, std::uint32_t length)
{
    // Room grows in doubling steps: files come in many small pieces.
    const std::size_t needed = fImageBytes + length;
    if (needed > fImageData.GetSize())
        fImageData.SetSize(std::max(needed, 2 * fImageData.GetSize()));
    chunk.Read(fImageData.Data() + fImageBytes, length);
    fImageBytes = needed;
    return true;
}

bool CPNGDecoder::OnPLTE(CContainer& chunk, std::uint32_t length)
{
    const std::size_t count = std::min<std::size_t>(length / 3, fPaletteRed.size());
    for (std::size_t i = 0; i < count; ++i) {
        fPaletteRed[i] = chunk.ReadUInt8();
        fPaletteGreen[i] = chunk.ReadUInt8();
        fPaletteBlue[i] = chunk.ReadUInt8();
    }
    return true;
}

// A grey key is kept in all three fields, so that one comparison serves both kinds. Colour types
// with an alpha of their own have no use for the chunk.
bool CPNGDecoder::OnTRNS(CContainer& chunk, std::uint32_t length)
{
    switch (fColorType) {
    case PNGColor::kGrey:
        fTransparencyCount = 1;
        fTransparentRed = fTransparentGreen = fTransparentBlue = chunk.ReadUInt16();
        break;
    case PNGColor::kRGB:
        fTransparencyCount = 1;
        fTransparentRed = chunk.ReadUInt16();
        fTransparentGreen = chunk.ReadUInt16();
        fTransparentBlue = chunk.ReadUInt16();
        break;
    case PNGColor::kPalette:
        fTransparencyCount =
            static_cast<std::int32_t>(std::min<std::size_t>(length, fPaletteAlpha.size()));
        chunk.Read(fPaletteAlpha.data(), static_cast<std::size_t>(fTransparencyCount));
        break;
    case PNGColor::kGreyAlpha:
    case PNGColor::kRGBA:
        break;
    }
    return true;
}

bool CPNGDecoder::DispatchChunk(CContainer& chunk, Tag type, std::uint32_t length)
{
    struct Row {
        Tag type;
        bool (CPNGDecoder::*handler)(CContainer&, std::uint32_t);
    };
    static constexpr Row kRows[] = {
        // most chunks are image data
        {MakeTag("IDAT"), &CPNGDecoder::OnIDAT}, {MakeTag("PLTE"), &CPNGDecoder::OnPLTE},
        {MakeTag("tRNS"), &CPNGDecoder::OnTRNS}, {MakeTag("bKGD"), &CPNGDecoder::OnBKGD},
        {MakeTag("cHRM"), &CPNGDecoder::OnCHRM}, {MakeTag("gAMA"), &CPNGDecoder::OnGAMA},
        {MakeTag("hIST"), &CPNGDecoder::OnHIST}, {MakeTag("iCCP"), &CPNGDecoder::OnICCP},
        {MakeTag("iTXt"), &CPNGDecoder::OnITXT}, {MakeTag("pHYs"), &CPNGDecoder::OnPHYS},
        {MakeTag("sBIT"), &CPNGDecoder::OnSBIT}, {MakeTag("sPLT"), &CPNGDecoder::OnSPLT},
        {MakeTag("sRGB"), &CPNGDecoder::OnSRGB}, {MakeTag("tEXt"), &CPNGDecoder::OnTEXT},
        {MakeTag("tIME"), &CPNGDecoder::OnTIME}, {MakeTag("zTXt"), &CPNGDecoder::OnZTXT}};
    for (const Row& row : kRows)
        if (row.type == type)
            return (this->*row.handler)(chunk, length);
    return OnUnknownChunk(chunk, type, length);
}

} // namespace Kesto
