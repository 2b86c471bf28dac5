#include "view/tree/pane.h"

#include "foundation/errors/first_failure.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

namespace Kesto {

CPane::CPane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CView({0.0, 0.0, frame.Width(), frame.Height()}, id, options, binding)
{
    fOrigin = {frame.left, frame.top};
}

CPane::~CPane()
{
    EndLife();
}

Point CPane::GetPortOffset() const
{
    const Point own = ParentOffset();
    if (fParent == nullptr)
        return own;
    const Point above = fParent->GetPortOffset();
    return {above.x + own.x, above.y + own.y};
}

void CPane::UpdateContext(CContext* context)
{
    if (fClient != 0 && fContext != nullptr && fContext != context)
        fContext->RemoveClient(*this);
    const bool enters = fClient != 0 && context != nullptr && context != fContext;
    if (enters)
        context->AddClient(*this, fClient);
    CView::UpdateContext(context);
}

void CPane::AttachToParent(CView& parent)
{
    const CViewHold hold(*this);
    if (ParentMessenger() != nullptr)
        LeavePath();
    SetParentMessenger(&parent);
    fParent = &parent;
    TakeParentState(parent);
    UpdateContext(parent.GetContext());
    // Each step calls hooks that may move the pane elsewhere; then the rest isn't this parent's.
    if (fParent == &parent)
        Place({});
    if (fParent == &parent && IsVisible())
        InvalidateAll();
    if (fParent == &parent)
        UpdateMessengerState();
    if (fParent == &parent)
        TellChildren();
}

void CPane::TakeParentState(const CView& parent)
{
    constexpr std::uint32_t kCopied = kState_Active | kState_Dragged | kState_Hot;
    PutState(kState_ParentShown, parent.IsVisible());
    PutState(kState_ParentEnabled, parent.IsUsable());
    PutState(kCopied, false);
    PutState(parent.State() & kCopied, true);
}

void CPane::DropParentState()
{
    PutState(kState_ParentShown | kState_ParentEnabled | kState_Active | kState_Dragged |
                 kState_Hot,
             false);
}

// Hands the state that has come from a new parent, or gone with the old one, on to the children,
// and tells this view whether it is shown now.
void CPane::TellChildren()
{
    const CViewHold hold(*this);
    const CView* const parent = fParent;
    if (IsVisible())
        DidShow();
    CChildWalk walk(*this);
    while (CPane* const child = fParent == parent ? walk.Next() : nullptr) {
        const CViewHold childHold(*child);
        child->SetParentShown(IsVisible());
        if (!childHold.IsOver())
            child->SetParentEnabled(IsUsable());
        if (!childHold.IsOver())
            child->SetActive(IsActive());
        if (!childHold.IsOver())
            child->PutHover(State() & (kState_Dragged | kState_Hot));
    }
}

void CPane::DetachFromParent()
{
    CView* const parent = fParent;
    if (parent == nullptr)
        return;
    const CViewHold hold(*this);
    CFirstFailure failure;
    failure.Try([this] { LeavePath(); });
    failure.Try([this] { LeaveMouse(); });
    if (fParent != parent)
        return failure.Throw(); // a hook has moved it
    const bool wasVisible = IsVisible();
    if (wasVisible && !parent->IsDisposed())
        failure.Try([this] { InvalidateAll(); });
    DropParentState();
    fParent = nullptr;
    SetParentMessenger(nullptr);
    failure.Try([this] { UpdateContext(nullptr); });
    if (fParent == nullptr && wasVisible)
        failure.Try([this] { DidHide(); });
    if (fParent == nullptr && !IsDisposed()) {
        failure.Try([this] { UpdateMessengerState(); });
        failure.Try([this] { TellChildren(); });
    }
    failure.Throw();
}

void CPane::SetFrameBorder(std::unique_ptr<CBorder> border, bool invalidate)
{
    SetBorder(std::move(border));
    if (invalidate)
        InvalidateAll();
}

std::int32_t CPane::GetBorderType() const
{
    return fBorder != nullptr ? fBorder->GetKind() : kFrameEmpty;
}

Rect CPane::GetInsets() const
{
    return fBorder != nullptr ? fBorder->GetEdges() : Rect{};
}

Rect CPane::GetInterior() const
{
    return fBorder != nullptr ? fBorder->GetInterior(fBounds) : fBounds;
}

CBRVRegion CPane::GetFrameRegion() const
{
    CBRVRegion region = GetLocalRegion();
    region.Subtract(GetInterior());
    return region;
}

CBRVRegion CPane::GetContentRegion() const
{
    CBRVRegion region = GetClipRegion();
    region.Intersect(GetInterior());
    return region;
}

void CPane::DrawFrame()
{
    if (fBorder != nullptr)
        fBorder->Draw(*GetPort(), fBounds);
}

void CPane::ShowTip()
{
    if (fContext != nullptr)
        fContext->ShowTipOf(this);
}

void CPane::HideTip()
{
    if (fContext != nullptr)
        fContext->ShowTipOf(nullptr);
}

void CPane::SetClient(std::uint32_t client)
{
    if (client == fClient)
        return;
    if (fContext != nullptr && fClient != 0)
        fContext->RemoveClient(*this);
    fClient = client;
    if (fContext != nullptr && fClient != 0)
        fContext->AddClient(*this, fClient);
}

bool CPane::IsTopmostTabStop() const
{
    for (const CView* view = fParent; view != nullptr; view = view->GetParent())
        if (view->IsTabStop())
            return false;
    return IsTabStop();
}

void CPane::ResetFocus()
{
    if (IsTarget())
        ResignBullseyeToParent(true);
}

} // namespace Kesto
