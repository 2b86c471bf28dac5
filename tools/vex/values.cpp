#include "vex/values.h"

#include "layout/language/layout_keys.h"

#include <optional>

namespace Vex {

namespace {

using Kesto::VexKeyKind;
using Kesto::VexRule;

bool IsDecimal(std::string_view text)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto isDigitOrPoint = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    return !text.empty() && text != "." && std::ranges::all_of(text, isDigitOrPoint) &&
           std::ranges::count(text, '.') < 2;
}

std::string Quoted(std::string_view name)
{
    return '\'' + std::string(name) + '\'';
}

bool Takes(const Kesto::VexPropertyKey& key, std::string_view family)
{
    return key.families[0].empty() || family == "bool" ||
           std::ranges::find(key.families, family) != key.families.end();
}

// The constant that a value of the wrong family is taken for.
const Kesto::VexConstant* TakenFor(const Kesto::VexPropertyKey& key, std::int32_t value)
{
    for (const auto table : {Kesto::StandardConstants(), Kesto::ClassConstants()})
        for (const Kesto::VexConstant& constant : table)
            if (constant.value == value && constant.family != "bool" && Takes(key, constant.family))
                return &constant;
    return nullptr;
}

void CheckFamilies(const SyntaxNode& node, const Kesto::VexPropertyKey& key,
                   std::vector<Diagnostic>& found)
{
    for (const SyntaxNode& child : node.children)
        CheckFamilies(child, key, found);
    if (node.rule != VexRule::kVariable && node.rule != VexRule::kWholeName)
        return;
    const Kesto::VexConstant* const constant = FindConstant(node.Name());
    if (constant == nullptr || Takes(key, constant->family))
        return;
    const Kesto::VexConstant* const meant = TakenFor(key, constant->value);
    const std::string hint =
        meant == nullptr ? "" : "Its number means " + std::string(meant->name.text) + " here.";
    found.push_back({node.start, "wrong-family",
                     Quoted(node.Name()) + " is no value of " + Quoted(key.name), hint});
}

// What has a number and a text is left out when the properties of a view are handed to its class.
// Keys of placement are read before that, as numbers.
bool IsLostWithFourBytes(std::string_view key)
{
    Kesto::LayoutKeySet keys;
    AddLayoutKey(Kesto::VexName(key), keys);
    return keys.IsEmpty();
}

std::optional<std::string> WrongKind(const std::string& key, VexKeyKind wanted, ValueKind kind)
{
    if (wanted == VexKeyKind::kText && !kind.isText)
        return key + " takes a text, not a number";
    if (wanted == VexKeyKind::kNumber && !kind.isNumber)
        return key + " takes a number, not a text";
    if (wanted == VexKeyKind::kDecimal && !kind.isNumber && !kind.isDecimal)
        return key + " takes a number, or a text that reads as one";
    return std::nullopt;
}

} // namespace

ValueKind KindOfText(std::string_view text)
{
    return {text.size() == 4, true, IsDecimal(text)};
}

const Kesto::VexConstant* FindConstant(std::string_view name)
{
    const Kesto::VexConstant* const standard = FindWord(Kesto::StandardConstants(), name);
    return standard != nullptr ? standard : FindWord(Kesto::ClassConstants(), name);
}

// A number is read in 64 bits beside the 32 that count; its size is capped so that no length of
// digits overflows those. Of a product only the marks between the operands are looked at, since a
// percent sign within an operand belongs to a node of its own.
void CheckValueForms(const SyntaxNode& node, std::vector<Diagnostic>& found)
{
    if (node.rule == VexRule::kInteger) {
        std::uint64_t exact = 0;
        std::uint32_t wrapped = 0;
        for (char digit : node.Text()) {
            const auto value = static_cast<std::uint32_t>(digit - '0');
            exact = std::min<std::uint64_t>(exact * 10 + value, std::uint64_t{1} << 40);
            wrapped = wrapped * 10 + value;
        }
        if (exact > INT32_MAX)
            found.push_back({node.start, "overflow",
                             "this number is too large and counts as " +
                                 std::to_string(static_cast<std::int32_t>(wrapped)),
                             "Numbers go up to 2147483647."});
    }
    if (node.rule != VexRule::kMultiplicative)
        return;
    for (std::size_t i = 1; i < node.children.size(); ++i) {
        const std::string_view between(
            node.children[i - 1].end,
            static_cast<std::size_t>(node.children[i].start - node.children[i - 1].end));
        if (const std::size_t at = between.find('%'); at != std::string_view::npos)
            found.push_back({between.data() + at, "percent",
                             "the percent sign divides, as '/' does; it gives no remainder",
                             "The remainder of a and b is a - a / b * b."});
    }
}

void CheckKeyValue(const SyntaxNode& node, const Kesto::VexPropertyKey& key, ValueKind kind,
                   std::vector<Diagnostic>& found)
{
    const SyntaxNode* const value = node.Child(VexRule::kValue);
    if (value == nullptr) // a number that a statement assigns
        return;
    CheckFamilies(*value, key, found);
    if (const auto wrong = WrongKind(Quoted(key.name), key.kind, kind)) {
        const char* const hint = key.kind == VexKeyKind::kText ? "Texts stand in single quotes."
                                 : key.kind == VexKeyKind::kDecimal
                                     ? "For example '1.5'."
                                     : "Only a text of four characters is a number as well.";
        found.push_back({value->start, "wrong-kind", *wrong, hint});
    } else if (value->Child(VexRule::kString) != nullptr && kind.isNumber &&
               IsLostWithFourBytes(key.name)) {
        const std::string text(value->Text().substr(1, 4));
        found.push_back({value->start, "four-bytes",
                         "a text of four bytes is a number as well, and no class gets it",
                         "Any other length will do, and so does '$$$/some/key=" + text + "'."});
    }
}

} // namespace Vex
