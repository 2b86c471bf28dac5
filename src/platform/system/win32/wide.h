// UTF-8, which all interfaces of the platform use, from and to the UTF-16 of the Windows calls.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// A unit or byte that is malformed becomes U+FFFD.
std::wstring ToWide(std::string_view utf8);
std::string FromWide(std::wstring_view wide);

} // namespace Platform
