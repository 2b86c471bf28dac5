#include "view/window/window_tips.h"

#include "drawing/tools/draw_tools.h"
#include "foundation/localization/localize.h"
#include "view/tree/pane.h"
#include "view/window/window.h"

#include <algorithm>
#include <string>

namespace Kesto {
namespace {

Platform::FontSpec TipFont(double scale)
{
    const CFont& font = CDrawTools::Get().GetFont(kFont_UI);
    Platform::FontSpec spec;
    spec.face = std::string(font.face.View());
    spec.pixels = std::max(ToDevice(font.size, scale), 1);
    spec.weight = font.bold ? 700 : 400;
    spec.italic = font.italic;
    return spec;
}

} // namespace

CWindowTips::CWindowTips(CWindow& window) : CTimer(kDelay), fWindow(window) {}

// The deepest view whose tip it is opens it: one without a tip of its own shares its parent's.
void CWindowTips::MouseMoved(const CMouseEvent& event)
{
    const Point local = fWindow.PortToLocal(event.fPortPoint);
    CView* const view = fWindow.GetTipChild(local);
    const CText text = view->GetTipLine(view->PortToLocal(event.fPortPoint));
    if (view == fView && text == fText)
        return;
    Dismiss();
    Note(*view, text);
    if (fText.IsEmpty() || !fWindow.IsVisible())
        return;
    SetPeriod(kDelay);
    Start();
}

void CWindowTips::Note(CView& view, const CText& text)
{
    fView = &view;
    fText = text;
    fPlace = view.GetGlobalRect();
}

void CWindowTips::OpenFor(CPane& pane)
{
    Dismiss();
    Note(pane, pane.GetTip());
    if (fText.IsEmpty() || !fWindow.IsVisible())
        return;
    Open();
    SetPeriod(kStay);
    Start();
}

void CWindowTips::Dismiss()
{
    Stop();
    fTip.Hide();
}

// The first time it opens the tip, the second time it takes it away.
void CWindowTips::Fire(double, double)
{
    Stop();
    if (fTip.IsShown()) {
        fTip.Hide();
        return;
    }
    Open();
    SetPeriod(kStay);
    Start();
}

void CWindowTips::Open()
{
    const CDrawTools& tools = CDrawTools::Get();
    Platform::TipLook look;
    look.font = TipFont(fWindow.GetScaleFactor());
    look.text = tools.GetColour(kColour_TipText);
    look.ground = tools.GetColour(kColour_Tip);
    look.edge = tools.GetColour(kColour_TipEdge);
    look.margin = ToDevice(look.margin, fWindow.GetScaleFactor());
    CText text = fText;
    Localize(text);
    fTip.Show(fWindow.GetSystemWindow(), fPlace, text.CStr(), look);
}

} // namespace Kesto
