// A window or child control of Linux, as its handle names it: its state, from which all messages
// follow, whether a display shows it or not.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/graphics/cursors.h"
#include "platform/input/linux/input.h"
#include "platform/windows/linux/rect_list.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_place.h"

#include <string>
#include <vector>

namespace Platform {

class LinuxWindow : public MessageReceiver {
public:
    enum class Extent { kNormal, kMinimized, kMaximized };

    ~LinuxWindow() override;

    // Null unless the handle is one of these and lives.
    static LinuxWindow* From(NativeWindow handle);

    // A message that was dispatched; what goes with it is sent first.
    std::intptr_t Receive(std::uint32_t number, std::uintptr_t first,
                          std::intptr_t second) override;
    bool Covers(PixelPoint point) const override;

    // From now on its procedure hears nothing.
    void Silence() { fIsSilent = true; }

    // Sends a message at once. Exceptions are stopped. A window may be gone when it returns.
    std::intptr_t Send(std::uint32_t number, std::uintptr_t first = 0, std::intptr_t second = 0);

    LinuxWindow& Top() { return fParent != nullptr ? fParent->Top() : *this; }
    bool IsTop() const { return !fIsChild; }
    bool IsVisible() const { return fShown && (IsTop() || (fParent && fParent->IsVisible())); }
    bool IsUsable() const { return fEnabled && (IsTop() || (fParent && fParent->IsUsable())); }

    PixelRect ScreenRect() const; // of the content
    PixelRect Local() const       // the content in its own pixels
    {
        return {0, 0, fContent.right - fContent.left, fContent.bottom - fContent.top};
    }

    void Invalidate(const PixelRect& rect);
    void Validate(const PixelRect& rect);
    void InvalidateAll() { Invalidate(Local()); }
    // With its controls, when it comes into sight; and nothing any more, when it is closed.
    void InvalidateTree();
    void ForgetUpdates();

    // Sets the content's place and has painted what wasn't there before. Sends nothing.
    void SetContent(const PixelRect& content);

    // The same with what a top window is to hear of it: kMove and kSize, by way of
    // kWindowPosChanged.
    void PlaceAt(const PixelRect& content);

    // The least and the most size of the content that its procedure allows.
    struct Limits {
        PixelPoint least;
        PixelPoint most;
    };
    Limits AskLimits();

    // Rows of the content as they were presented last; of its size unless memory was short.
    bool ReadyPicture();

    bool fIsChild = false;
    LinuxWindow* fParent = nullptr;      // of a child control; null once the parent is gone
    std::vector<LinuxWindow*> fChildren; // the last made is in front
    WindowKind fKind = WindowKind::kDialog;
    bool fTakesMouse = true; // of a popup
    std::uint32_t fFeatures = 0;
    NativeWindow fOwner = nullptr;
    std::uint32_t fForeignOwner = 0; // the display's number of an owner that isn't ours
    std::string fTitle;
    std::string fClassName;
    PixelRect fContent; // of the screen, or of the parent's content
    PixelRect fTold;    // the content that the last kMove and kSize told of
    PixelRect fNormal;  // where it was before it was minimized or maximized
    Extent fExtent = Extent::kNormal;
    bool fShown = false;
    bool fEnabled = true;
    bool fWasShown = false; // once
    std::vector<PixelRect> fUpdate;
    Bitmap fPicture;
    Cursor fCursor;
    std::uint32_t fServerID = 0; // the display's number, 0 for none
    PixelRect fServerContent;    // where the display has put it

protected:
    // What the window itself does with a message.
    virtual std::intptr_t Answer(const WindowMessage& message) = 0;

    LinuxWindow();

private:
    bool PreparesMouse(std::uint32_t number);
    void Follow(std::uint32_t number, std::uintptr_t first);

    bool fIsSilent = false;
};

// A window with a procedure.
class TopWindow final : public LinuxWindow {
public:
    TopWindow(const WindowPlan& plan, WindowProcedure& procedure);

protected:
    std::intptr_t Answer(const WindowMessage& message) override
    {
        return fProcedure.Receive(message);
    }

private:
    WindowProcedure& fProcedure;
};

// Points of a mouse message or sizes, as parameters carry them.
constexpr std::intptr_t PackPoint(std::int32_t x, std::int32_t y)
{
    return static_cast<std::intptr_t>((static_cast<std::uint32_t>(y) & 0xFFFF) << 16 |
                                      (static_cast<std::uint32_t>(x) & 0xFFFF));
}

} // namespace Platform
