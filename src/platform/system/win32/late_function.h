// Functions of "user32.dll" that older systems don't have.
#pragma once

#include <windows.h>

namespace Platform {

// The function of that name and type, or null.
template <class Function>
Function* FindUserFunction(const char* name)
{
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    const auto found = user != nullptr ? GetProcAddress(user, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

} // namespace Platform
