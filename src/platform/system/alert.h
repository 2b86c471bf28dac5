// The operating system's message box and warning sound.
//
// Flags and answers are the numbers of the Windows call on every system, so that one table above
// the seam builds them.
#pragma once

#include "platform/system/native_window.h"

#include <cstdint>
#include <string_view>

namespace Platform {

// What the user pressed.
enum class BoxAnswer : int {
    kNone = 0,
    kOK = 1,
    kCancel = 2,
    kAbort = 3,
    kRetry = 4,
    kIgnore = 5,
    kYes = 6,
    kNo = 7
};

// Bits of the flags: the low four choose the buttons, the next four the icon, then come default
// button and modality.
inline constexpr std::uint32_t kBoxButtonsMask = 0xF;

// Shows a modal box and waits for the answer. Texts are UTF-8. A system without a screen writes the
// box as a line on standard error and gives the answer that commits to nothing: Cancel, No or Abort
// where there is one, else OK.
BoxAnswer ShowMessageBox(std::uint32_t flags, std::string_view title, std::string_view text,
                         NativeWindow parent);

// Plays the system's sound of a kind; 0x30 is the exclamation. Linux rings the bell of the
// terminal, if there is one.
void PlayAlertSound(std::uint32_t kind);

} // namespace Platform
