// Construction, disposal, and the search for children.
#include "foundation/errors/first_failure.h"
#include "view/messages/message_ids.h"
#include "view/messages/messenger_watch.h"
#include "view/messages/process_link.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"

#include <array>

namespace Kesto {
namespace {

struct OptionState {
    std::uint32_t option;
    std::uint32_t state;
};

constexpr std::array kOptionStates = {
    OptionState{kView_Target, CView::kState_WantsTarget},
    OptionState{kView_Bullseye, CView::kState_WantsTarget | CView::kState_WantsBullseye},
    OptionState{kView_TabStop,
                CView::kState_WantsTarget | CView::kState_WantsBullseye | CView::kState_IsTabStop},
    OptionState{kView_TargetRing, CView::kState_TargetRing},
    OptionState{kView_ContextClick, CView::kState_ContextClick},
    OptionState{kView_InvalidOnActivate, CView::kState_InvalidOnActivate},
    OptionState{kView_DrawBuffer, CView::kState_DrawBuffer},
    OptionState{kView_DrawParts, CView::kState_DrawParts},
    OptionState{kView_ChunkyScroll, CView::kState_ChunkyScroll},
    OptionState{kView_EntireScroll, CView::kState_EntireScroll},
    OptionState{kView_BigCoordinates, CView::kState_BigCoordinates},
    OptionState{kView_IgnoreMouseEvents, CView::kState_IgnoreMouse},
    OptionState{kView_MultiOnMouseUp, CView::kState_MultiOnMouseUp},
    OptionState{kView_NoFocusOnClick, CView::kState_NoFocusOnClick},
    OptionState{kView_NoTabNavigate, CView::kState_NoTabNavigate},
    OptionState{kView_SupressSurrenders, CView::kState_SupressSurrenders},
    OptionState{kView_NoScaleUIForFont, CView::kState_NoScaleUIForFont},
};

std::uint32_t StateOf(std::uint32_t options)
{
    std::uint32_t state = 0;
    if ((options & kView_Invisible) == 0)
        state |= CView::kState_Shown;
    if ((options & kView_Disabled) == 0)
        state |= CView::kState_Enabled;
    for (const OptionState& row : kOptionStates)
        if ((options & row.option) != 0)
            state |= row.state;
    return state;
}

} // namespace

CView::CView(const Rect& bounds, CObjID id, std::uint32_t options, std::uint32_t binding)
    : fBounds(bounds), fScrollLimits(bounds), fImage(bounds), fState(StateOf(options)),
      fBinding(binding)
{
    CMessenger::SetID(id);
}

CView::~CView() = default;

void CView::Dispose()
{
    if (IsDisposed())
        return;
    const CViewHold hold(*this);
    PutState(kState_Disposed, true);
    TearDown();
}

void CView::EndLife()
{
    ++fHolds; // so that no hold deletes what is being deleted
    CViewHold::Forget(this);
    if (IsDisposed())
        return;
    PutState(kState_Disposed, true);
    try {
        TearDown();
    } catch (...) { // a destructor has nobody to tell
    }
}

// Whatever a hook throws, the steps after it are done: half disposed of, the view would be deleted
// while others still know it.
void CView::TearDown()
{
    CFirstFailure failure;
    failure.Try([this] { LeavePath(); });
    failure.Try([this] { LeaveMouse(); });
    failure.Try([this] { DisposeContents(); });
    CView* const parent = GetParent();
    // A climb that is at this view goes on above it, and nothing posted finds it any more.
    CMessengerWatch::Forget(this);
    if (CProcessLink* const process = CProcessLink::Current())
        process->ForgetMessenger(this);
    if (parent != nullptr) {
        const CViewHold hold(*parent);
        failure.Try([&] { parent->RemoveChild(static_cast<CPane*>(this)); });
        failure.Try([&] {
            CCommandMessage message(this, kMessage_DisposePane);
            parent->SendCommand(message);
        });
    }
    failure.Throw();
}

void CView::DisposeContents()
{
    const CViewHold hold(*this);
    CFirstFailure failure;
    while (!fChildren.empty()) {
        CPane* const last = fChildren.back();
        failure.Try([last] { last->Dispose(); });
        // One whose disposal is under way further up the stack goes on with that.
        if (!fChildren.empty() && fChildren.back() == last)
            failure.Try([this, last] { RemoveChild(last); });
    }
    failure.Throw();
}

CPane* CView::GetChild(std::size_t index) const
{
    return index < fChildren.size() ? fChildren[index] : nullptr;
}

CPane* CView::FindChild(CObjID id, bool deep) const
{
    for (CPane* const child : fChildren) {
        if (child->GetID() == id)
            return child;
        if (CPane* const found = deep ? child->FindChild(id, true) : nullptr)
            return found;
    }
    return nullptr;
}

CPane* CView::FindSibling(CObjID id, bool deep) const
{
    const CView* const parent = GetParent();
    return parent != nullptr ? parent->FindChild(id, deep) : nullptr;
}

CMessenger* CView::FindSubMessenger(CObjID id)
{
    for (CPane* const child : fChildren)
        if (CMessenger* const found = child->FindMessenger(id))
            return found;
    return nullptr;
}

bool CView::IsAncestorOf(const CView* view) const
{
    while (view != nullptr && view != this)
        view = view->GetParent();
    return view != nullptr;
}

} // namespace Kesto
