// Texts that are too long for their place.
#pragma once

#include "foundation/base/text.h"

#include <cstdint>

namespace Kesto {

class CSystemPort;

// As much of a line as fits into `width` units in the port's font, with three points where
// characters are left out: an ETextTrim. Characters stay whole.
CText TrimmedText(const CSystemPort& port, const CText& text, double width, std::int32_t trim);

} // namespace Kesto
