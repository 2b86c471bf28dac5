// The names of a layout text: classes, keys, constants and variables, and identifiers that must
// differ.
#include "vex/check.h"
#include "vex/nearest_word.h"
#include "vex/values.h"

#include "controls/registered_classes.h"
#include "dialogs/preview/preview_classes.h"
#include "layout/build/builder_registry.h"
#include "layout/language/layout_keys.h"

#include <map>
#include <optional>
#include <set>
#include <utility>

namespace Vex {

namespace {

using Kesto::VexRule;

using Variables = std::map<std::string_view, ValueKind>;

template <class Table>
void ConsiderAll(CNearestWord& nearest, const Table& table)
{
    for (const auto& row : table)
        nearest.Consider(WordOf(row));
}

std::string Quoted(std::string_view name)
{
    return '\'' + std::string(name) + '\'';
}

// What the whole text defines and reads, so that a name can be told from one that is only
// misplaced.
struct NamesOfText {
    void Collect(const std::vector<SyntaxNode>& nodes)
    {
        for (const SyntaxNode& node : nodes) {
            if (node.rule == VexRule::kAssignment || node.rule == VexRule::kTargetName)
                definitions.emplace(node.Name(), node.start);
            else if (node.rule == VexRule::kVariable || node.rule == VexRule::kWholeName)
                reads.insert(node.Name());
            Collect(node.children);
        }
    }

    std::map<std::string_view, const char*> definitions; // where each is defined first
    std::set<std::string_view> reads;
};

bool ReadsKey(const Kesto::RegisteredClass& registered, std::string_view key)
{
    std::vector<Kesto::PropertyRows> tables;
    Kesto::FindBuilder(registered.name)->AppendRows(tables);
    return std::ranges::any_of(tables, [key](Kesto::PropertyRows rows) {
        return std::ranges::any_of(
            rows, [key](const Kesto::PropertyRow& row) { return row.key.text == key; });
    });
}

// Whether the key is one that every view takes over from the top of a text, as a truth value.
bool IsTruthAtTheTop(std::string_view key)
{
    Kesto::LayoutKeySet keys;
    AddLayoutKey(Kesto::VexName(key), keys);
    return !(keys & Kesto::LayoutKeySet::Copied()).IsEmpty();
}

// Walks the tree as the parser went, so that it knows what was defined when a name was read.
class CNameChecker {
public:
    CNameChecker(const CSourceText& source, std::vector<Diagnostic>& found, bool isWhole)
        : fSource(source), fFound(found), fIsWhole(isWhole), fScopes(1)
    {
    }

    // Of a text that can't be read to its end there are nodes that never became part of a
    // statement; what they name is of no interest before that is mended.
    void CheckText(const std::vector<SyntaxNode>& nodes)
    {
        fNames.Collect(nodes);
        for (const SyntaxNode& node : nodes)
            if (node.rule == VexRule::kView || node.rule == VexRule::kAssignment ||
                node.rule == VexRule::kStep || node.rule == VexRule::kAlignCenters)
                Check(node);
    }

private:
    void CheckList(const std::vector<SyntaxNode>& nodes)
    {
        for (const SyntaxNode& node : nodes)
            Check(node);
    }

    // A name is defined only after its value has been looked at: it may not be read there.
    void Check(const SyntaxNode& node)
    {
        CheckValueForms(node, fFound);
        switch (node.rule) {
        case VexRule::kView:
            CheckView(node);
            return;
        case VexRule::kBlock:
            fScopes.emplace_back();
            CheckList(node.children);
            fScopes.pop_back();
            return;
        case VexRule::kAssignment:
            CheckList(node.children);
            CheckAssignment(node, KindOf(node));
            fScopes.back()[node.Name()] = KindOf(node);
            return;
        case VexRule::kTargetName:
            CheckAssignment(node, {});
            fScopes.back()[node.Name()] = {};
            return;
        case VexRule::kVariable:
        case VexRule::kWholeName:
            CheckVariable(node);
            return;
        default:
            CheckList(node.children);
        }
    }

    // The properties are a scope of their own, which the block of the view doesn't see.
    void CheckView(const SyntaxNode& view)
    {
        fClass = FindWord(Kesto::RegisteredClasses(), view.Name());
        if (fClass == nullptr) {
            CNearestWord nearest(view.Name());
            ConsiderAll(nearest, Kesto::RegisteredClasses());
            Report(view.start, "unknown-class", "no class has the name " + Quoted(view.Name()),
                   nearest.Hint());
        }
        fScopes.emplace_back();
        std::map<std::string_view, const char*> given;
        for (const SyntaxNode& child : view.children)
            if (child.rule == VexRule::kProperty) {
                const auto [first, isNew] = given.emplace(child.Name(), child.start);
                if (!isNew)
                    Report(child.start, "duplicate-key",
                           Quoted(child.Name()) + " is given a second time",
                           "The last one counts. " + First(first->second));
                CheckProperty(child);
            }
        fScopes.pop_back();
        if (const SyntaxNode* const block = view.Child(VexRule::kBlock))
            Check(*block);
    }

    // Only of panes that are there: what a class that is still to come will read isn't known.
    void CheckClassReads(const SyntaxNode& property)
    {
        if (fClass == nullptr || fClass->IsToCome() || fClass->kind != Kesto::VexClassKind::kPane ||
            ReadsKey(*fClass, property.Name()))
            return;
        Report(property.start, "unread-key",
               std::string(fClass->name) + " doesn't read " + Quoted(property.Name()), "");
    }

