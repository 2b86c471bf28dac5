#include "controls/base/child_holder.h"

#include "controls/base/child_place.h"
#include "platform/windows/focus.h"
#include "view/tree/pane.h"

namespace Kesto {

void CChildHolder::Fit(const CPane& pane, const Maker& make, const PixelRect& pixels, bool shown)
{
    const Platform::NativeWindow window = NativeWindowOf(pane);
    if (fControl == nullptr && window != nullptr && !fIsRefused) {
        fIsRefused = true;
        fControl = make(window);
        fIsRefused = false;
    }
    if (fControl == nullptr)
        return;
    fControl->Place(pixels);
    shown = shown && IsWhollyInSight(pane, pane.GetBounds());
    if (shown == fIsShown)
        return;
    fIsShown = shown;
    fControl->SetShown(shown);
    if (shown && pane.IsBullseye() && Platform::FrontmostWindow() == window)
        Platform::FocusWindow(fControl->Handle());
}

void CChildHolder::Drop()
{
    fIsShown = false;
    fIsRefused = false;
    fControl.reset();
}

} // namespace Kesto
