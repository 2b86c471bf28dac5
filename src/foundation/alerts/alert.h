// ShowAlert, the toolkit's one way to put a message box before the user.
//
// Called on the user interface's thread only. The youngest CAlertHook that lives shows the alert or
// passes it on; the last of them is the operating system's message box.
#pragma once

#include "foundation/base/text.h"
#include "platform/system/alert.h"

#include <array>
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

// Shows the box and returns the button pressed. The texts are localised. Without `parent`, the box
// is shown in front of the process's front window.
AlertButton ShowAlert(AlertButtons buttons, AlertIcon icon, AlertModality modality, CText message,
                      CText explanation, CText title,
                      AlertButton defaultButton = AlertButton::kNone,
                      Platform::NativeWindow parent = nullptr);

// Sounds the warning that takes an alert's place when a failure isn't worth one.
void BeepAlert();

// An alert that is to be shown: its parts, with their texts resolved.
struct AlertBox {
    AlertButtons buttons = AlertButtons::kOK;
    AlertIcon icon = AlertIcon::kNone;
    AlertModality modality = AlertModality::kApplication;
    CText message;
    CText explanation; // may be empty
    CText title;
    AlertButton defaultButton = AlertButton::kNone;
    Platform::NativeWindow parent = nullptr;

    // The buttons from the first to the last; kNone in the places that are left.
    std::array<AlertButton, 3> Buttons() const;

    // The same for the operating system's message box: its flags, and one text, with the
    // explanation below the message after a blank line.
    std::uint32_t Flags() const;
    CText Text() const;
};

// Shows alerts and sounds beeps for as long as it lives, unless there is a younger one: a window of
// our own, a test that answers in the user's place, a host without a screen.
class CAlertHook {
public:
    // The last one is asked when all others have passed an alert on.
    enum class Place { kYoungest, kLast };
    explicit CAlertHook(Place place = Place::kYoungest);
    CAlertHook(const CAlertHook&) = delete;
    CAlertHook& operator=(const CAlertHook&) = delete;
    virtual ~CAlertHook();

    // Returns the button that was pressed. The base passes the alert, or the beep, on to the next
    // older hook, or the system.
    virtual AlertButton Show(const AlertBox& box);
    virtual void Beep();

private:
    CAlertHook* fOlder;
};

} // namespace Kesto
