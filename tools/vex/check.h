// Finds the mistakes of a layout text, also those that a program passes over in silence: an unknown
// class makes no view, an unknown key has no effect, an unknown name in an expression is undefined.
#pragma once

#include "vex/diagnostic.h"
#include "vex/layout_reading.h"

#include <vector>

namespace Vex {

// In the order of their places. A syntax error ends the reading, so at most one is found.
std::vector<Diagnostic> CheckLayout(const CSourceText& source);

// The part that looks at names, values and identifiers.
void CheckNames(const CSourceText& source, const LayoutReading& reading,
                std::vector<Diagnostic>& found);

// What the error that ended a reading means to a reader, and where.
Diagnostic ExplainError(const CSourceText& source, const LayoutReading& reading);

} // namespace Vex
