// CDesktop, all windows of the toolkit from front to back, and what is true of them together.
//
// A service; reached by CServiceT<CDesktop>.
#pragma once

#include "foundation/base/link.h"
#include "platform/input/pointer.h"
#include "view/input/mouse_event.h"

#include <cstdint>

namespace Kesto {

// What the desktop has to know of a window. The window class derives from it; a window leaves the
// desktop when it dies.
class CDesktopWindow : public CLink<CDesktopWindow> {
public:
    virtual ~CDesktopWindow();

    // The native window, or null while there is none.
    virtual Platform::NativeWindow NativeHandle() const = 0;

    virtual bool IsFloat() const { return false; }    // a palette over the others
    virtual bool IsPopup() const { return false; }    // closes when something else is clicked
    virtual bool TakesClicks() const { return true; } // it is enabled
    virtual bool IsInSight() const { return true; }
    virtual bool IsDocumentOfFrame() const { return false; } // a child of a frame of many
    virtual Platform::NativeWindow OwnerHandle() const { return nullptr; }

    // Paints what waits to be painted.
    virtual void UpdateNow() {}

    // Shows a float as one that can be worked with, or not.
    virtual void ActivateFloat(bool) {}

    // The popup has been clicked away. It may die in this call.
    virtual void ClosePopup() {}

    // The mouse has moved over the window, and has left it. The window sets the pointer's shape and
    // highlights what is under it.
    virtual void PointerMoved(const CMouseEvent&) {}
    virtual void PointerGone() {}

private:
    friend class CDesktop;

    bool fOnDesktop = false;
};

class CDesktop {
public:
    CDesktop() = default;
    CDesktop(const CDesktop&) = delete;
    CDesktop& operator=(const CDesktop&) = delete;
    ~CDesktop();

    // A window opens, in front of all others; it closes.
    void Add(CDesktopWindow& window);
    void Remove(CDesktopWindow& window);
    void BringToFront(CDesktopWindow& window);

    // Null if there is none.
    CDesktopWindow* FrontWindow() const { return fWindows.Head(); }
    CDesktopWindow* WindowOf(Platform::NativeWindow native) const;

    // The one that an alert may lie above: in front, in sight, and neither a popup nor a document
    // of a frame, whose owners are taken instead. Null if there is none.
    CDesktopWindow* FrontOwner() const;

    // The window that the user works with, or null.
    CDesktopWindow* ActiveWindow() const { return fActive; }
    void SetActiveWindow(CDesktopWindow* window) { fActive = window; }

    // Modal windows open and close. The first to open deactivates the floats and updates all
    // windows, the last to close reactivates the floats.
    void BeginModal();
    void EndModal();
    std::uint32_t ModalCount() const { return fModalCount; }

    void UpdateAll();
    void DeactivateFloats();
    void ReactivateFloats();

    bool HasPopups() const;
    void ClosePopups();

    // A button went down at a point. Unless it hit a popup, all popups close. True: that is all it
    // did, since a modal window is up and no window that takes clicks was hit.
    bool ClickAway(Platform::PixelPoint point);

    // The mouse is where the event says, and the window there hears of it; no window has the mouse.
    void MouseMoved(const CMouseEvent& event);
    void ResetMouse();
    bool HasMouse() const { return fUnderMouse != nullptr; }

private:
    template <class Visit>
    void VisitAll(Visit visit);

    CLinkList<CDesktopWindow> fWindows; // front to back; not owned
    CDesktopWindow* fActive = nullptr;
    CDesktopWindow* fUnderMouse = nullptr;
    std::uint32_t fModalCount = 0;
};

} // namespace Kesto
