// A window's worth of controls without a window: what they send is written down, and mouse and keys
// go in as a window would hand them on.
#pragma once

#include "view/messages/message_ids.h"
#include "view/tree/context.h"
#include "view/tree/view_tracker.h"

#include <memory>
#include <string>
#include <utility>

class ControlPanel : public Kesto::CContext {
public:
    explicit ControlPanel(const Kesto::Point& size = {300.0, 200.0})
        : CContext(size, Kesto::CObjID("panel"), Kesto::kView_Target)
    {
        SetActive(true);
    }

    template <class Control>
    Control& Add(const char* id, const Kesto::Rect& frame, std::uint32_t options = 0)
    {
        return *AppendChild(std::make_unique<Control>(frame, Kesto::CObjID(id), options));
    }

    bool HandleValue(Kesto::CValueMessage& message) override { return Note(message); }
    bool HandleCommand(Kesto::CCommandMessage& message) override { return Note(message); }
    bool HandleOther(Kesto::CMessage& message) override { return Note(message); }

    // What has been sent since the last call, the messages separated by "; ".
    std::string Take() { return std::exchange(log, {}); }

    void Press(double x, double y) { Mouse(Kesto::kMessage_MouseDown, x, y); }
    void Move(double x, double y) { Mouse(Kesto::kMessage_MouseMoved, x, y); }
    void Release(double x, double y) { Mouse(Kesto::kMessage_MouseUp, x, y); }
    void Click(double x, double y)
    {
        Press(x, y);
        Release(x, y);
    }
    void Wheel(double x, double y, double right, double away, std::uint32_t held = 0)
    {
        Kesto::CMouseEvent event;
        event.fID = Kesto::kMessage_MouseMoved;
        event.fPortPoint = {x, y};
        event.fWheel = {right, away};
        event.fModifiers = held;
        DispatchMouse(event);
    }
    static bool Key(CMessenger& to, std::uint32_t code, std::uint32_t held = 0)
    {
        Kesto::CKeyboardMessage message(&to, Kesto::kMessage_KeyDown, code, 0);
        message.fModifiers = held;
        return to.SendKey(message);
    }

    std::uint32_t modifiers = 0; // of presses, moves and releases

private:
    bool Note(Kesto::CMessage& message)
    {
        log += log.empty() ? "" : "; ";
        log += message.fID.Name();
        message.Describe(log);
        return true;
    }
    void Mouse(Kesto::CObjID id, double x, double y)
    {
        Kesto::CMouseEvent event;
        event.fID = id;
        event.fButton =
            id == Kesto::kMessage_MouseMoved ? Kesto::CObjID() : Kesto::kMouseButton_Primary;
        event.fPortPoint = {x, y};
        event.fTime = time += 1.0; // never one series
        event.fModifiers = modifiers;
        DispatchMouse(event);
    }

    std::string log;
    double time = 0.0;
};
