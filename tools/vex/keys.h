// The keys that each class reads, from the tables that its builder reads them by.
#pragma once

#include "controls/registered_classes.h"

#include <iosfwd>
#include <string_view>

namespace Vex {

// One class in plain lines: the key, what it takes, its default, its purpose. False if there is no
// such class.
bool PrintKeys(std::ostream& out, std::string_view className);

// The tables of one class as Markdown, its own first.
void PrintClassTables(std::ostream& out, const Kesto::RegisteredClass& registered);

// All classes as Markdown, for docs/layout.md.
void PrintAllKeys(std::ostream& out);

} // namespace Vex
