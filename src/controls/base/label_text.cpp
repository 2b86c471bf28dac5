#include "controls/base/label_text.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/image_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/process/ui_scale.h"
#include "view/tree/view.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

constexpr double kAnyWidth = 1e6;
constexpr double kLeastRounding = 0.01; // of a pixel

} // namespace

CSystemPort& MeasuringPort(const CView* view, EFontKind font)
{
    static CImagePort port;
    port.SetScaleFactor(view != nullptr ? view->GetScale() : 1.0);
    port.SetFont(CDrawTools::Get().GetFont(font));
    return port;
}

double WidestAtScales(CSystemPort& port, const std::function<double(const CSystemPort&)>& measure)
{
    const double scale = port.GetScaleFactor();
    double widest = measure(port);
    for (const double other : {2.0 * scale, UsualScale()})
        if (other != scale) {
            port.SetScaleFactor(other);
            widest = std::max(widest, measure(port));
        }
    port.SetScaleFactor(scale);
    return std::ceil(widest);
}

double MeasureLabel(std::string_view text, EFontKind font, const CView* view)
{
    return WidestAtScales(MeasuringPort(view, font), [text](const CSystemPort& port) {
        return port.MeasureTextBox(text, kAnyWidth, kText_HideMnemonic).x;
    });
}

void FitFont(CSystemPort& port, std::string_view text, double width, std::uint32_t marks)
{
    const CFont& font = port.GetFont();
    const double exact = font.size * port.GetScaleFactor();
    const std::int32_t pixels = ToDevice(exact, 1.0);
    if (pixels - exact < kLeastRounding || port.MeasureTextBox(text, kAnyWidth, marks).x <= width)
        return;
    CFont smaller = font;
    smaller.size *= (pixels - 1) / exact;
    port.SetFont(smaller);
}

void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame, std::uint32_t flags)
{
    if ((flags & kText_Ellipsis) != 0)
        FitFont(port, text, frame.Width(), flags & (kText_Mnemonic | kText_HideMnemonic));
    const double top =
        frame.top + CWidgetSkin::BaseLine(frame.Height()) - port.GetFontMetrics().baseLine;
    port.DrawTextBox(text, {frame.left, top, frame.right, frame.bottom}, flags | kText_Top);
}

} // namespace Kesto
