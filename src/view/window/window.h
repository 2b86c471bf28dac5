// CWindow, a window of the screen: the root of a tree of views, a thing that runs, and a link in
// the desktop's list.
//
// It passes the usual length, since the native window's messages have one handler each; the groups
// are sources of their own: life, showing and modality, messages, geometry, keys, painting.
//
// There is no native window at first. Start prepares it (Prepare) and opens it (Open); Stop takes
// it back, with the views. Being asked to be done ends it at the next poll, if whoever has the
// focus in it lets go. A window is the top of its own path: what has the focus in it keeps that
// while another window is used, unasked, and has it again when this one becomes active.
#pragma once

#include "platform/windows/system_window.h"
#include "view/process/desktop.h"
#include "view/process/executable.h"
#include "view/process/idler.h"
#include "view/tree/context.h"
#include "view/window/window_options.h"
#include "view/window/window_placement.h"
#include "view/window/window_tips.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Kesto {

class CSizeBox;
class CWindowButton;

struct CWindowPlan {
    CExecutable* super = nullptr; // what it runs below; the process at work, if null
    CMessenger* owner = nullptr;  // whose window it lies above; the thread's active one, if null
    Platform::NativeWindow ownerWindow = nullptr; // the same, named by its native window
    EWindowKind kind = kWin_Dialog;
    std::uint32_t features = kWin_CanClose | kWin_CanMove | kWin_CanTarget;
    bool autoOpen = false; // starts with what it runs below
    Point size{200.0, 100.0};
    CObjID id;
    CText title;
    CWindowPlacement placement;
};

