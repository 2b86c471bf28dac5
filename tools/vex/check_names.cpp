// The names of a layout text: classes, keys, constants and variables, and identifiers that must
// differ.
#include "vex/check.h"

#include "layout/vocabulary/keywords.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <utility>

namespace Vex {

namespace {

using Kesto::VexKeyKind;
using Kesto::VexRule;

// What a value is good for. A string of four bytes is a number as well.
struct ValueKind {
    bool isNumber = true;
    bool isText = false;
    bool isDecimal = false; // reads as a number with or without a fraction
};

using Variables = std::map<std::string_view, ValueKind>;

// The count of characters to add, remove or change, at least 1 for different words.
std::size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

// Offers the nearest of the words that were shown to it, if it is near enough to be what was meant.
class CNearest {
public:
    explicit CNearest(std::string_view name) : fName(name), fDistance(name.size() / 3 + 1) {}

    void Consider(std::string_view word)
    {
        const std::size_t distance = Distance(fName, word);
        if (distance < fDistance || (distance == fDistance && fBest.empty())) {
            fDistance = distance;
            fBest = word;
        }
    }
    std::string Hint() const
    {
        return fBest.empty() ? "" : "Did you mean " + std::string(fBest) + "?";
    }

private:
    std::string_view fName;
    std::size_t fDistance;
    std::string_view fBest;
};

template <class Row>
std::string_view WordOf(const Row& row)
{
    return row.name;
}
std::string_view WordOf(const Kesto::VexConstant& constant)
{
    return constant.name.text;
}

template <class Table>
auto FindWord(const Table& table, std::string_view word)
{
    const auto found =
        std::ranges::find_if(table, [word](const auto& row) { return WordOf(row) == word; });
    return found == table.end() ? nullptr : &*found;
}

template <class Table>
void ConsiderAll(CNearest& nearest, const Table& table)
{
    for (const auto& row : table)
        nearest.Consider(WordOf(row));
}

bool IsDecimal(std::string_view text)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto isDigitOrPoint = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    return !text.empty() && text != "." && std::ranges::all_of(text, isDigitOrPoint) &&
           std::ranges::count(text, '.') < 2;
}

// Walks the tree as the parser went, so that it knows what was defined when a name was read.
class CNameChecker {
public:
    explicit CNameChecker(std::vector<Diagnostic>& found) : fFound(found), fScopes(1) {}

    void CheckList(const std::vector<SyntaxNode>& nodes)
    {
        for (const SyntaxNode& node : nodes)
            Check(node);
    }

private:
    void Check(const SyntaxNode& node)
    {
        switch (node.rule) {
        case VexRule::kView:
            return CheckView(node);
        case VexRule::kBlock:
            fScopes.emplace_back();
            CheckList(node.children);
            fScopes.pop_back();
            return;
        case VexRule::kAssignment:
            CheckList(node.children);
            fScopes.back()[node.Name()] = KindOf(node);
            return;
        case VexRule::kTargetName:
            fScopes.back()[node.Name()] = {};
            return;
        case VexRule::kVariable:
        case VexRule::kWholeName:
            return CheckVariable(node);
        default:
            return CheckList(node.children);
        }
    }

    void CheckView(const SyntaxNode& view)
    {
        if (FindWord(Kesto::ViewClasses(), view.Name()) == nullptr) {
            CNearest nearest(view.Name());
            ConsiderAll(nearest, Kesto::ViewClasses());
            Report(view.start, "unknown-class", "no class has the name " + Quoted(view.Name()),
                   nearest.Hint());
        }
        fScopes.emplace_back();
        for (const SyntaxNode& child : view.children)
            if (child.rule == VexRule::kProperty)
                CheckProperty(child);
        fScopes.pop_back();
        if (const SyntaxNode* const block = view.Child(VexRule::kBlock))
            Check(*block);
    }

    void CheckProperty(const SyntaxNode& property)
    {
        CheckList(property.children);
        const ValueKind kind = KindOf(property);
        if (const Kesto::VexPropertyKey* const key =
                FindWord(Kesto::PropertyKeys(), property.Name()))
            CheckKind(property, key->kind, kind);
        else
            ReportUnknownKey(property);
        if (property.Name() == "view_id")
            CheckId(property);
        fScopes.back()[property.Name()] = kind;
    }

