// Input that a program makes: keys and the mouse, as if the user had moved them.
//
// It goes the way of all input: into the queue, by the window at the point or the one that has the
// keyboard, and the states of keys follow. On Windows the system spreads it, so that it reaches
// whatever is in front.
#pragma once

#include "platform/input/keyboard.h"
#include "platform/system/pixel_rect.h"

#include <cstdint>
#include <string_view>

namespace Platform {

// Moves the mouse to a point of the screen.
void InjectMove(PixelPoint point);

// Presses or releases a button where the mouse is.
void InjectButton(Key button, bool down);

// Turns the wheel, in parts of kWheelStep; upward and to the right are positive.
void InjectWheel(std::int32_t right, std::int32_t up);

// Presses or releases a key by its number. On Linux a press types `text`; letters, digits and the
// keys that type on any keyboard do so without.
void InjectKey(std::uint32_t key, bool down, std::u16string_view text = {});

// Types a character that no key needs to have.
void InjectCharacter(char32_t character);

} // namespace Platform