class CWindow : public CContext,
                public CExecutable,
                public CDesktopWindow,
                private Platform::WindowProcedure {
public:
    // Bits of the window's state.
    static constexpr std::uint32_t kWindow_MDIChild = 1U << 0;
    static constexpr std::uint32_t kWindow_Modal = 1U << 1;
    static constexpr std::uint32_t kWindow_Popup = 1U << 2;
    static constexpr std::uint32_t kWindow_CloseKey = 1U << 5;
    static constexpr std::uint32_t kWindow_HasSizeBox = 1U << 8;
    static constexpr std::uint32_t kWindow_LiveSizeBox = 1U << 9;
    static constexpr std::uint32_t kWindow_MDIFrame = 1U << 12;
    static constexpr std::uint32_t kWindow_MDIDocument = 1U << 13;
    static constexpr std::uint32_t kWindow_DisableOwner = 1U << 14;
    static constexpr std::uint32_t kWindow_HoldsModal = 1U << 15;
    static constexpr std::uint32_t kWindow_OwnerProcessed = 1U << 16;
    static constexpr std::uint32_t kWindow_OwnerDisabled = 1U << 22;
    static constexpr std::uint32_t kWindow_Zooming = 1U << 26;
    static constexpr std::uint32_t kWindow_Maximized = 1U << 27;
    static constexpr std::uint32_t kWindow_WasMaximized = 1U << 28;

    // kWin_CanTabStop turns kWin_CanBullseye on, and that kWin_CanTarget.
    explicit CWindow(const CWindowPlan& plan);
    ~CWindow() override;

    EWindowKind GetKind() const { return fKind; }
    std::uint32_t GetFeatures() const { return fFeatures; }
    bool HasFeature(std::uint32_t feature) const { return (fFeatures & feature) != 0; }
    void SetFeatures(std::uint32_t features);
    std::uint32_t GetWindowState() const { return fWindowState; }
    // Modal takes the desktop's modal count and disables the owner; before it is shown.
    void SetModal(bool on);
    bool IsModal() const { return (fWindowState & kWindow_Modal) != 0; }

    // ------------------------------------------------------------ Geometry (window_geometry.cpp)

    // Pixels of the screen: all of it; the content; and the content's size in units.
    virtual Platform::PixelRect GetWindowFrame() const;
    virtual Platform::PixelRect GetWindowBounds() const;
    virtual Rect GetContentFrame() const { return GetBounds(); }
    // Of the frame's corner, in pixels; of the content, in units.
    virtual void MoveWindow(const PixelPoint& corner);
    virtual void SizeWindow(const Point& size);
    virtual void ZoomWindow() { ToggleZoom(); }
    virtual void MinimizeWindow();
    virtual void MaximizeWindow();
    virtual void RestoreWindow();
    virtual void ToggleZoom();
    virtual void CenterOnScreen();
    virtual void CenterOnOwner();
    // Pulls it onto the monitor that shows most of it.
    virtual void FitOnMonitor();
    virtual void SetTitle(const CText& title);
    virtual const CText& GetTitle() const { return fTitle; }

    // The least and the most size of the content; the larger of two minima counts.
    CSizeLimits GetSizeLimits() const override { return fLimits; }
    void SetSizeLimits(const CSizeLimits& limits) { fLimits = limits; }

    const CWindowPlacement& GetPlacement() const { return fPlacement; }
    void SetPlacement(const CWindowPlacement& placement) { fPlacement = placement; }

    // --------------------------------------------------------------------- Life (window_life.cpp)

    // Makes the native window, the views and the size box, once.
    virtual void Prepare();
    // The views and the size box alone, for a window that is to be drawn without a native one.
    void PrepareViews();
    // Activates and shows it; the first time it also gives the focus to its first stop.
    virtual void Open();
    virtual void CreateSystemWindow(); // throws CSystemError
    virtual void DisposeSystemWindow();
    // Notes where it is; a window with a store of its own writes it there.
    virtual void SavePlacement();
    // What the close box does: sends kWindow_CloseBox.
    virtual void DoClose();
    // Hooks.
    virtual void CreateViews() {}
    virtual void DidPrepare() {}
    virtual void AfterShow() {}

    void OnStart() override;
    void OnStop() override;
    bool CanFinish() override;

    // ------------------------------------------------------------------- Showing (window_show.cpp)

    // Without a native window the views alone are shown, so that they can be drawn.
    void Show() override;
    void Hide() override;
    virtual void DisableOwner();
    virtual void EnableOwner();
    // The command of the next Show, instead of the one that kind and state give.
    void SetShowCommand(Platform::ShowCommand command) { fShowCommand = command; }

    // ---------------------------------------------------------------------- Keys (window_keys.cpp)

    virtual void AddKeyPane(CPane& pane);
    virtual void RemoveKeyPane(CPane& pane);
    // Its turns come from the pump, at most kIdleTurns a second.
    static constexpr double kIdleTurns = 60.0;
    virtual void AddIdlePane(CPane& pane);
    virtual void RemoveIdlePane(CPane& pane);
    void AddClient(CPane& pane, std::uint32_t client) override;
    void RemoveClient(CPane& pane) override;
    // Offers a key to the panes that have registered. True: one has taken it.
    virtual bool KeyToPanes(CKeyboardMessage& message);
    void AddButton(CWindowButton& button);
    void RemoveButton(CWindowButton& button);
    // The first that can be pressed now; null for none.
    virtual CWindowButton* FindDefaultButton() const;
    virtual CWindowButton* FindCancelButton() const;

    // A key message of the platform, sent on to whoever has the focus in this window. True: it was
    // taken. Child controls hand theirs in here.
    bool SendPlatformKey(const Platform::WindowMessage& message);

    bool HandleKey(CKeyboardMessage& message) override;
    bool HandleCommand(CCommandMessage& message) override;

    // ------------------------------------------------------------------------- What bases ask for

    // Among its views, then among what runs below it.
    CMessenger* FindSubMessenger(CObjID id) override;
    Platform::NativeWindow GetSystemWindow() override { return fWindow; }
    Platform::NativeWindow GetOwnerWindow() override { return fWindow; }
    bool IsForeground() override;
    bool BecomeBullseye(bool force) override;
    bool TargetChild(CMessenger* child, bool force) override;
    bool ResignTarget(bool force) override;
    void DidBecomeBullseye() override;

    void DrawBackground() override; // of the theme
    void AddInvalid(const CDeviceRegion& pixels) override;
    void RemoveInvalid(const CDeviceRegion& pixels) override;
    void UpdateNow() override;
    void PixelsDrawn(const CDeviceRegion& pixels) override;
    double GetDoubleClickTime() const override;
    void ShowPortCursor(const Platform::Cursor* cursor) override;
    void ShowTipOf(CPane* pane) override;
    const CWindowTips& Tips() const { return fTips; }
    void SetTracker(CViewTracker* tracker) override;

    Platform::NativeWindow NativeHandle() const override { return fWindow; }
    bool IsFloat() const override { return fKind == kWin_Palette || fKind == kWin_Toolbar; }
    bool IsPopup() const override; // while it is open
    bool TakesClicks() const override { return Platform::IsSystemWindowEnabled(fWindow); }
    bool IsInSight() const override { return IsVisible(); }
    bool IsDocumentOfFrame() const override { return HasWindowState(kWindow_MDIDocument); }
    Platform::NativeWindow OwnerHandle() const override { return fOwnerWindow; }
    void ActivateFloat(bool on) override { SetActive(on); }
    void ClosePopup() override;
    void PointerMoved(const CMouseEvent& event) override;
    void PointerGone() override;

protected:
    // -------------------------------------------- Messages (window_messages.cpp has their table)

    // Sends a message to its handler below; what has none goes to DefaultProc.
    virtual std::intptr_t WindowProc(const Platform::WindowMessage& message);
    virtual std::intptr_t DefaultProc(const Platform::WindowMessage& message);

    // One for each message, or family of messages, in the table's order. They answer for the
    // platform.
    virtual std::intptr_t OnMove(const Platform::WindowMessage& message);
    virtual std::intptr_t OnSize(const Platform::WindowMessage& message);
    virtual std::intptr_t OnActivate(const Platform::WindowMessage& message);
    virtual std::intptr_t OnFrameActivate(const Platform::WindowMessage& message);
    virtual std::intptr_t OnActivateApp(const Platform::WindowMessage& message);
    virtual std::intptr_t OnSetFocus(const Platform::WindowMessage& message);
    virtual std::intptr_t OnKillFocus(const Platform::WindowMessage& message);
    virtual std::intptr_t OnEnable(const Platform::WindowMessage& message);
    virtual std::intptr_t OnShowWindow(const Platform::WindowMessage& message);
    virtual std::intptr_t OnPaint(const Platform::WindowMessage& message);
    virtual std::intptr_t OnEraseBackground(const Platform::WindowMessage& message);
    virtual std::intptr_t OnClose(const Platform::WindowMessage& message);
    virtual std::intptr_t OnScaleMayHaveChanged(const Platform::WindowMessage& message);
    virtual std::intptr_t OnScaleChanged(const Platform::WindowMessage& message);
    virtual std::intptr_t OnCancelMode(const Platform::WindowMessage& message);
    virtual std::intptr_t OnCaptureChanged(const Platform::WindowMessage& message);
    virtual std::intptr_t OnGetMinMaxInfo(const Platform::WindowMessage& message);
    virtual std::intptr_t OnNotifyFormat(const Platform::WindowMessage& message);
    virtual std::intptr_t OnKey(const Platform::WindowMessage& message);
    virtual std::intptr_t OnTimer(const Platform::WindowMessage& message);
    virtual std::intptr_t OnMouseMove(const Platform::WindowMessage& message);
    virtual std::intptr_t OnButtonDown(const Platform::WindowMessage& message);
    virtual std::intptr_t OnButtonUp(const Platform::WindowMessage& message);
    virtual std::intptr_t OnWheel(const Platform::WindowMessage& message);
    virtual std::intptr_t OnEnterSizeMove(const Platform::WindowMessage& message);
    virtual std::intptr_t OnExitSizeMove(const Platform::WindowMessage& message);
    virtual std::intptr_t OnFrameDestroyed(const Platform::WindowMessage& message);

private:
    std::intptr_t Receive(const Platform::WindowMessage& message) override;
    void PutWindowState(std::uint32_t bits, bool on);
    bool HasWindowState(std::uint32_t bits) const { return (fWindowState & bits) != 0; }
    bool HasFocusWithin() const;
    void TakeFocusBack();
    void FocusFirstStop();
    void MirrorFocus();
    bool KeyInTracking(std::uint32_t number);
    bool PressButton(CWindowButton* button, std::uint32_t key);
    bool IsCloseKey(const CKeyboardMessage& message) const;
    CMouseEvent EventOf(const Platform::WindowMessage& message) const;
    Platform::PixelRect StartPlace() const;
    double WantedScale(Platform::NativeWindow near) const;
    Platform::ShowCommand NextShowCommand();
    bool OpensBehind() const;
    void ForgetSystemWindow();
    void AddToClients(CPane& pane, std::uint32_t bit, bool on);

    // Has the idle panes' turns come while there are any.
    class CPaneTurns final : public CIdler {
    public:
        explicit CPaneTurns(CWindow& window) : CIdler(1.0 / kIdleTurns), fWindow(window) {}
        void Idle() override { fWindow.RunIdlePanes(); }

    private:
        CWindow& fWindow;
    };

    struct CMessageRow {
        std::uint32_t number;
        std::intptr_t (CWindow::*handler)(const Platform::WindowMessage& message);
    };
    static const CMessageRow kMessageRows[];
    static std::size_t MessageRowCount();

    EWindowKind fKind;
    std::uint32_t fFeatures;
    std::uint32_t fWindowState = 0;
    CMessenger* fOwner; // not owned; asked only while the native window is made
    Platform::NativeWindow fGivenOwner;
    Platform::NativeWindow fWindow = nullptr;
    Platform::NativeWindow fOwnerWindow = nullptr;
    CSizeBox* fSizeBox = nullptr; // a child
    CWindowPlacement fPlacement;
    CSizeLimits fLimits;
    CText fTitle;
    std::optional<Platform::ShowCommand> fShowCommand;
    std::vector<CWindowButton*> fButtons; // not owned
    CWindowTips fTips{*this};
    CPaneTurns fPaneTurns{*this};
    std::uint32_t fDroppedKey = 0; // whose press has been used up
    std::uint32_t fLastKey = 0;    // the code that characters come from
    bool fWasOpened = false;
    bool fPaintFailed = false; // and has been reported
    bool fScaling = false;
    bool fLetsGoOfMouse = false; // by itself
};

} // namespace Kesto
