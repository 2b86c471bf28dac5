#include "foundation/localization/localize.h"

#include "foundation/base/process_services.h"
#include "foundation/localization/marks.h"
#include "foundation/localization/string_table.h"

namespace Kesto {
namespace {

constexpr std::string_view kPrefix = "$$$";

// The text of a literal whose key the table doesn't know.
CText Translate(const CText& literal, std::size_t equals)
{
    CProcessServices& process = CProcessServices::Current();
    CText text = literal;
    if (!process.HasOwnStringsOnly() && process.TranslateKey(text))
        return text;
    text =
        equals == std::string_view::npos ? std::string_view() : literal.View().substr(equals + 1);
    ExpandMarks(text);
    return text;
}

} // namespace

// What is found once is kept in the table, since a process may ask its host for the translation.
CText& Localize(CText& text)
{
    const std::string_view literal = text.View();
    if (!literal.starts_with(kPrefix))
        return text;
    const std::size_t equals = literal.find('=', kPrefix.size());
    const std::string_view key = literal.substr(0, equals).substr(kPrefix.size());
    if (key.empty()) {
        text.Clear();
        return text;
    }
    CStringTable& table = *CServiceT<CStringTable>::Get();
    if (const CText* const found = table.Find(key))
        return text = *found;
    CText translation = Translate(text, equals);
    table.Add(key, translation, false);
    return text = std::move(translation);
}

} // namespace Kesto
