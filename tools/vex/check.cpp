#include "vex/check.h"

#include <algorithm>

namespace Vex {

std::vector<Diagnostic> CheckLayout(const CSourceText& source)
{
    const LayoutReading reading = ReadLayout(source);
    std::vector<Diagnostic> found;
    CheckNames(source, reading, found);
    if (!reading.error.empty())
        found.push_back(ExplainError(source, reading));
    std::ranges::stable_sort(found, {}, &Diagnostic::position);
    return found;
}

} // namespace Vex
