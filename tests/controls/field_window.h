// A window of the screen with fields in it, a user who types, and what is sent and said.
#pragma once

#include "controls/fields/edit_number.h"
#include "platform/input/injection.h"
#include "support/alert_capture.h"
#include "view/messages/key_codes.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace Testing {

// As few digits as tell it from all others.
inline std::string Shortest(double number)
{
    char room[32];
    return {room, std::to_chars(room, room + sizeof room, number).ptr};
}

// Writes numbers down as "4:12", the phase and the value, and other values as "text/4", the id and
// the phase, with blanks between them.
class FieldWindow : public Kesto::CDocumentWindow {
public:
    explicit FieldWindow(const Kesto::CWindowPlan& plan)
        : CMessenger(nullptr), CDocumentWindow(plan)
    {
    }
    bool HandleValue(Kesto::CValueMessage& message) override
    {
        auto* const number = dynamic_cast<Kesto::CValMsg<Kesto::CNumber>*>(&message);
        if (number != nullptr)
            sent += std::to_string(message.fPhase) + ":" + Shortest(number->fValue) + " ";
        else
            sent += message.fID.Name() + "/" + std::to_string(message.fPhase) + " ";
        return true;
    }
    bool HandleCommand(Kesto::CCommandMessage& message) override
    {
        sent += message.fID.Name() + " ";
        return true;
    }

    std::string sent;
};

struct FieldProcess : PumpedProcess {
    Kesto::CText GetAlertTitle() override { return alertTitle; }

    Kesto::CText alertTitle;
};

class FieldStage {
public:
    FieldStage() : window(DocumentPlan()) {}

    // The field, with the focus and all of it selected, and another one to go to.
    Kesto::CEditNumber& Open(std::unique_ptr<Kesto::CEditNumber> made)
    {
        made->SetFrame({10, 10, 110, 34});
        field = window.AppendChild(std::move(made));
        other =
            window.AppendChild(std::make_unique<Kesto::CEditString>(Kesto::Rect{10, 40, 110, 64}));
        window.Start();
        process.PumpQuiet();
        field->SelectAll();
        return *field;
    }

    void Press(std::uint32_t key, std::u16string_view text = {})
    {
        PressKey(key, text);
        process.PumpQuiet();
    }
    void Hold(std::uint32_t key, bool down)
    {
        Platform::InjectKey(key, down);
        process.PumpQuiet();
    }
    void Type(std::u32string_view text)
    {
        for (const char32_t character : text) {
            Platform::InjectCharacter(character);
            process.PumpQuiet();
        }
    }

    void Focus()
    {
        field->BecomeBullseye(true);
        field->SelectAll();
    }
    // In the window's units.
    void MoveTo(double x, double y)
    {
        const Kesto::PixelPoint corner = window.GetScreenPosition();
        const double scale = window.GetScaleFactor();
        Platform::InjectMove(
            {corner.x + Kesto::ToDevice(x, scale), corner.y + Kesto::ToDevice(y, scale)});
        process.PumpQuiet();
    }
    void Button(bool down)
    {
        Platform::InjectButton(Platform::Key::kLeftButton, down);
        process.PumpQuiet();
    }

    // What was sent since the last call, without the blank at the end.
    std::string Sent()
    {
        std::string sent = std::exchange(window.sent, {});
        if (!sent.empty())
            sent.pop_back();
        return sent;
    }

    FieldProcess process;
    AlertCapture alerts;
    FieldWindow window;
    Kesto::CEditNumber* field = nullptr;
    Kesto::CEditString* other = nullptr;
};

} // namespace Testing
