// The way from unfiltered rows to the planes of a pixmap.
#include "images/png/png_decoder.h"
#include "images/png/row_writer.h"
#include "images/png/sample_rows.h"
#include "pixels/pixmaps/basic_pixmap.h"

#include <stdexcept>

namespace Kesto {

SampleFormat CPNGDecoder::Samples() const
{
    SampleFormat format;
    format.channels = fChannels;
    format.planes = static_cast<std::size_t>(PlaneCount());
    format.isIndexed = fColorType == PNGColor::kPalette;
    format.key = {fTransparentRed, fTransparentGreen, fTransparentBlue};
    if (!format.isIndexed)
        return format;
    format.paletteOfPlane = {fPaletteRed, fPaletteGreen, fPaletteBlue, fPaletteAlpha};
    for (std::size_t i = 0; i < format.palette.size(); ++i)
        format.palette[i] = fPaletteRed[i] | std::uint32_t{fPaletteGreen[i]} << 8 |
                            std::uint32_t{fPaletteBlue[i]} << 16 |
                            std::uint32_t{fPaletteAlpha[i]} << 24;
    return format;
}

void CPNGDecoder::TransferTo(CBasicPixmap& pixmap, std::span<const std::uint8_t> data) const
{
    const SampleFormat format = Samples();
    // Nothing to transfer. A depth that isn't supported is the decoder's to tell.
    if (fBitDepth != 8 || format.planes == 0 || fTotalSize == 0)
        return;
    CPixView view;
    pixmap.GetView(view);
    if (view.pixelBits != 8 || view.planeCount < PlaneCount() || view.width < fWidth ||
        view.height < fHeight)
        throw std::logic_error("Warning! (view.planeCount >= planeCount)");
    if (data.size() < static_cast<std::size_t>(fTotalSize))
        throw std::logic_error("Warning! (data.size() >= totalSize)");

    const PNGRowWriter writer(pixmap, format, fColorType, HasFilterBytes());
    for (const PNGPass& pass : Passes()) {
        writer.Put(pass, 0, pass.height, data.data());
        data = data.subspan(static_cast<std::size_t>(pass.size));
    }
}

} // namespace Kesto
