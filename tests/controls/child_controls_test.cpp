// Panes that keep a control of the platform: what their handlers throw is dealt with as a window
// deals with it, although the platform calls them by the way of the control.
#include "controls/fields/edit_string.h"
#include "foundation/errors/exceptions.h"
#include "support/alert_capture.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

using namespace Kesto;

namespace {

// Throws once, whatever comes up to it.
struct ThrowingDialog : CDialog {
    using CDialog::CDialog;
    bool HandleKey(CKeyboardMessage& message) override
    {
        Throw();
        return CDialog::HandleKey(message);
    }
    bool HandleValue(CValueMessage& message) override
    {
        Throw();
        return CDialog::HandleValue(message);
    }
    void Throw()
    {
        if (!std::exchange(isArmed, false))
            return;
        if (aborts)
            throw CAbort(true);
        throw CError("It went wrong.", "", false, true);
    }

    bool isArmed = false;
    bool aborts = false;
};

TEST(ChildControls, ReportWhatTheirHandlersThrowAndGoOnUnlessTheUserStopped)
{
    const std::pair<const char*, std::uint32_t> rows[] = {
        {"a key that climbs from a field", kKeyCode_F1}, {"a text that changes", 'A'}};
    for (const auto& [what, key] : rows)
        for (const bool aborts : {false, true}) {
            SCOPED_TRACE(std::string(what) + (aborts ? ", aborted" : ""));
            PumpedProcess process;
            AlertCapture alerts;
            ThrowingDialog dialog(PlanOf());
            dialog.AppendChild(
                std::make_unique<CEditString>(Rect{10, 10, 110, 34}, CObjID("text")));
            dialog.aborts = aborts;
            process.PostCall(-1, [&, pressed = key] {
                dialog.isArmed = true;
                PressKey(pressed);
                process.PostCall(-1, [&dialog] { dialog.EndRun(5); });
            });
            if (aborts) {
                EXPECT_THROW(dialog.Run(), CAbort);
            } else {
                EXPECT_EQ(dialog.Run(), 5);
                EXPECT_EQ(alerts.texts, (std::vector<std::string>{"It went wrong."}));
            }
            EXPECT_FALSE(dialog.isArmed);
            EXPECT_EQ(dialog.NativeHandle(), nullptr);
        }
}

} // namespace
