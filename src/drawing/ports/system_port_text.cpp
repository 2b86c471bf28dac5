// Text, measured and drawn.
#include "drawing/ports/system_port.h"

#include "drawing/ports/device_font.h"
#include "drawing/ports/text_rows.h"

#include <algorithm>
#include <string>

namespace Kesto {
namespace {

// Rows of all fonts that fit; see SFontMetrics.
constexpr double kLineHeight = 16.0;
constexpr double kBaseLine = 12.0;

std::string WithoutMarks(std::string_view text, std::uint32_t flags, std::size_t& mnemonic)
{
    mnemonic = CMnemonicText::kNone;
    if ((flags & (kText_Mnemonic | kText_HideMnemonic)) == 0)
        return std::string(text);
    CMnemonicText label(text);
    if ((flags & kText_Mnemonic) != 0)
        mnemonic = label.mnemonic;
    return std::move(label.text);
}

} // namespace

const Platform::Font& CSystemPort::DeviceFont() const
{
    if (!fDeviceFont)
        fDeviceFont.emplace(DeviceFontSpec(fState.font, fState.fontScale, fScale));
    return *fDeviceFont;
}

SFontMetrics CSystemPort::GetFontMetrics() const
{
    const Platform::FontMetrics& pixels = DeviceFont().Metrics();
    SFontMetrics metrics{pixels.ascent / fScale, pixels.descent / fScale, kLineHeight, kBaseLine,
                         pixels.averageWidth / fScale};
    if (metrics.ascent + metrics.descent > kLineHeight) {
        metrics.lineHeight = metrics.ascent + metrics.descent;
        metrics.baseLine = metrics.ascent;
    }
    return metrics;
}

double CSystemPort::MeasureText(std::string_view text) const
{
    return DeviceFont().WidthOf(text) / fScale;
}

Point CSystemPort::MeasureTextBox(std::string_view text, double width, std::uint32_t flags) const
{
    std::size_t mnemonic;
    const std::string plain = WithoutMarks(text, flags, mnemonic);
    const auto rows = BreakRows(DeviceFont(), plain, width * fScale, (flags & kText_Wrap) != 0);
    std::int32_t widest = 0;
    for (const CTextRow& row : rows)
        widest = std::max(widest, row.line->Width());
    return {widest / fScale, static_cast<double>(rows.size()) * GetFontMetrics().lineHeight};
}

void CSystemPort::DrawLineWithin(const Platform::TextLine& line, const PixelPoint& start,
                                 const PixelRect& frame)
{
    const PixelRect& bounds = line.InkBounds();
    const PixelRect ink{start.x + bounds.left, start.y + bounds.top, start.x + bounds.right,
                        start.y + bounds.bottom};
    const PixelRect seen = Kesto::Intersect(ink, frame);
    if (!fState.clip.Intersects(seen))
        return;
    // Nearly every text: no second clip is made.
    if (seen == ink) {
        ClippedCanvas().DrawTextLine(line, start, fState.textColour);
        return;
    }
    CDeviceRegion clip = fState.clip;
    clip.Intersect(frame);
    Platform::Canvas canvas(*fSurface);
    canvas.SetClip(clip.GetRects());
    canvas.DrawTextLine(line, start, fState.textColour);
}

void CSystemPort::Underline(const Platform::TextLine& line, std::size_t position,
                            const PixelPoint& start, const PixelRect& frame)
{
    const Platform::FontMetrics& metrics = DeviceFont().Metrics();
    const std::int32_t top = start.y + metrics.underlineTop;
    for (const Platform::TextExtent& extent : line.ExtentsOf(position, line.NextPosition(position)))
        FillDevice(Kesto::Intersect(frame, {start.x + RoundHalfAway(extent.left), top,
                                            start.x + RoundHalfAway(extent.right),
                                            top + std::max(metrics.underlineThickness, 1)}),
                   SolidPixels(fState.textColour));
}

void CSystemPort::DrawTextLine(std::string_view text, const Point& baseLine)
{
    const auto line = DeviceFont().Line(text);
    const PixelPoint start = ToPixels(baseLine);
    if (fState.opaqueText) {
        const Platform::FontMetrics& metrics = DeviceFont().Metrics();
        FillDevice(PixelRect{start.x, start.y - metrics.ascent, start.x + line->Width(),
                             start.y + metrics.descent},
                   SolidPixels(fState.background));
    }
    DrawLineWithin(*line, start,
                   {-kFarthestPixel, -kFarthestPixel, kFarthestPixel, kFarthestPixel});
}

void CSystemPort::DrawTextBox(std::string_view text, const Rect& frame, std::uint32_t flags,
                              double lineHeight)
{
    if (frame.IsEmpty() || !IsInClip(frame))
        return;
    const PixelRect pixels = ToPixels(frame);
    if (fState.opaqueText)
        FillDevice(pixels, SolidPixels(fState.background));
    std::size_t mnemonic;
    const std::string plain = WithoutMarks(text, flags, mnemonic);
    const std::int32_t width = pixels.right - pixels.left;
    const auto rows = BreakRows(DeviceFont(), plain, width, (flags & kText_Wrap) != 0);

    SFontMetrics metrics = GetFontMetrics();
    if (lineHeight > 0.0)
        metrics.lineHeight = lineHeight;
    const double height = static_cast<double>(rows.size()) * metrics.lineHeight;
    double top = frame.top;
    if ((flags & kText_Bottom) != 0)
        top = frame.bottom - height;
    else if ((flags & kText_Top) == 0)
        top = frame.top + (frame.Height() - height) / 2;

    for (std::size_t i = 0; i < rows.size(); ++i) {
        auto line = rows[i].line;
        if ((flags & kText_Ellipsis) != 0 && line->Width() > width)
            line = Shortened(DeviceFont(),
                             std::string_view(plain).substr(rows[i].first, line->Length()), width);
        // Of a line that is too wide the beginning shows, or at the right its end.
        const std::int32_t room = width - line->Width();
        std::int32_t left = pixels.left;
        if ((flags & kText_Right) != 0)
            left += room;
        else if ((flags & kText_Left) == 0)
            left += std::max(room, 0) / 2;
        const Point base{0.0, top + static_cast<double>(i) * metrics.lineHeight + metrics.baseLine};
        const PixelPoint start{left, ToPixels(base).y};
        DrawLineWithin(*line, start, pixels);
        if (mnemonic >= rows[i].first && mnemonic - rows[i].first < line->Length())
            Underline(*line, mnemonic - rows[i].first, start, pixels);
    }
}

} // namespace Kesto
