// Localize, which turns a "$$$/key=default" literal into the text that the user reads.
#pragma once

#include "foundation/base/text.h"

namespace Kesto {

// Replaces a literal that begins with "$$$", in place, by the string table's text for its key, by
// the process's translation, or by the default after the first '='; a literal without any becomes
// empty. Other texts stay, so a second call does no harm. Results are kept for the life of the
// process. Returns `text`.
CText& Localize(CText& text);

} // namespace Kesto
