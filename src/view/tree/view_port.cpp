// The view's place in the port, its cursor and its tip.
#include "view/process/ui_scale.h"
#include "view/tree/context.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

namespace Kesto {

void CView::PortOffsetChild()
{
    CChildWalk walk(*this);
    while (CPane* const child = walk.Next()) {
        const CViewHold hold(*child);
        child->PortOffset();
        if (!hold.IsOver())
            child->PortOffsetChild();
    }
}

void CView::UpdateContext(CContext* context)
{
    if (fContext == context)
        return;
    const CViewHold hold(*this);
    fContext = context;
    ContextDidChange();
    CChildWalk walk(*this);
    while (CPane* const child = fContext == context ? walk.Next() : nullptr)
        child->UpdateContext(context);
}

void CView::SetPortOrigin()
{
    if (fContext == nullptr)
        return;
    const CContext::CDrawTarget& target = fContext->GetDrawTarget();
    const Point offset = GetPortOffset();
    const double scale = GetScale();
    target.port->SetWindowOrigin(
        {offset.x - target.corner.x / scale, offset.y - target.corner.y / scale});
    target.port->ResetTools();
    target.port->SetFontScale(FontScale(!NoScaleUIForFont()));
}

void CView::AddClip()
{
    if (CSystemPort* const port = GetPort())
        port->IntersectClip(GetClipRegion());
}

void CView::SetCursor(const Platform::Cursor& cursor, bool active)
{
    (active ? fActiveCursor : fInactiveCursor) = std::make_unique<Platform::Cursor>(cursor);
    if (MouseView() == this)
        ShowCursor();
}

void CView::SetTip(const CText& text, bool active)
{
    (active ? fActiveTip : fInactiveTip) = std::make_unique<CText>(text);
}

const Platform::Cursor* CView::GetCursor() const
{
    const bool active = IsUsable();
    for (const CView* view = this; view != nullptr; view = view->GetParent())
        if (view->HasCursor(active))
            return (active ? view->fActiveCursor : view->fInactiveCursor).get();
    return nullptr;
}

CText CView::GetTip() const
{
    const bool active = IsUsable();
    for (const CView* view = this; view != nullptr; view = view->GetParent())
        if (view->HasTip(active))
            return active ? *view->fActiveTip : *view->fInactiveTip;
    return {};
}

CText CView::GetTipLine(const Point& /*local*/) const
{
    return GetTip();
}

void CView::AdjustCursor(const CMouseEvent& /*event*/)
{
    ShowCursor();
}

void CView::ShowCursor()
{
    SetCursorInContext(GetCursor());
}

void CView::SetCursorInContext(const Platform::Cursor* cursor)
{
    if (fContext != nullptr)
        fContext->ShowPortCursor(cursor);
}

} // namespace Kesto
