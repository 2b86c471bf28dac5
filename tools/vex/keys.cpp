#include "vex/keys.h"

#include "controls/registered_classes.h"
#include "dialogs/preview/preview_classes.h"
#include "layout/build/builder_registry.h"
#include "vex/values.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace Vex {

namespace {

using Kesto::PropertyRow;
using Kesto::PropertyRows;

// What a key takes, in a word or two; the families of its constants for a number.
std::string KindOf(const PropertyRow& row)
{
    const Kesto::VexPropertyKey& key = *FindWord(Kesto::PropertyKeys(), row.key.text);
    if (!key.families[0].empty())
        return std::string(key.families[0]) +
               (key.families[1].empty() ? "" : ", " + std::string(key.families[1]));
    switch (key.kind) {
    case Kesto::VexKeyKind::kNumber:
        return "number";
    case Kesto::VexKeyKind::kDecimal:
        return "number or text";
    case Kesto::VexKeyKind::kText:
        return "text";
    default:
        return "name or number";
    }
}

std::vector<PropertyRows> TablesOf(const Kesto::RegisteredClass& registered)
{
    Project::RegisterPreviewClasses();
    std::vector<PropertyRows> tables;
    Kesto::FindBuilder(registered.name)->AppendRows(tables);
    return tables;
}

// The constant that the default is, for a key that takes constants.
std::string DefaultOf(const PropertyRow& row)
{
    const Kesto::VexPropertyKey& key = *FindWord(Kesto::PropertyKeys(), row.key.text);
    for (const auto table : {Kesto::StandardConstants(), Kesto::ClassConstants()})
        for (const Kesto::VexConstant& constant : table)
            if (constant.family == key.families[0] && constant.value == row.fallback)
                return std::string(constant.name.text);
    return row.fallback != 0 ? std::to_string(row.fallback) : "";
}

void PrintMarkdown(std::ostream& out, std::string_view title, std::span<const PropertyRows> tables)
{
    out << "### " << title << "\n\n| key | takes | default | |\n| --- | --- | --- | --- |\n";
    for (PropertyRows rows : tables)
        for (const PropertyRow& row : rows)
            out << "| `" << row.key.text << "` | " << KindOf(row) << " | " << DefaultOf(row)
                << " | " << row.purpose << " |\n";
    out << '\n';
}

// A list of names in lines of a readable length.
void PrintNames(std::ostream& out, const std::vector<std::string_view>& names)
{
    constexpr std::size_t kPageWidth = 100;
    std::size_t column = 0;
    for (std::string_view name : names) {
        const bool isLast = name.data() == names.back().data();
        const std::string word = '`' + std::string(name) + (isLast ? "`." : "`,");
        if (column > 0 && column + 1 + word.size() > kPageWidth) {
            out << '\n';
            column = 0;
        }
        out << (column > 0 ? " " : "") << word;
        column += (column > 0 ? 1 : 0) + word.size();
    }
    out << '\n';
}

} // namespace

bool PrintKeys(std::ostream& out, std::string_view className)
{
    const Kesto::RegisteredClass* const registered =
        FindWord(Kesto::RegisteredClasses(), className);
    if (registered == nullptr)
        return false;
    if (registered->IsToCome())
        out << className << " is still to come; a placeholder stands for it.\n";
    for (PropertyRows rows : TablesOf(*registered))
        for (const PropertyRow& row : rows)
            out << std::left << std::setw(28) << row.key.text << std::setw(18) << KindOf(row)
                << std::setw(8) << row.fallback << row.purpose << '\n';
    return true;
}

void PrintClassTables(std::ostream& out, const Kesto::RegisteredClass& registered)
{
    const bool isPane = registered.kind == Kesto::VexClassKind::kPane;
    const auto shared = TablesOf(
        *FindWord(Kesto::RegisteredClasses(), std::string_view(isPane ? "CPane" : "CWindow")));
    const std::vector<PropertyRows> tables = TablesOf(registered);
    if (tables.size() > shared.size())
        PrintMarkdown(out, "Its own keys", std::span(tables).subspan(shared.size()));
    PrintMarkdown(out, isPane ? "Keys of every pane" : "Keys of every window",
                  std::span(shared).subspan(1));
    PrintMarkdown(out, "Keys of every view", std::span(shared).first(1));
}

// The tables that all classes share come first and once; then each class with those of its own.
void PrintAllKeys(std::ostream& out)
{
    const auto pane = TablesOf(*FindWord(Kesto::RegisteredClasses(), std::string_view("CPane")));
    const auto window =
        TablesOf(*FindWord(Kesto::RegisteredClasses(), std::string_view("CWindow")));
    PrintMarkdown(out, "Every view", std::span(pane).first(1));
    PrintMarkdown(out, "Every window", std::span(window).subspan(1));
    PrintMarkdown(out, "Every pane", std::span(pane).subspan(1));
    std::vector<std::string_view> toCome;
    for (const Kesto::RegisteredClass& registered : Kesto::RegisteredClasses()) {
        if (registered.IsToCome()) {
            toCome.push_back(registered.name);
            continue;
        }
        const std::vector<PropertyRows> tables = TablesOf(registered);
        const std::size_t shared =
            registered.kind == Kesto::VexClassKind::kPane ? pane.size() : window.size();
        if (tables.size() > shared)
            PrintMarkdown(out, registered.name, std::span(tables).subspan(shared));
    }
    if (toCome.empty())
        return;
    out << "### Still to come\n\nA placeholder of about their size stands for these:\n";
    PrintNames(out, toCome);
}

} // namespace Vex
