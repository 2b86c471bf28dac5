// The text that programs hand one another by copying and pasting. UTF-8, lines ended by a line
// feed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

// Nothing if there is no text, or the program that has it doesn't hand it over.
std::optional<std::string> ClipboardText();

// False if the system refuses.
bool SetClipboardText(std::string_view text);

} // namespace Platform
