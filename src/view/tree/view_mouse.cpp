// The mouse: which view it is over, and what a press does.
#include "view/messages/message_ids.h"
#include "view/tree/context.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <cmath>
#include <utility>

namespace Kesto {
namespace {

// Clicks belong to one series while they fall near each other, soon enough, on one view by one
// button.
struct ClickSeries {
    CView* view = nullptr;
    CObjID button;
    Point place; // in the port
    double time = 0.0;
    int count = 0;

    // Port units, exclusive; seconds.
    static constexpr double kNear = 3.0;
    static constexpr double kUpGrace = 0.2;

    bool GoesOn(const CView& on, const CMouseEvent& event, double grace) const
    {
        const CContext* const context = on.GetContext();
        const double limit = (context != nullptr ? context->GetDoubleClickTime() : 0.5) + grace;
        return view == &on && button == event.fButton &&
               std::abs(event.fPortPoint.x - place.x) < kNear &&
               std::abs(event.fPortPoint.y - place.y) < kNear && event.fTime - time <= limit;
    }
    void Note(CView& on, const CMouseEvent& event, int newCount)
    {
        view = &on;
        button = event.fButton;
        place = event.fPortPoint;
        time = event.fTime;
        count = newCount;
    }
};

CView* gMouseView = nullptr;
CView* gLastMouseDownView = nullptr;
ClickSeries gLastClick;

enum class ButtonAction { kClick, kUp };

} // namespace

CView* CView::MouseView()
{
    return gMouseView;
}

CView* CView::LastMouseDownView()
{
    return gLastMouseDownView;
}

// The hook of each view above, the nearest first.
void CView::TellParents(void (CView::*hook)(CView&))
{
    for (CView* view = GetParent(); view != nullptr;) {
        const CViewHold hold(*view);
        (view->*hook)(*this);
        view = hold.IsOver() ? nullptr : view->GetParent();
    }
}

void CView::LeaveMouseView()
{
    CView* const view = std::exchange(gMouseView, nullptr);
    if (view == nullptr)
        return;
    const CViewHold hold(*view);
    view->SetCursorInContext(nullptr);
    view->MouseExit();
    view->TellParents(&CView::MouseExit2);
}

// For a view that is destroyed: no pointer of the mouse names it or anything below it.
void CView::LeaveMouse()
{
    if (fContext != nullptr)
        fContext->ForgetTrackerOf(*this);
    if (IsAncestorOf(gMouseView))
        LeaveMouseView();
    if (IsAncestorOf(gLastMouseDownView))
        gLastMouseDownView = nullptr;
    if (IsAncestorOf(gLastClick.view))
        gLastClick = {};
}

CView* CView::ChildUnder(const Point& local) const
{
    for (CPane* const child : ChildrenNear(Rect{local.x, local.y, local.x, local.y})) {
        if (!child->IsVisible() || child->IsMouseIgnored())
            continue;
        const Point at = child->ParentToLocal(local);
        const Rect& bounds = child->fBounds;
        if (at.x >= bounds.left && at.x < bounds.right && at.y >= bounds.top &&
            at.y < bounds.bottom && child->GetClipRegion().Contains(at.x, at.y))
            return child;
    }
    return nullptr;
}

CView* CView::ChildAtPoint(const Point& local)
{
    CView* const child = ChildUnder(local);
    return child != nullptr ? child->ChildAtPoint(child->ParentToLocal(local)) : this;
}

void CView::MouseMoved(const CMouseEvent& event)
{
    if (CView* const child = ChildUnder(PortToLocal(event.fPortPoint))) {
        MouseMovedChild(*child, event);
        return;
    }
    const CViewHold hold(*this);
    if (gMouseView != this) {
        LeaveMouseView();
        if (hold.IsOver())
            return;
        gMouseView = this;
        MouseEnter(event);
        // A hook may move the mouse to another view.
        if (gMouseView == this)
            TellParents(&CView::MouseEnterChild);
    }
    if (gMouseView == this)
        MouseOver(event);
    if (gMouseView == this)
        AdjustCursor(event);
}

void CView::MouseMovedChild(CView& child, const CMouseEvent& event)
{
    child.MouseMoved(event);
}

// False: somebody keeps the focus, and the click is over.
bool CView::AsksForFocus()
{
    if (!NoFocusOnClick() && CanBullseye())
        return IsBullseye() || BecomeBullseye(SupressSurrenders());
    return SupressSurrenders() || AskToSurrender();
}

void CView::MouseDown(const CMouseEvent& event)
{
    gLastMouseDownView = nullptr;
    if (!IsUsable())
        return;
    const CViewHold hold(*this);
    if (!AsksForFocus() || hold.IsOver())
        return;
    gLastMouseDownView = this;
    ClickOnSelf(event);
}

// Counted at the release, a press begins a series or goes on with it, and adds nothing.
void CView::ClickOnSelf(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    const bool atRelease = HasState(kState_MultiOnMouseUp);
    const bool goesOn = gLastClick.GoesOn(*this, event, 0.0);
    const int count = !goesOn ? 1 : gLastClick.count + (atRelease ? 0 : 1);
    gLastClick.Note(*this, event, count);
    if (!atRelease && count >= 2 && DoubleClick(event, count))
        return;
    if (!hold.IsOver())
        DoClick(event);
}

namespace {

struct ButtonHooks {
    const CObjID& button;
    void (CView::*click)(const CMouseEvent&);
    bool (CView::*multiClick)(const CMouseEvent&, int);
    void (CView::*up)(const CMouseEvent&);
};

const ButtonHooks* HooksOf(CObjID button)
{
    static const ButtonHooks kHooks[] = {
        {kMouseButton_Primary, &CView::PrimaryClick, &CView::PrimaryMultiClick, &CView::PrimaryUp},
        {kMouseButton_Context, &CView::ContextClick, &CView::ContextMultiClick, &CView::ContextUp},
        {kMouseButton_Tertiary, &CView::TertiaryClick, &CView::TertiaryMultiClick,
         &CView::TertiaryUp},
        {kMouseButton_Backward, &CView::BackwardClick, &CView::BackwardMultiClick,
         &CView::BackwardUp},
        {kMouseButton_Forward, &CView::ForwardClick, &CView::ForwardMultiClick, &CView::ForwardUp},
    };
    for (const ButtonHooks& hooks : kHooks)
        if (hooks.button == button)
            return &hooks;
    return nullptr;
}

} // namespace

void CView::DoClick(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    const ButtonHooks* const hooks = HooksOf(event.fButton);
    if (!TrackClick(event) && hooks != nullptr && !hold.IsOver())
        (this->*hooks->click)(event);
}

bool CView::DoubleClick(const CMouseEvent& event, int count)
{
    const CViewHold hold(*this);
    const ButtonHooks* const hooks = HooksOf(event.fButton);
    return hooks != nullptr && (this->*hooks->multiClick)(event, count);
}

void CView::MouseUp(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    const ButtonHooks* const hooks = HooksOf(event.fButton);
    if (!IsUsable() || hooks == nullptr)
        return;
    (this->*hooks->up)(event);
    if (hold.IsOver() || !HasState(kState_MultiOnMouseUp) ||
        !gLastClick.GoesOn(*this, event, ClickSeries::kUpGrace))
        return;
    gLastClick.Note(*this, event, gLastClick.count + 1);
    if (gLastClick.count >= 3)
        DoubleClick(event, gLastClick.count - 1);
}

bool CView::SendWheel(const CMouseEvent& event)
{
    for (CView* view = this; view != nullptr;) {
        const CViewHold hold(*view);
        if (view->MouseWheel(event))
            return true;
        view = view->GetParent();
    }
    return false;
}

void CView::ContextClick(const CMouseEvent& event)
{
    if (HasState(kState_ContextClick))
        PrimaryClick(event);
}

bool CView::ContextMultiClick(const CMouseEvent& event, int count)
{
    return HasState(kState_ContextClick) && PrimaryMultiClick(event, count);
}

void CView::ContextUp(const CMouseEvent& event)
{
    if (HasState(kState_ContextClick))
        PrimaryUp(event);
}

} // namespace Kesto
