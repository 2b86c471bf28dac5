// A person in front of the plug-in's dialogs: does something to each window that comes up, once, in
// a turn of the pump.
#pragma once

#include "foundation/base/service.h"
#include "platform/input/injection.h"
#include "view/process/desktop.h"
#include "view/process/idler.h"
#include "view/window/window.h"

#include <functional>
#include <utility>

namespace Testing {

class DialogPerson final : public Kesto::CIdler {
public:
    // Does something to a window, and tells whether that was all; else there is another turn.
    using Deed = std::function<bool(Kesto::CWindow& window)>;

    explicit DialogPerson(Deed deed) : fDeed(std::move(deed)) { StartIdling(); }

    int windows = 0; // that came up

    // Ends it as the Return key does, and as Cancel does.
    static bool PressReturn(Kesto::CWindow&)
    {
        constexpr std::uint32_t kReturn = 13;
        Platform::InjectKey(kReturn, true);
        Platform::InjectKey(kReturn, false);
        return true;
    }
    static bool PressEscape(Kesto::CWindow&)
    {
        constexpr auto kEscape = static_cast<std::uint32_t>(Platform::Key::kEscape);
        Platform::InjectKey(kEscape, true);
        Platform::InjectKey(kEscape, false);
        return true;
    }

    void Idle() override
    {
        const auto* const desktop = Kesto::CServiceT<Kesto::CDesktop>::Get(false);
        auto* const window =
            dynamic_cast<Kesto::CWindow*>(desktop != nullptr ? desktop->FrontWindow() : nullptr);
        if (window == nullptr || !window->IsInSight())
            fKnown = nullptr;
        else if (window != fDone) {
            windows += std::exchange(fKnown, window) != window;
            if (fDeed(*window))
                fDone = window;
        }
    }

private:
    Deed fDeed;
    const void* fKnown = nullptr;
    const void* fDone = nullptr;
};

} // namespace Testing
