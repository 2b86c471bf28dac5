#include "view/tree/view_hold.h"

#include "view/tree/pane.h"

namespace Kesto {

CViewHold::CViewHold(CView& view) : fView(&view), fBefore(gNewest)
{
    gNewest = this;
    ++view.fHolds;
}

CViewHold::~CViewHold()
{
    gNewest = fBefore;
    if (fView != nullptr && --fView->fHolds == 0 && fView->IsDisposed())
        delete fView;
}

bool CViewHold::IsOver() const
{
    return fView == nullptr || fView->IsDisposed();
}

void CViewHold::Forget(const CView* view)
{
    for (CViewHold* hold = gNewest; hold != nullptr; hold = hold->fBefore)
        if (hold->fView == view)
            hold->fView = nullptr;
}

CChildWalk::CChildWalk(CView& parent, Order order)
    : fParent(parent), fHold(parent), fOrder(order),
      fNext(order == Order::kForward ? 0 : parent.CountChildren()), fBefore(gNewest)
{
    gNewest = this;
}

CChildWalk::~CChildWalk()
{
    gNewest = fBefore;
}

CPane* CChildWalk::Next()
{
    if (fHold.IsOver())
        return nullptr;
    if (fOrder == Order::kForward)
        return fNext < fParent.CountChildren() ? fParent.GetChild(fNext++) : nullptr;
    return fNext > 0 ? fParent.GetChild(--fNext) : nullptr;
}

void CChildWalk::Inserted(const CView* parent, std::size_t index)
{
    for (CChildWalk* walk = gNewest; walk != nullptr; walk = walk->fBefore)
        if (&walk->fParent == parent && index < walk->fNext)
            ++walk->fNext;
}

void CChildWalk::Removed(const CView* parent, std::size_t index)
{
    for (CChildWalk* walk = gNewest; walk != nullptr; walk = walk->fBefore)
        if (&walk->fParent == parent && index < walk->fNext)
            --walk->fNext;
}

} // namespace Kesto
