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

void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame, std::uint32_t flags)
{
    const double top =
        frame.top + CWidgetSkin::BaseLine(frame.Height()) - port.GetFontMetrics().baseLine;
    port.DrawTextBox(text, {frame.left, top, frame.right, frame.bottom}, flags | kText_Top);
}

} // namespace Kesto
