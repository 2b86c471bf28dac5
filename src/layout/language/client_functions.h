// A program's own functions in the layout language.
#pragma once

#include <cstdint>

namespace Kesto {

class CExpressionScope;

class CClientFunctions {
public:
    virtual ~CClientFunctions() = default;

    // The value of a call `name(first: 1, second: 'text')`. The arguments are the variables of
    // `arguments`, a scope whose parent is the calling one; it dies after the call.
    virtual std::int32_t Call(const char* name, CExpressionScope& arguments) = 0;

    // The scope whose expression is calling right now, or null.
    static const CExpressionScope* CallingScope();
};

} // namespace Kesto
