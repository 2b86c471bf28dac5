#include "foundation/localize.h"

namespace Kesto {

CText& Localize(CText& text)
{
    if (!text.View().starts_with("$$$"))
        return text;
    const auto equals = text.View().find('=');
    text = equals == std::string_view::npos ? CText() : CText(text.View().substr(equals + 1));
    return text;
}

} // namespace Kesto
