// A window that writes down what its procedure hears, by name.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "platform/system/errors.h"
#include "platform/windows/focus.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace WindowTest {

// The names of those messages that both systems send at the same moments.
inline const std::map<std::uint32_t, const char*>& Names()
{
    using namespace Platform::Number;
    static const std::map<std::uint32_t, const char*> names = {
        {kMove, "move"},
        {kSize, "size"},
        {kActivate, "activate"},
        {kSetFocus, "set-focus"},
        {kKillFocus, "kill-focus"},
        {kEnable, "enable"},
        {kPaint, "paint"},
        {kClose, "close"},
        {kShowWindow, "show"},
        {kActivateApp, "activate-app"},
        {kMouseActivate, "mouse-activate"},
        {kFrameActivate, "frame-activate"},
        {kWindowPosChanged, "placed"},
        {kFrameDestroyed, "destroyed"},
        {kKeyDown, "key-down"},
        {kKeyUp, "key-up"},
        {kKeyChar, "char"},
        {kLeftDown, "left-down"},
        {kLeftUp, "left-up"},
    };
    return names;
}

using Log = std::vector<std::string>;

class Window final : public Platform::WindowProcedure {
public:
    Window(std::string name, Log& log, Platform::WindowPlan plan = {}) : fName(name), fLog(log)
    {
        if (plan.content.IsEmpty())
            plan.content = {100, 100, 400, 300};
        plan.className = "SidecarWindowTest";
        handle = Platform::MakeSystemWindow(plan, *this);
    }
    ~Window() { Platform::EndSystemWindow(handle); }

    std::intptr_t Receive(const Platform::WindowMessage& message) override
    {
        using namespace Platform::Number;
        if (const auto name = Names().find(message.number); name != Names().end())
            fLog.push_back(fName + " " + name->second + Detail(message));
        if (onMessage)
            onMessage(message);
        if (message.number == kPaint) {
            const Platform::PixelRect all{0, 0, shown.Width(), shown.Height()};
            if (!all.IsEmpty())
                Platform::PresentBitmap(handle, shown, {&all, 1});
            const Platform::PaintScope scope(message.window);
            painted.assign(scope.Rects().begin(), scope.Rects().end());
            return 0;
        }
        if (message.number == kEraseBackground)
            return 1;
        if (message.number == kGetMinMaxInfo && least.x != 0)
            reinterpret_cast<Platform::SizeRange*>(message.second)->least = least;
        return Platform::DefaultAnswer(message);
    }

    Platform::NativeWindow handle = nullptr;
    std::vector<Platform::PixelRect> painted;
    Platform::PixelPoint least;
    Platform::Bitmap shown; // whenever the window is painted, if it has been made
    std::function<void(const Platform::WindowMessage&)> onMessage;

private:
    static std::string Detail(const Platform::WindowMessage& message)
    {
        using namespace Platform::Number;
        switch (message.number) {
        case kShowWindow:
        case kEnable:
        case kActivateApp:
        case kFrameActivate:
            return message.first != 0 ? " on" : " off";
        case kActivate:
            return message.FirstLow() != 0 ? " on" : " off";
        case kSize:
        case kMove:
            return " " + std::to_string(message.Point().x) + "," +
                   std::to_string(message.Point().y);
        default:
            return "";
        }
    }

    std::string fName;
    Log& fLog;
};

// Dispatches what waits.
inline void Pump()
{
    while (const auto message = Platform::PeekQueue(Platform::Peek::kRemove)) {
        Platform::TranslateKeyMessage(*message);
        Platform::DispatchToWindow(*message);
    }
}

} // namespace WindowTest