    void CheckProperty(const SyntaxNode& property)
    {
        fKey = FindWord(Kesto::PropertyKeys(), property.Name());
        CheckList(property.children);
        const ValueKind kind = KindOf(property);
        if (fKey == nullptr) {
            ReportUnknownKey(property);
        } else {
            CheckKeyValue(property, *fKey, kind, fFound);
            CheckClassReads(property);
        }
        fKey = nullptr;
        if (property.Name() == "view_id")
            CheckId(property);
        fScopes.back()[property.Name()] = kind;
    }

    void ReportUnknownKey(const SyntaxNode& property)
    {
        CNearestWord nearest(property.Name());
        ConsiderAll(nearest, Kesto::PropertyKeys());
        Report(property.start, "unknown-key", "no class reads a key " + Quoted(property.Name()),
               nearest.Hint());
    }

    // In a block, what has the name of a key is that key for all views that follow.
    void CheckAssignment(const SyntaxNode& node, ValueKind kind)
    {
        const std::string_view name = node.Name();
        const Kesto::VexPropertyKey* const key = FindWord(Kesto::PropertyKeys(), name);
        if (key == nullptr && !fNames.reads.contains(name) &&
            name != Kesto::NameOf(Kesto::LayoutKey::kDefaultSpacing).text) {
            CNearestWord nearest(name);
            ConsiderAll(nearest, Kesto::PropertyKeys());
            Report(node.start, "unused-name",
                   "nothing reads " + Quoted(name) + ": no class and no expression",
                   nearest.Hint());
        }
        if (key == nullptr)
            return;
        CheckKeyValue(node, *key, kind, fFound);
        if (fIsWhole && fScopes.size() == 1)
            CheckRootKey(node);
    }

    void CheckRootKey(const SyntaxNode& node)
    {
        const SyntaxNode* const value = node.Child(VexRule::kValue);
        const std::string_view text = value == nullptr ? std::string_view() : value->Text();
        const bool isTruth = text == "0" || text == "1" || text == "true" || text == "false";
        if (IsTruthAtTheTop(node.Name()) && !isTruth)
            Report(node.start, "root-key",
                   Quoted(node.Name()) + " counts as 1 at the top of a text, or as 0 if it is 0",
                   "In a block, or in a view, it has its number.");
        else if (!IsTruthAtTheTop(node.Name()) && !fNames.reads.contains(node.Name()))
            Report(node.start, "root-key",
                   "no view gets " + Quoted(node.Name()) + " from the top of a text",
                   "It reaches the views of a block that it stands in.");
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
                   "Messages and lookups find only one of them. " + First(first->second->start));
    }

    // A name is unknown at the place where it is read, even if it is defined further on.
    void CheckVariable(const SyntaxNode& variable)
    {
        const std::string_view name = variable.Name();
        if (Lookup(name) || FindConstant(name) != nullptr)
            return;
        if (const auto found = fNames.definitions.find(name); found != fNames.definitions.end()) {
            const bool isLater = found->second > variable.start;
            Report(variable.start, "unknown-constant",
                   Quoted(name) + (isLater ? " is read before it is defined"
                                           : " is defined in another block only"),
                   "Its definition stands in line " + LineOf(found->second) + ".");
            return;
        }
        Report(variable.start, "unknown-constant", "nothing defines the name " + Quoted(name),
               HintForUnknown(name));
    }

    std::string HintForUnknown(std::string_view name) const
    {
        if (fKey != nullptr && fKey->kind == Kesto::VexKeyKind::kText)
            return "A text stands in single quotes: '" + std::string(name) + "'.";
        CNearestWord nearest(name);
        ConsiderAll(nearest, Kesto::StandardConstants());
        ConsiderAll(nearest, Kesto::ClassConstants());
        for (const Variables& scope : fScopes)
            for (const auto& [word, kind] : scope)
                nearest.Consider(word);
        return nearest.Hint();
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
        if (const SyntaxNode* const string = value->Child(VexRule::kString))
            return KindOfText(string->Text().substr(1, string->Text().size() - 2));
        if (const SyntaxNode* const whole = value->Child(VexRule::kWholeName)) {
            if (const std::optional<ValueKind> kind = Lookup(whole->Name()))
                return *kind;
            return FindConstant(whole->Name()) != nullptr ? ValueKind{}
                                                          : ValueKind{true, true, true};
        }
        return {};
    }

    std::string LineOf(const char* position) const
    {
        return std::to_string(fSource.PlaceOf(position).line);
    }
    std::string First(const char* position) const
    {
        return "The first stands in line " + LineOf(position) + ".";
    }

    void Report(const char* position, std::string kind, std::string message, std::string hint)
    {
        fFound.push_back({position, std::move(kind), std::move(message), std::move(hint)});
    }

    const CSourceText& fSource;
    std::vector<Diagnostic>& fFound;
    bool fIsWhole; // the text could be read to its end
    NamesOfText fNames;
    std::vector<Variables> fScopes;                 // the innermost last
    const Kesto::RegisteredClass* fClass = nullptr; // of the view whose properties are looked at
    const Kesto::VexPropertyKey* fKey = nullptr;    // of the property that is being looked at
    std::map<std::string_view, const SyntaxNode*> fIds;
};

} // namespace

void CheckNames(const CSourceText& source, const LayoutReading& reading,
                std::vector<Diagnostic>& found)
{
    Project::RegisterPreviewClasses();
    CNameChecker(source, found, reading.error.empty()).CheckText(reading.nodes);
}

} // namespace Vex
