// Alerts as windows: what keys answer, what is copied, and who shows them.
#include "foundation/alerts/alert.h"
#include "foundation/base/service.h"
#include "platform/input/injection.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/system_window.h"
#include "support/alert_capture.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"
#include "view/process/desktop.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

namespace {

using namespace Kesto;

constexpr std::uint32_t kSpace = 32;
constexpr std::uint32_t kControl = 0x11;

AlertButton Ask(AlertButtons buttons, AlertButton defaultButton = AlertButton::kNone)
{
    return ShowAlert(buttons, AlertIcon::kWarning, AlertModality::kTask, "Message", "Why", "Title",
                     defaultButton);
}

// What commits to nothing is the answer when the run is ended from outside.
TEST(Alert, AnswersByKeysAndWhenItIsEnded)
{
    const struct {
        const char* name;
        AlertButtons buttons;
        AlertButton defaultButton;
        std::uint32_t key; // 0: it is ended
        std::u16string_view text;
        AlertButton answer;
    } rows[] = {
        {"Return is OK", AlertButtons::kOK, AlertButton::kNone, kKeyCode_Return, u"\r",
         AlertButton::kOK},
        {"Escape is the only button", AlertButtons::kOK, AlertButton::kNone, kKeyCode_Escape,
         u"\x1b", AlertButton::kOK},
        {"Escape is Cancel", AlertButtons::kYesNoCancel, AlertButton::kNone, kKeyCode_Escape,
         u"\x1b", AlertButton::kCancel},
        {"Return is the default", AlertButtons::kYesNoCancel, AlertButton::kNo, kKeyCode_Return,
         u"\r", AlertButton::kNo},
        {"Return is the first", AlertButtons::kRetryCancel, AlertButton::kNone, kKeyCode_Return,
         u"\r", AlertButton::kRetry},
        {"Space is the one with the focus", AlertButtons::kYesNo, AlertButton::kNo, kSpace, u" ",
         AlertButton::kNo},
        {"ended with one button", AlertButtons::kOK, AlertButton::kNone, 0, u"", AlertButton::kOK},
        {"ended with Cancel", AlertButtons::kOKCancel, AlertButton::kNone, 0, u"",
         AlertButton::kCancel},
        {"ended with No", AlertButtons::kYesNo, AlertButton::kNone, 0, u"", AlertButton::kNo},
        {"ended with Abort", AlertButtons::kAbortRetryIgnore, AlertButton::kNone, 0, u"",
         AlertButton::kAbort},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PumpedProcess process;
        CDocumentWindow document(DocumentPlan());
        document.Start();
        process.PostCall(-1, [&] {
            EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 1U);
            EXPECT_FALSE(Platform::IsSystemWindowEnabled(document.NativeHandle()));
            if (row.key != 0)
                PressKey(row.key, row.text);
            else
                CExecutable::Current()->SetDone(true);
        });
        EXPECT_EQ(Ask(row.buttons, row.defaultButton), row.answer);
        EXPECT_EQ(CServiceT<CDesktop>::Get()->ModalCount(), 0U);
        EXPECT_TRUE(Platform::IsSystemWindowEnabled(document.NativeHandle()));
        process.PumpQuiet();
    }
}

TEST(Alert, HooksComeFirstWheneverTheyWereMade)
{
    AlertCapture hook(AlertButton::kRetry); // older than the windows
    PumpedProcess process;
    CDocumentWindow document(DocumentPlan());
    EXPECT_EQ(Ask(AlertButtons::kRetryCancel), AlertButton::kRetry);
    EXPECT_EQ(hook.boxes.size(), 1U);
}

TEST(Alert, CopiesItsTexts)
{
    PumpedProcess process;
    CDocumentWindow document(DocumentPlan());
    document.Start();
    process.PostCall(-1, [&] {
        Platform::InjectKey(kControl, true);
        PressKey('C');
        Platform::InjectKey(kControl, false);
        process.PostCall(-1, [] { PressKey(kKeyCode_Escape, u"\x1b"); });
    });
    Ask(AlertButtons::kOK);
    EXPECT_EQ(Platform::ClipboardText().value_or(""), "Title\n\nMessage\n\nWhy");
}

} // namespace
