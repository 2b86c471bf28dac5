#include "view/process/desktop.h"

#include "foundation/base/service.h"
#include "platform/windows/system_window.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Kesto {

CDesktopWindow::~CDesktopWindow()
{
    CDesktop* const desktop = fOnDesktop ? CServiceT<CDesktop>::Get(false) : nullptr;
    if (desktop != nullptr)
        desktop->Remove(*this);
}

CDesktop::~CDesktop()
{
    while (CDesktopWindow* const window = fWindows.Head())
        Remove(*window);
}

void CDesktop::Add(CDesktopWindow& window)
{
    if (window.fOnDesktop)
        return;
    window.fOnDesktop = true;
    fWindows.AddHead(window);
}

void CDesktop::Remove(CDesktopWindow& window)
{
    if (!window.fOnDesktop)
        return;
    window.fOnDesktop = false;
    fWindows.Remove(window);
    if (fActive == &window)
        fActive = nullptr;
    if (fUnderMouse == &window)
        fUnderMouse = nullptr;
}

void CDesktop::BringToFront(CDesktopWindow& window)
{
    if (!window.fOnDesktop || fWindows.Head() == &window)
        return;
    fWindows.Remove(window);
    fWindows.AddHead(window);
}

// A child control belongs to the window that holds it.
CDesktopWindow* CDesktop::WindowOf(Platform::NativeWindow child) const
{
    const Platform::NativeWindow native = Platform::TopWindowOf(child);
    CDesktopWindow* window = native != nullptr ? fWindows.Head() : nullptr;
    while (window != nullptr && window->NativeHandle() != native)
        window = window->fNext;
    return window;
}

CDesktopWindow* CDesktop::FrontOwner() const
{
    CDesktopWindow* window = fWindows.Head();
    while (window != nullptr && !window->IsInSight())
        window = window->fNext;
    while (window != nullptr && (window->IsPopup() || window->IsDocumentOfFrame()))
        window = WindowOf(window->OwnerHandle());
    return window;
}

void CDesktop::BeginModal()
{
    if (fModalCount++ != 0)
        return;
    DeactivateFloats();
    UpdateAll();
}

void CDesktop::EndModal()
{
    if (fModalCount != 0 && --fModalCount == 0)
        ReactivateFloats();
}

// Windows may open, close and change places during a visit; one that has closed is left out.
template <class Visit>
void CDesktop::VisitAll(Visit visit)
{
    std::vector<CDesktopWindow*> windows;
    for (CDesktopWindow* window = fWindows.Head(); window != nullptr; window = window->fNext)
        windows.push_back(window);
    const auto isHere = [this](const CDesktopWindow* wanted) {
        const CDesktopWindow* window = fWindows.Head();
        while (window != nullptr && window != wanted)
            window = window->fNext;
        return window != nullptr;
    };
    for (CDesktopWindow* const window : windows)
        if (isHere(window))
            visit(*window);
}

void CDesktop::UpdateAll()
{
    VisitAll([](CDesktopWindow& window) { window.UpdateNow(); });
}

void CDesktop::DeactivateFloats()
{
    VisitAll([](CDesktopWindow& window) {
        if (window.IsFloat())
            window.ActivateFloat(false);
    });
}

void CDesktop::ReactivateFloats()
{
    VisitAll([](CDesktopWindow& window) {
        if (window.IsFloat())
            window.ActivateFloat(true);
    });
}

bool CDesktop::HasPopups() const
{
    for (const CDesktopWindow* window = fWindows.Head(); window != nullptr; window = window->fNext)
        if (window->IsPopup())
            return true;
    return false;
}

void CDesktop::ClosePopups()
{
    VisitAll([](CDesktopWindow& window) {
        if (window.IsPopup())
            window.ClosePopup();
    });
}

bool CDesktop::ClickAway(Platform::PixelPoint point)
{
    const CDesktopWindow* const hit = WindowOf(Platform::WindowAt(point));
    if (!HasPopups() || (hit != nullptr && hit->IsPopup()))
        return false;
    const bool hitsNothing = hit == nullptr || !hit->TakesClicks();
    ClosePopups();
    return fModalCount != 0 && hitsNothing;
}

void CDesktop::MouseMoved(const CMouseEvent& event)
{
    CDesktopWindow* const window = WindowOf(event.fWindow);
    if (fUnderMouse != window)
        ResetMouse();
    fUnderMouse = window;
    if (window != nullptr)
        window->PointerMoved(event);
}

void CDesktop::ResetMouse()
{
    if (CDesktopWindow* const window = std::exchange(fUnderMouse, nullptr))
        window->PointerGone();
}

} // namespace Kesto
