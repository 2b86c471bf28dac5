#include "controls/base/label_text.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/image_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/tree/view.h"

#include <cmath>

namespace Kesto {
namespace {

constexpr double kAnyWidth = 1e6;

} // namespace

double MeasureLabel(std::string_view text, EFontKind font, const CView* view)
{
    CImagePort port; // draws on nothing, and measures all the same
    port.SetScaleFactor(view != nullptr ? view->GetScale() : 1.0);
    port.SetFont(CDrawTools::Get().GetFont(font));
    return std::ceil(port.MeasureTextBox(text, kAnyWidth, kText_HideMnemonic).x);
}

void DrawLabelLine(CSystemPort& port, std::string_view text, const Rect& frame, std::uint32_t flags)
{
    const double top =
        frame.top + CWidgetSkin::BaseLine(frame.Height()) - port.GetFontMetrics().baseLine;
    port.DrawTextBox(text, {frame.left, top, frame.right, frame.bottom}, flags | kText_Top);
}

} // namespace Kesto
