// ShowAlert, the toolkit's one way to put a message box before the user.
//
// Called on the user interface's thread only. While a CAlertHook lives, it answers in the user's
// place.
#pragma once

#include "foundation/base/text.h"
#include "platform/system/alert.h"

#include <cstdint>

namespace Kesto {

// The numbers are those of the layout language; any other shows OK alone.
enum class AlertButtons : int {
    kOK = 0,
    kOKCancel = 1,
    kYesNo = 2,
    kYesNoCancel = 3,
    kRetryCancel = 4,
    kAbortRetryIgnore = 5,
    kYesNoCancel2 = 6,
    kYesNo2 = 7,
    kYesNoCancel3 = 8,
};

enum class AlertIcon : int { kNone = 0, kInformation = 1, kQuestion = 2, kWarning = 3, kStop = 4 };

enum class AlertModality : int { kApplication = 0, kTask = 1, kSystem = 2 };

// A button of an alert: the one pressed, or the one that Return presses. kNone is the first, and no
// answer.
enum class AlertButton : int { kNone = 0, kOK, kCancel, kAbort, kRetry, kIgnore, kYes, kNo };

// Shows the box and returns the button pressed. The texts are localised; `explanation`, when there
// is one, stands below `message` behind a blank line. Without `parent`, the box stands before the
// process's front window.
AlertButton ShowAlert(AlertButtons buttons, AlertIcon icon, AlertModality modality, CText message,
                      CText explanation, CText title,
                      AlertButton defaultButton = AlertButton::kNone,
                      Platform::NativeWindow parent = nullptr);

// Sounds the warning that takes an alert's place when a failure isn't worth one.
void BeepAlert();

// An alert as it goes to the operating system: flags of its message box, resolved texts.
struct AlertBox {
    std::uint32_t flags;
    CText text;
    CText title;
    Platform::NativeWindow parent;
};

// While one lives, it gets all alerts and beeps instead of the user; the youngest gets them. For
// tests, and for hosts that run without a screen.
class CAlertHook {
public:
    CAlertHook();
    CAlertHook(const CAlertHook&) = delete;
    CAlertHook& operator=(const CAlertHook&) = delete;
    virtual ~CAlertHook();

    // Returns the button that the user would have pressed.
    virtual AlertButton Show(const AlertBox& box) = 0;
    virtual void Beep() = 0;

private:
    CAlertHook* fFormer;
};

} // namespace Kesto
