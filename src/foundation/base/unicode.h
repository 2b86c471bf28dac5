// Single characters in UTF-8 and UTF-16, under the names of the toolkit.
#pragma once

#include "platform/system/unicode.h"

namespace Kesto {

using Platform::AppendCharacter;
using Platform::CountCharacters;
using Platform::EncodeCharacter;
using Platform::EncodedLength;
using Platform::kMaximumCharacter;
using Platform::kReplacementCharacter;
using Platform::TakeCharacter;
using Platform::ToUtf16;

} // namespace Kesto
