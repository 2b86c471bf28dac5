#include "vex/keys.h"

#include "controls/registered_classes.h"
#include "layout/build/builder_registry.h"
#include "vex/values.h"

#include <iomanip>
#include <ostream>
#include <string>

namespace Vex {

namespace {

using Kesto::PropertyRow;
using Kesto::PropertyRows;

// What a key takes, in a word or two; the families of its constants stand for a number.
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
    Kesto::RegisterViewClasses();
    std::vector<PropertyRows> tables;
    Kesto::FindBuilder(registered.name)->AppendRows(tables);
    return tables;
}

void PrintMarkdown(std::ostream& out, PropertyRows rows)
{
    out << "| key | takes | default | |\n| --- | --- | --- | --- |\n";
    for (const PropertyRow& row : rows)
        out << "| `" << row.key.text << "` | " << KindOf(row) << " | "
            << (row.fallback != 0 ? std::to_string(row.fallback) : "") << " | " << row.purpose
            << " |\n";
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

// The tables that all classes share come first and once; then each class with those of its own.
void PrintAllKeys(std::ostream& out)
{
    out << "### Every view\n\n";
    PrintMarkdown(out, Kesto::PlacementRows());
    const auto pane = TablesOf(*FindWord(Kesto::RegisteredClasses(), std::string_view("CPane")));
    out << "### Every pane\n\n";
    for (std::size_t i = 1; i < pane.size(); ++i)
        PrintMarkdown(out, pane[i]);
    std::string toCome;
    for (const Kesto::RegisteredClass& registered : Kesto::RegisteredClasses()) {
        if (registered.IsToCome()) {
            toCome += (toCome.empty() ? "`" : ", `") + std::string(registered.name) + '`';
            continue;
        }
        const std::vector<PropertyRows> tables = TablesOf(registered);
        const bool isPane = registered.kind == Kesto::VexClassKind::kPane;
        const std::size_t shared = isPane ? pane.size() : 1;
        if (tables.size() <= shared)
            continue;
        out << "### " << registered.name << "\n\n";
        for (std::size_t i = shared; i < tables.size(); ++i)
            PrintMarkdown(out, tables[i]);
    }
    if (!toCome.empty())
        out << "### Still to come\n\nA placeholder of about their size stands for these: " << toCome
            << ".\n";
}

} // namespace Vex
