#include "vex/syntax_tree.h"

#include <algorithm>
#include <iterator>

namespace Vex {

using Kesto::VexRule;

const SyntaxNode* SyntaxNode::Child(VexRule wanted) const
{
    const auto found = std::ranges::find(children, wanted, &SyntaxNode::rule);
    return found == children.end() ? nullptr : &*found;
}

std::string_view SyntaxNode::Name() const
{
    const SyntaxNode* const name = rule == VexRule::kName ? this : Child(VexRule::kName);
    return name == nullptr ? std::string_view() : name->Text();
}

bool SyntaxFailure::Expects(std::string_view what) const
{
    return std::ranges::find(expected, what) != expected.end();
}

// Nodes arrive after what they consist of. A name, number or string that begins before the end of
// an earlier node shows that the parser went back there: what it had found beyond doesn't count.
void CTreeListener::Event(VexRule rule, const char* start, const char* end)
{
    SyntaxNode node{rule, start, end, {}};
    if (rule == VexRule::kName || rule == VexRule::kInteger || rule == VexRule::kString) {
        while (!fNodes.empty() && fNodes.back().end > start)
            fNodes.pop_back();
    } else {
        const auto first = std::ranges::lower_bound(fNodes, start, {}, &SyntaxNode::start);
        auto rest = first;
        // a + b + c arrives as a sum of a sum, but is kept as one of three, or a long one would be
        // as deep as it is long.
        if (first != fNodes.end() && first->rule == rule && first->start == start)
            node.children = std::move((rest++)->children);
        std::copy_if(std::make_move_iterator(rest), std::make_move_iterator(fNodes.end()),
                     std::back_inserter(node.children),
                     [&](const SyntaxNode& child) { return child.end <= end; });
        fNodes.erase(first, fNodes.end());
    }
    fNodes.push_back(std::move(node));
}

void CTreeListener::Expected(const char* position, const char* what)
{
    if (position < fFailure.position)
        return;
    if (position > fFailure.position)
        fFailure = {position, {}};
    if (!fFailure.Expects(what))
        fFailure.expected.push_back(what);
}

} // namespace Vex
