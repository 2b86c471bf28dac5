#include "platform/system/errors.h"

#include "platform/system/win32/wide.h"

#include <array>
#include <windows.h>

namespace Platform {

std::string ErrorText(std::uint32_t code)
{
    constexpr DWORD kUserDefaultLanguage = 0x400;
    std::array<wchar_t, 256> buffer{};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, kUserDefaultLanguage,
                       buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    return FromWide(std::wstring_view(buffer.data(), length));
}

std::uint32_t LastError()
{
    return ::GetLastError();
}

void SetLastError(std::uint32_t code)
{
    ::SetLastError(code);
}

} // namespace Platform
