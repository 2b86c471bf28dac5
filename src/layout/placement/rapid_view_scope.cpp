#include "layout/placement/rapid_view_scope.h"

#include "layout/placement/generator.h"
#include "layout/placement/placement.h"
#include "layout/vocabulary/keywords.h"

#include <stdexcept>

namespace Kesto {

namespace {

CGenerator& GeneratorFor(CExpressionScope* parent, CGenerator* generator)
{
    if (generator != nullptr)
        return *generator;
    const auto* const viewParentScope = dynamic_cast<const CRapidViewScope*>(parent);
    if (viewParentScope == nullptr)
        throw std::logic_error("Warning! (viewParentScope)");
    return viewParentScope->Generator();
}

} // namespace

CRapidViewScope::CRapidViewScope(CExpressionScope* parent, CGenerator* generator,
                                 CClientFunctions* functions, ParseListener* listener)
    : CExpressionScope(parent, functions, generator != nullptr ? &generator->Pool() : nullptr,
                       listener),
      fGenerator(&GeneratorFor(parent, generator))
{
}

CRapidViewScope::CRapidViewScope(CRapidViewScope& parent)
    : CExpressionScope(&parent), fGenerator(parent.fGenerator)
{
}

std::unique_ptr<CRapidViewScope> CRapidViewScope::CreateRootScope(CExpressionScope* parent,
                                                                  CGenerator* generator,
                                                                  CClientFunctions* functions,
                                                                  ParseListener* listener,
                                                                  bool withConstants)
{
    auto root = std::make_unique<CRapidViewScope>(parent, generator, functions, listener);
    if (withConstants)
        for (const VexConstant& constant : StandardConstants())
            root->AddConstant(constant.name, constant.value);
    return root;
}

CRapidViewScope& CRapidViewScope::PropertyScope()
{
    if (!fPropertyScope)
        fPropertyScope.reset(new CRapidViewScope(*this));
    else
        fPropertyScope->Clear();
    return *fPropertyScope;
}

CRapidViewScope& CRapidViewScope::BlockScope(const char* start)
{
    CheckNesting(start);
    if (!fBlockScope)
        fBlockScope.reset(new CRapidViewScope(*this));
    else
        fBlockScope->Clear();
    return *fBlockScope;
}

CView* CRapidViewScope::Parse(const char* text)
{
    const char* definition = text;
    ViewProxyList list;
    MatchViewList(definition, nullptr, list);
    definition = SkipVexSpace(definition);
    if (*definition != 0)
        throw std::logic_error("Warning! (*definition == 0)");
    if (list.size() != 1)
        throw std::logic_error("Warning! (viewProxyList.list->size() == 1)");
    if (Listener() != nullptr)
        Listener()->ScopeEnds(*this, definition);
    SolvePlacement(*list.front());
    CView* const built = RealizeViews(*list.front(), *fGenerator);
    return fGenerator->Result() != nullptr ? fGenerator->Result() : built;
}

// Statements, assignments and views all begin with a name, so it is read once for all three. Only a
// statement has a word before its parenthesis that is looked at.
void CRapidViewScope::MatchViewList(const char*& cursor, CViewProxy* parent, ViewProxyList& list)
{
    for (;;) {
        const char* at = SkipVexSpace(cursor);
        if ((*at == 's' || *at == 'a') && MatchStatement(cursor))
            continue;
        VexName name;
        if (!MatchName(at, name))
            return;
        if (!MatchAssignment(name, at) && !MatchView(name, at, parent, list))
            return;
        cursor = at;
    }
}

// The class measures the view before its block is read, since the children take over what it
// decides for them. A view that fails in its block has been measured for nothing; the text is
// refused then.
bool CRapidViewScope::MatchView(const VexName& name, const char*& cursor, CViewProxy* parent,
                                ViewProxyList& list)
{
    const char* at = cursor;
    if (!MatchLiteral(at, "("))
        return false;
    CRapidViewScope& properties = PropertyScope();
    properties.MatchPropertyList(at);
    if (!MatchLiteral(at, ")"))
        return false;
    auto view = std::make_unique<CViewProxy>(parent, fGenerator->Pool());
    view->Define(name.text, properties, *fGenerator);
    if (!MatchLiteral(at, ";") && !BlockScope(at).MatchBlock(at, *view))
        return false;
    Matched(VexRule::kView, name.text.data(), at);
    list.push_back(std::move(view));
    cursor = at;
    return true;
}

bool CRapidViewScope::MatchBlock(const char*& cursor, CViewProxy& view)
{
    const char* at = cursor;
    if (!MatchLiteral(at, "{"))
        return false;
    MatchViewList(at, &view, view.fChildren);
    if (!MatchLiteral(at, "}"))
        return false;
    if (Listener() != nullptr)
        Listener()->ScopeEnds(*this, at);
    Matched(VexRule::kBlock, cursor, at);
    cursor = at;
    return true;
}

// A property that can't be read ends the list before the comma in front of it.
void CRapidViewScope::MatchPropertyList(const char*& cursor)
{
    const char* at = cursor;
    while (MatchProperty(at)) {
        cursor = at;
        if (!MatchLiteral(at, ","))
            return;
    }
}

bool CRapidViewScope::MatchProperty(const char*& cursor)
{
    const char* at = cursor;
    VexName name;
    VexContent value;
    if (!MatchName(at, name) || !MatchLiteral(at, ":") || !ParseValue(at, ",)", value))
        return false;
    AddUncopied(name, value); // the scope is cleared before the text ends
    Matched(VexRule::kProperty, cursor, at);
    cursor = at;
    return true;
}

} // namespace Kesto
