// What the tests put into windows, and the plan of a window of 200 x 100 units.
#pragma once

#include "platform/input/injection.h"
#include "view/messages/message_ids.h"
#include "view/tree/pane.h"
#include "view/window/window_button.h"
#include "view/window/window_kinds.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

// Takes the focus and gives it up when it likes to.
struct Field : Kesto::CPane {
    explicit Field(const Kesto::Rect& frame = {10, 10, 60, 30},
                   std::uint32_t binding = Kesto::kBind_FixedTopLeft)
        : CPane(frame, {}, Kesto::kView_TabStop, binding)
    {
    }
    bool CanSurrender(bool) override
    {
        ++asked;
        return surrenders;
    }
    bool HandleKey(Kesto::CKeyboardMessage& message) override
    {
        if (message.fID == Kesto::kMessage_KeyChar)
            typed += static_cast<char>(message.fChar);
        return CPane::HandleKey(message);
    }
    void DrawInContext(const Kesto::CPaintEvent&) override
    {
        ++draws;
        textWidth = GetPort()->MeasureText("as wide as this");
        GetPort()->Erase(GetBounds());
    }

    bool surrenders = true;
    int asked = 0;
    int draws = 0;
    double textWidth = 0.0;
    std::string typed;
};

struct Button : Kesto::CPane, Kesto::CWindowButton {
    Button(
        bool ok, bool cancel, std::function<void()> call = [] {})
        : CPane({0, 40, 40, 60}), isDefault(ok), isCancel(cancel), run(std::move(call))
    {
    }
    bool IsDefault() const override { return isDefault; }
    bool IsCancel() const override { return isCancel; }
    bool Flash() override
    {
        ++flashes;
        run();
        return true;
    }
    const CPane& ButtonPane() const override { return *this; }

    bool isDefault;
    bool isCancel;
    std::function<void()> run;
    int flashes = 0;
};

inline void PressKey(std::uint32_t key, std::u16string_view text = {})
{
    Platform::InjectKey(key, true, text);
    Platform::InjectKey(key, false);
}

inline Kesto::CWindowPlan PlanOf(Kesto::CMessenger* owner = nullptr, std::uint32_t features = 0x183)
{
    Kesto::CWindowPlan plan;
    plan.features = features;
    plan.owner = owner;
    plan.size = {200.0, 100.0};
    return plan;
}

inline Kesto::CWindowPlan DocumentPlan()
{
    Kesto::CWindowPlan plan = PlanOf();
    plan.kind = Kesto::kWin_Document;
    return plan;
}
