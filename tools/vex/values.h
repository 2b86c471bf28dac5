// What the values of a layout text are good for.
#pragma once

#include "layout/vocabulary/keywords.h"
#include "vex/diagnostic.h"
#include "vex/syntax_tree.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace Vex {

// A string of four bytes is a number as well.
struct ValueKind {
    bool isNumber = true;
    bool isText = false;
    bool isDecimal = false; // reads as a number with or without a fraction
};

ValueKind KindOfText(std::string_view text);

template <class Row>
std::string_view WordOf(const Row& row)
{
    return row.name;
}
inline std::string_view WordOf(const Kesto::VexConstant& constant)
{
    return constant.name.text;
}

// The row of a table of the vocabulary, or null.
template <class Table>
auto FindWord(const Table& table, std::string_view word)
{
    const auto found =
        std::ranges::find_if(table, [word](const auto& row) { return WordOf(row) == word; });
    return found == table.end() ? nullptr : &*found;
}

const Kesto::VexConstant* FindConstant(std::string_view name);

// A number that doesn't fit, a percent sign that divides.
void CheckValueForms(const SyntaxNode& node, std::vector<Diagnostic>& found);

// Whether the value of a property or assignment is of the kind, and its constants of a family, that
// the key takes.
void CheckKeyValue(const SyntaxNode& node, const Kesto::VexPropertyKey& key, ValueKind kind,
                   std::vector<Diagnostic>& found);

} // namespace Vex
