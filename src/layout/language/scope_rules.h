// What the rules of the language share among their sources.
#pragma once

#include "layout/language/expression_scope.h"

#include <stdexcept>

namespace Kesto {

// Counts a rule that can contain itself, as long as it runs.
class CExpressionScope::CNestingGuard {
public:
    CNestingGuard(CExpressionScope& scope, const char* position) : fScope(scope)
    {
        fScope.CheckNesting(position);
        ++fScope.fNesting;
    }
    ~CNestingGuard() { --fScope.fNesting; }
    CNestingGuard(const CNestingGuard&) = delete;
    CNestingGuard& operator=(const CNestingGuard&) = delete;

private:
    CExpressionScope& fScope;
};

[[noreturn]] inline void ThrowParameterError()
{
    throw std::logic_error("Warning! (static_cast<long>(paramErr) == static_cast<long>(noErr))");
}

} // namespace Kesto