    void ReportUnknownKey(const SyntaxNode& property)
    {
        CNearest nearest(property.Name());
        ConsiderAll(nearest, Kesto::PropertyKeys());
        Report(property.start, "unknown-key", "no class reads a key " + Quoted(property.Name()),
               nearest.Hint());
    }

    void CheckKind(const SyntaxNode& property, VexKeyKind wanted, ValueKind kind)
    {
        const SyntaxNode* const value = property.Child(VexRule::kValue);
        const std::string key = Quoted(property.Name());
        if (wanted == VexKeyKind::kText && !kind.isText)
            Report(value->start, "wrong-kind", key + " takes a text, not a number",
                   "Texts stand in single quotes.");
        else if (wanted == VexKeyKind::kNumber && !kind.isNumber)
            Report(value->start, "wrong-kind", key + " takes a number, not a text",
                   "Only a text of four characters is a number as well.");
        else if (wanted == VexKeyKind::kDecimal && !kind.isNumber && !kind.isDecimal)
            Report(value->start, "wrong-kind", key + " takes a number, or a text that reads as one",
                   "For example '1.5'.");
    }

    void CheckId(const SyntaxNode& property)
    {
        const SyntaxNode* const value = property.Child(VexRule::kValue);
        if (value->Child(VexRule::kString) == nullptr || value->Text() == "''")
            return;
        const auto [first, isNew] = fIds.emplace(value->Text(), value);
        if (!isNew)
            Report(value->start, "duplicate-id",
                   "another view has the identifier " + std::string(value->Text()),
                   "Messages and lookups find only one of them.");
    }

    // A name is unknown at the place where it is read, even if it is defined further on.
    void CheckVariable(const SyntaxNode& variable)
    {
        const std::string_view name = variable.Name();
        if (Lookup(name) || IsConstant(name))
            return;
        CNearest nearest(name);
        ConsiderAll(nearest, Kesto::StandardConstants());
        ConsiderAll(nearest, Kesto::ClassConstants());
        for (const Variables& scope : fScopes)
            for (const auto& [word, kind] : scope)
                nearest.Consider(word);
        Report(variable.start, "unknown-constant", "nothing defines the name " + Quoted(name),
               nearest.Hint());
    }

    static bool IsConstant(std::string_view name)
    {
        return FindWord(Kesto::StandardConstants(), name) != nullptr ||
               FindWord(Kesto::ClassConstants(), name) != nullptr;
    }

    std::optional<ValueKind> Lookup(std::string_view name) const
    {
        for (auto scope = fScopes.rbegin(); scope != fScopes.rend(); ++scope)
            if (const auto found = scope->find(name); found != scope->end())
                return found->second;
        return std::nullopt;
    }

    // Of a property or an assignment. An unknown name is reported as such and counts as anything.
    ValueKind KindOf(const SyntaxNode& node) const
    {
        const SyntaxNode* const value = node.Child(VexRule::kValue);
        if (value == nullptr)
            return {};
        if (const SyntaxNode* const string = value->Child(VexRule::kString)) {
            const std::string_view text = string->Text().substr(1, string->Text().size() - 2);
            return {text.size() == 4, true, IsDecimal(text)};
        }
        if (const SyntaxNode* const whole = value->Child(VexRule::kWholeName)) {
            if (const std::optional<ValueKind> kind = Lookup(whole->Name()))
                return *kind;
            return IsConstant(whole->Name()) ? ValueKind{} : ValueKind{true, true, true};
        }
        return {};
    }

    static std::string Quoted(std::string_view name) { return '\'' + std::string(name) + '\''; }

    void Report(const char* position, std::string kind, std::string message, std::string hint)
    {
        fFound.push_back({position, std::move(kind), std::move(message), std::move(hint)});
    }

    std::vector<Diagnostic>& fFound;
    std::vector<Variables> fScopes; // the innermost last
    std::map<std::string_view, const SyntaxNode*> fIds;
};

} // namespace

void CheckNames(const std::vector<SyntaxNode>& nodes, std::vector<Diagnostic>& found)
{
    CNameChecker(found).CheckList(nodes);
}

} // namespace Vex
