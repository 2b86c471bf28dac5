// The marks in texts: "^r" and its kind, which stand for characters that are hard to write, and
// "^0" for arguments.
#pragma once

#include "foundation/base/text.h"

namespace Kesto {

// Expands the caret and backslash marks of `text` in place. Marks that are unknown stay, and with
// them "^0" to "^9". For those who bring texts in (string files, defaults of literals), once for
// each text.
void ExpandMarks(CText& text);

// Replaces the first "^" with the digits of `index` by the localised `value`; a text without it
// stays. The template is localised before its arguments are put in, so that a translation may order
// them as it likes. A value may bring an argument mark of its own, which the next call meets.
void ReplaceArgument(CText& text, unsigned index, const CText& value);

} // namespace Kesto
