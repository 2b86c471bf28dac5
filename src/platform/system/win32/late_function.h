// Functions that older systems don't have.
#pragma once

#include <windows.h>

namespace Platform {

// The library's function of that name and type, or null; also where there is no such library.
template <class Function>
Function* FindFunction(HMODULE library, const char* name)
{
    const auto found = library != nullptr ? GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

// The same of "user32.dll".
template <class Function>
Function* FindUserFunction(const char* name)
{
    return FindFunction<Function>(GetModuleHandleW(L"user32.dll"), name);
}

} // namespace Platform
