// The tree of a layout text, gathered from the parser's trace. Its nodes point into the text.
#pragma once

#include "layout/language/parse_listener.h"

#include <string_view>
#include <vector>

namespace Vex {

struct SyntaxNode {
    Kesto::VexRule rule;
    const char* start;
    const char* end;
    std::vector<SyntaxNode> children;

    std::string_view Text() const { return {start, static_cast<std::size_t>(end - start)}; }

    // The first child of that rule, or null.
    const SyntaxNode* Child(Kesto::VexRule wanted) const;

    // The text of the first name in the node: of a view its class, of a property its key.
    std::string_view Name() const;
};

// Where the parser could not go on, and what it looked for there.
struct SyntaxFailure {
    const char* position = nullptr;
    std::vector<std::string_view> expected;

    bool Expects(std::string_view what) const;
};

// Listens to one parse.
class CTreeListener : public Kesto::ParseListener {
public:
    void Event(Kesto::VexRule rule, const char* start, const char* end) override;
    // Lets every name pass: those who walk the tree know better which one is unknown.
    bool IsDefined(std::string_view) override { return true; }
    void Expected(const char* position, const char* what) override;

    // What is side by side at the top.
    const std::vector<SyntaxNode>& Nodes() const { return fNodes; }
    const SyntaxFailure& Failure() const { return fFailure; }

private:
    std::vector<SyntaxNode> fNodes;
    SyntaxFailure fFailure;
};

} // namespace Vex
