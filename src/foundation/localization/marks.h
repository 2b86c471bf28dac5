// The marks in texts: "^r" and its kind, which mean characters that are hard to write, and
// "^0" for arguments.
#pragma once

#include "foundation/base/text.h"

namespace Kesto {

// Expands the caret and backslash marks of `text` in place. Unknown marks stay, and so do "^0" to
// "^9". Called once for each text, where it enters the program: from a string file, or from the
// default of a literal.
void ExpandMarks(CText& text);

// Replaces the first argument mark with the number `index` ("^0" for 0) by the localised `value`; a
// text without it stays. Callers localise the text first, so that a translation may order the
// arguments as it likes. A mark within a value counts for the next call.
void ReplaceArgument(CText& text, unsigned index, const CText& value);

} // namespace Kesto
