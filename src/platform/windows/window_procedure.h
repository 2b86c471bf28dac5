// What a window calls with its messages, and what becomes of exceptions on the way.
//
// Between whoever dispatches a message and the procedure may lie frames of the operating system,
// through which no exception can pass. So it is stopped at the procedure, which then counts as
// having answered 0, and thrown again by the call of the platform that led there: DispatchToWindow,
// ShowSystemWindow, FocusWindow and so on. The first one counts, should there be more. Calls that
// say that they throw nothing leave it to the next one.
#pragma once

#include "platform/input/stopped_exception.h"
#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

#include <cstdint>

namespace Platform {

// Number and parameters are those of Windows; points of the mouse are pixels of the window's
// content, but for the wheel, whose point is of the screen.
struct WindowMessage {
    NativeWindow window = nullptr;
    std::uint32_t number = 0;
    std::uintptr_t first = 0;
    std::intptr_t second = 0;

    // The halves of the second parameter, signed.
    PixelPoint Point() const
    {
        return {static_cast<std::int16_t>(second & 0xFFFF),
                static_cast<std::int16_t>((second >> 16) & 0xFFFF)};
    }
    std::uint32_t FirstLow() const { return static_cast<std::uint32_t>(first & 0xFFFF); }
    std::uint32_t FirstHigh() const { return static_cast<std::uint32_t>((first >> 16) & 0xFFFF); }
};

// What kGetMinMaxInfo points to: limits of the whole window, frame included, in pixels. The
// procedure changes them.
struct SizeRange {
    PixelPoint reserved;
    PixelPoint maximizedSize;
    PixelPoint maximizedPosition;
    PixelPoint least;
    PixelPoint most;
};

class WindowProcedure {
public:
    // A message has come. Returns what its sender expects; DefaultAnswer for those that don't
    // matter here. No message comes before the window is made. After kFrameDestroyed, which comes
    // when the system ends a window with its owner, none comes any more.
    virtual std::intptr_t Receive(const WindowMessage& message) = 0;

protected:
    ~WindowProcedure() = default;
};

// What the system does by itself with a message: paints the frame, closes, moves, tells the owner.
std::intptr_t DefaultAnswer(const WindowMessage& message);

// Values of parameters.
inline constexpr std::uint32_t kActivatedByClick = 2; // the low half of kActivate; 0: it goes
inline constexpr std::uint32_t kSizedMinimized = 1;   // the first parameter of kSize
inline constexpr std::uint32_t kSizedMaximized = 2;
inline constexpr std::intptr_t kMouseActivates = 1;        // answers to kMouseActivate
inline constexpr std::intptr_t kMouseActivatesAndEats = 2; // the press goes no further
inline constexpr std::intptr_t kMouseDoesNotActivate = 3;
inline constexpr std::intptr_t kMouseIsEaten = 4;
inline constexpr std::uint32_t kHitsContent = 1; // the low half of kSetCursor's second parameter
inline constexpr std::int32_t kWheelStep = 120;  // the high half of kWheel's first, for each notch

} // namespace Platform
