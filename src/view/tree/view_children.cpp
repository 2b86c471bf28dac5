// Putting children in and taking them out.
#include "foundation/errors/first_failure.h"
#include "view/tree/pane.h"
#include "view/tree/view_depth.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <stdexcept>

namespace Kesto {
namespace {

// Of the views from the root to this one.
int DepthOf(const CView& view)
{
    int depth = 1;
    for (const CView* parent = view.GetParent(); parent != nullptr; parent = parent->GetParent())
        ++depth;
    return depth;
}

// Of the views from this one to its deepest leaf.
int HeightOf(const CView& view)
{
    int below = 0;
    for (std::size_t i = 0; i < view.CountChildren(); ++i)
        below = std::max(below, HeightOf(*view.GetChild(i)));
    return 1 + below;
}

} // namespace

std::size_t CView::IndexOf(const CView* child) const
{
    // From the end, where those are that are destroyed with the whole tree.
    const auto found = std::find(fChildren.rbegin(), fChildren.rend(), child);
    return found == fChildren.rend()
               ? kNoIndex
               : fChildren.size() - 1 - static_cast<std::size_t>(found - fChildren.rbegin());
}

void CView::InsertChild(std::size_t index, std::unique_ptr<CPane> child)
{
    if (child == nullptr)
        return;
    if (DepthOf(*this) + HeightOf(*child) > kMaxViewDepth)
        throw std::logic_error("Warning! (depth <= kMaxViewDepth)");
    const CViewHold hold(*this);
    const std::size_t place = std::min(index, fChildren.size());
    fChildren.insert(fChildren.begin() + static_cast<std::ptrdiff_t>(place), child.get());
    ++fChildrenStamp;
    fRun = ERun::kUnknown;
    CChildWalk::Inserted(this, place);
    child.release()->AttachToParent(*this);
}

std::unique_ptr<CPane> CView::RemoveChild(CPane* child)
{
    const std::size_t index =
        child != nullptr && child->GetParent() == this ? IndexOf(child) : kNoIndex;
    if (index == kNoIndex)
        return nullptr;
    const CViewHold hold(*this);
    fChildren.erase(fChildren.begin() + static_cast<std::ptrdiff_t>(index));
    ++fChildrenStamp;
    fRun = ERun::kUnknown;
    CChildWalk::Removed(this, index);
    const CViewHold childHold(*child);
    CFirstFailure failure;
    failure.Try([child] { child->DetachFromParent(); });
    // One that was disposed of, now or before, is deleted with the last of its holds.
    std::unique_ptr<CPane> removed(childHold.IsOver() ? nullptr : child);
    failure.Throw();
    return removed;
}

} // namespace Kesto
