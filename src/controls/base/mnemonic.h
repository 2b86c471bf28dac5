// The letter of a label that is its key: the one after "&", pressed with Alt.
#pragma once

#include "view/messages/message.h"

#include <string_view>

namespace Kesto {

class CPane;

// True for a label that has one.
bool HasMnemonic(std::string_view label);

// True if the message is the press of that key. Case doesn't count.
bool IsMnemonicOf(std::string_view label, const CKeyboardMessage& message);

// How a label's "&" is to be drawn in the window that the pane is in: one of kText_Mnemonic and
// kText_HideMnemonic.
std::uint32_t MnemonicFlag(const CPane& pane);

} // namespace Kesto
