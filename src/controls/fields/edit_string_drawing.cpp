// Where the text of a field is drawn, and how the field looks.
#include "controls/base/child_place.h"
#include "controls/fields/edit_string.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/device_font.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/process/ui_scale.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

// In units: room, edge and margin above and below the text; the sign of an invalid text, and what
// it takes from the room for the text.
constexpr double kTopMargin = 4.0;
constexpr double kSignSize = 16.0;
constexpr double kSignRoom = 18.0;
constexpr double kWidthStep = 4.0;
constexpr std::string_view kDot = "\u25CF"; // of a password

} // namespace

CFont CEditString::TextFont() const
{
    CFont font = CDrawTools::Get().GetFont(fFont);
    if (HasTextOption(kEdit_Password))
        font.face = CText(Platform::DotFace(font.face.View()));
    return font;
}

Platform::FontSpec CEditString::DeviceFont() const
{
    return DeviceFontSpec(TextFont(), FontScale(!NoScaleUIForFont()), GetScale());
}

Point CEditString::SizeOf(double textWidth, std::int32_t lines)
{
    const double width = std::ceil((textWidth + 2.0 * kTextMargin) / kWidthStep) * kWidthStep;
    return {width, CWidgetSkin::kTextHeight * std::max(lines, 1) + 2.0 * kTopMargin};
}

Platform::TextSide CEditString::Side() const
{
    return fAlignX == kAlign_Center  ? Platform::TextSide::kMiddle
           : fAlignX == kAlign_Right ? Platform::TextSide::kRight
                                     : Platform::TextSide::kLeft;
}

Platform::EditLook CEditString::Look() const
{
    const auto colour = [](EColourRole role) { return ToolColour(role); };
    return {.font = DeviceFont(),
            .text = colour(kColour_FieldText),
            .ground = colour(HasTextOption(kEdit_ReadOnly) ? kColour_FieldDisabled : kColour_Field),
            .selectedText = colour(kColour_SelText),
            .selectedGround = colour(kColour_Sel)};
}

void CEditString::LookChanged()
{
    if (Edit() != nullptr)
        Edit()->SetLook(Look());
}

Rect CEditString::TextRect() const
{
    const Rect& bounds = GetBounds();
    const double sign = LooksInvalid() ? kSignRoom : 0.0;
    return {bounds.left + kTextMargin, bounds.top + kTopMargin,
            std::max(bounds.right - kTextMargin - sign, bounds.left + kTextMargin),
            bounds.bottom - kTopMargin};
}

// In the view's space; that of the first of several lines.
double CEditString::BaseLine() const
{
    const Rect& bounds = GetBounds();
    if (HasTextOption(kEdit_MultiLine) || fAlignY == kAlign_Top)
        return bounds.top + CWidgetSkin::BaseLine(CWidgetSkin::kCellHeight);
    return bounds.top + CWidgetSkin::BaseLine(bounds.Height());
}

// The control's text is at its top, on the line that the pane would draw it on. The caret has a
// pixel at the end of the text.
PixelRect CEditString::GetControlPixels() const
{
    const Rect text = TextRect();
    const Platform::FontMetrics& font = Platform::Font(DeviceFont()).Metrics();
    const double baseLine = LocalToPort(Point{0.0, BaseLine()}).y;
    PixelRect pixels = ChildPixels(*this, text);
    pixels.right += 1;
    pixels.top = ToDevice(baseLine, GetScale()) - font.ascent;
    if (!HasTextOption(kEdit_MultiLine))
        pixels.bottom = pixels.top + font.height;
    return pixels;
}

std::string CEditString::ShownText() const
{
    const CText text = GetText();
    if (!HasTextOption(kEdit_Password))
        return std::string(text.View());
    std::string dots;
    for (std::uint32_t i = 0; i < text.CharCount(); ++i)
        dots += kDot;
    return dots;
}

void CEditString::DrawInContext(const CPaintEvent& event)
{
    CSystemControl::DrawInContext(event);
    CSystemPort* const port = GetPort();
    if (port == nullptr)
        return;
    const Rect& bounds = GetBounds();
    const SFieldLook look{.enabled = IsUsable(),
                          .readOnly = HasTextOption(kEdit_ReadOnly),
                          .hot = fIsHot,
                          .focused = IsBullseye() && IsActive(),
                          .invalid = LooksInvalid()};
    if (HasTextOption(kEdit_NoFrame))
        port->Paint(bounds, ToolColour(look.enabled && !look.readOnly ? kColour_Field
                                                                      : kColour_FieldDisabled));
    else
        CWidgetSkin::DrawField(*port, bounds, look);
    // A sign beside the ring, since not everybody tells its colour from the others.
    if (look.invalid) {
        const double top = bounds.top + std::floor((bounds.Height() - kSignSize) / 2);
        const double right = bounds.right - kTopMargin;
        port->DrawIcon(CDrawTools::Get().GetPicture(kTool_InfoWarningSmall),
                       {right - kSignSize, top, right, top + kSignSize});
    }
    DrawText(*port);
}

// What the control covers is drawn all the same: pictures of the pane have it. The rows of several
// lines stand as close as the control's, which are as high as the font.
void CEditString::DrawText(CSystemPort& port) const
{
    const Rect frame = TextRect();
    const std::string text = ShownText();
    port.SaveState();
    port.IntersectClip(frame);
    port.SetFont(TextFont());
    port.SetTextColour(ToolColour(IsUsable() ? kColour_FieldText : kColour_FieldTextDisabled));
    if (HasTextOption(kEdit_MultiLine)) {
        const Platform::Font font(DeviceFont());
        port.DrawTextBox(text, frame, kText_Left | kText_Top | kText_Wrap,
                         font.Metrics().height / GetScale());
    } else {
        const double room = std::max(frame.Width() - port.MeasureText(text), 0.0);
        const double shift = Side() == Platform::TextSide::kMiddle  ? std::floor(room / 2)
                             : Side() == Platform::TextSide::kRight ? room
                                                                    : 0.0;
        port.DrawTextLine(text, {frame.left + shift, BaseLine()});
    }
    port.RestoreState();
}

void CEditString::Grow()
{
    if (!HasTextOption(kEdit_AutoGrow))
        return;
    const double scale = GetScale();
    const Platform::Font font(DeviceFont());
    const std::string text = ShownText();
    double width = 0.0;
    std::int32_t lines = 0;
    for (std::string_view rest = text;; ++lines) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        width = std::max(width, font.WidthOf(rest.substr(0, end)) / scale);
        if (end == rest.size())
            break;
        rest.remove_prefix(end + 1);
    }
    ++lines;
    const auto limited = [](auto value, auto least, auto most) {
        return std::max(least, most > 0 ? std::min(value, most) : value);
    };
    const Point size = SizeOf(limited(width, fGrowLimits.minWidth, fGrowLimits.maxWidth),
                              limited(lines, fGrowLimits.minLines, fGrowLimits.maxLines));
    // A field of one line never gets higher.
    SetSize(size.x, HasTextOption(kEdit_MultiLine) ? size.y : GetBounds().Height());
}

} // namespace Kesto
