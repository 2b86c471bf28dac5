// One reading of a layout text by the parser of the program itself, with all that the tools want to
// know of it.
#pragma once

#include "layout/language/vex_properties.h"
#include "vex/source_text.h"
#include "vex/syntax_tree.h"

#include <map>
#include <string>
#include <vector>

namespace Vex {

// A view in the order of the text, an enclosing one first.
struct ViewReading {
    std::string className;
    Kesto::CVexVariablePropertyList properties; // its own
    Kesto::CVexVariablePropertyList layout;     // its layout scope, when it would be built
};

struct LayoutReading {
    std::vector<SyntaxNode> nodes; // they point into the source
    std::vector<ViewReading> views;
    std::map<const char*, Kesto::CVexVariablePropertyList>
        blocks;                           // the variables of each, by the end of the block
    Kesto::CVexVariablePropertyList root; // the variables of the whole text, with all constants
    std::string error;                    // the parser's message; empty: all is well
    SyntaxFailure failure;                // where it came up, as well as is known
};

// With all constants of the program in the root scope, and no classes: sizes are those that the
// text gives.
LayoutReading ReadLayout(const CSourceText& source);

} // namespace Vex
