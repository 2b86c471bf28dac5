#include "controls/base/label_text.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/image_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/tree/view.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

constexpr double kAnyWidth = 1e6;

} // namespace

double MeasureLabel(std::string_view text, EFontKind font, const CView* view)
{
    CImagePort port; // draws on nothing, and measures all the same
    const double scale = view != nullptr ? view->GetScale() : 1.0;
    double width = 0.0;
    for (const double each : {scale, 2.0 * scale}) {
        port.SetScaleFactor(each);
        port.SetFont(CDrawTools::Get().GetFont(font));
        width = std::max(width, port.MeasureTextBox(text, kAnyWidth, kText_HideMnemonic).x);
    }
    return std::ceil(width);
}

void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame, std::uint32_t flags)
{
    const double top =
        frame.top + CWidgetSkin::BaseLine(frame.Height()) - port.GetFontMetrics().baseLine;
    port.DrawTextBox(text, {frame.left, top, frame.right, frame.bottom}, flags | kText_Top);
}

} // namespace Kesto
