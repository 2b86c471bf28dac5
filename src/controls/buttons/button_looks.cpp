#include "controls/buttons/button_looks.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

namespace Kesto {
namespace {

constexpr double kBodyFocusInset = 3.0; // within the edges of a body

} // namespace

void CBevelButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    CWidgetSkin::DrawBevelButton(port, GetFrame(), state, value != kOff);
    DrawLabel(port, state, GetFrame());
    DrawFocus(port, kBodyFocusInset);
}

void CDisclosureButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    const Rect& frame = GetFrame();
    const EToolPicture picture = value == kOn        ? kTool_DiscloseDown
                                 : value == kNeutral ? kTool_DiscloseNeutral
                                                     : kTool_DiscloseRight;
    port.DrawIcon(CDrawTools::Get().GetPicture(picture),
                  {frame.left, frame.top, frame.left + 16, frame.bottom});
    DrawLabel(port, state, {frame.left + 20, frame.top, frame.right, frame.bottom});
    DrawFocus(port, 0.0);
}

void CToolButtonGraphic::GetInsets(Rect& insets) const
{
    const double side = GetLabel().IsEmpty() ? 4 : 6;
    insets = {side, 4, side, 4};
}

void CToolButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    CWidgetSkin::DrawToolButton(port, GetFrame(), state, value != kOff);
    DrawLabel(port, state, GetFrame());
    DrawFocus(port, kBodyFocusInset);
}

void CEmptyButtonGraphic::DrawLook(CSystemPort& port, EButtonState, EButtonValue)
{
    DrawFocus(port, 0.0);
}

} // namespace Kesto
