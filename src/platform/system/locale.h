// How the user wants to read: the language, and the decimal point of numbers.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// The user interface language as a name in the form "en_US"; "en_US" when the system names none in
// that form.
std::string UserLanguageName();

// That form from the names that systems use: "de_DE.UTF-8@euro" and "de-DE" give "de_DE",
// "sr-Latn-RS" gives "sr_RS", "ca-ES-valencia" gives "ca_ES", "es-419" gives "es_419", and a name
// without both a language and a region ("C", "", "de") gives "en_US".
std::string LanguageNameFrom(std::string_view systemName);

// The user's decimal point, UTF-8; "." when the system names none.
std::string DecimalPoint();

} // namespace Platform
