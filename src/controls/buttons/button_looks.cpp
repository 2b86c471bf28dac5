#include "controls/buttons/button_looks.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

namespace Kesto {

void CBevelButtonGraphic::GetInsets(Rect& insets) const
{
    insets = {6, 4, 6, 4};
}

void CBevelButtonGraphic::DrawDefaultRing(CSystemPort& port)
{
    DrawNormalOff(port);
}

void CBevelButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    CWidgetSkin::DrawBevelButton(port, GetFrame(), state, value != kOff);
    DrawLabel(port, state, GetFrame());
}

void CDisclosureButtonGraphic::GetInsets(Rect& insets) const
{
    insets = {20, 2, 0, 2};
}

void CDisclosureButtonGraphic::DrawDefaultRing(CSystemPort& port)
{
    DrawNormalOff(port);
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
}

void CToolButtonGraphic::GetInsets(Rect& insets) const
{
    insets = {4, 4, 4, 4};
}

void CToolButtonGraphic::DrawDefaultRing(CSystemPort& port)
{
    DrawNormalOff(port);
}

void CToolButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    CWidgetSkin::DrawToolButton(port, GetFrame(), state, value != kOff);
    DrawLabel(port, state, GetFrame());
}

void CEmptyButtonGraphic::GetInsets(Rect& insets) const
{
    insets = {};
}

void CEmptyButtonGraphic::DrawDefaultRing(CSystemPort&) {}

void CEmptyButtonGraphic::DrawLook(CSystemPort&, EButtonState, EButtonValue) {}

} // namespace Kesto
