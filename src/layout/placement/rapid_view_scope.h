// A scope that can hold views, and the parser of whole layout texts.
//
//     a = 10;                                    assignments and statements, also in blocks
//     step(100, 10, &b, &c);                     b is 100, c is 110
//     CFramePane(placement: place_row) {         a view with its properties, and its children in a
//     block
//         CPushButton(width: a * 2);
//     }
//
// A property is seen by the view that has it. An assignment is seen by what follows it in its block
// and in the blocks within, and is gone at the end of the block.
#pragma once

#include "layout/language/expression_scope.h"
#include "layout/placement/view_proxy.h"

#include <memory>

namespace Kesto {

class CGenerator;
class CView;

class CRapidViewScope : public CExpressionScope {
public:
    // Without a generator, `parent` must be a CRapidViewScope, whose generator is taken over;
    // otherwise throws std::logic_error "Warning! (viewParentScope)". With one, the scope shares
    // the generator's string pool.
    CRapidViewScope(CExpressionScope* parent, CGenerator* generator,
                    CClientFunctions* functions = nullptr, ParseListener* listener = nullptr);

    // A scope to parse with. `withConstants` defines true, false and the words for alignment,
    // frames and placement.
    static std::unique_ptr<CRapidViewScope>
    CreateRootScope(CExpressionScope* parent, CGenerator* generator, CClientFunctions* functions,
                    ParseListener* listener, bool withConstants);

    // Reads a text that holds exactly one outermost view, has the generator measure each view as it
    // is read, places them, has them built, and returns the generator's result or else the
    // outermost view, which may be null. Throws std::logic_error, naming the condition that doesn't
    // hold:
    //   "Warning! (*definition == 0)"                the text can't be read to its end
    //   "Warning! (viewProxyList.list->size() == 1)" it holds no view, or several
    //   "Warning! (variable != NULL)"                a name by itself as a value, unknown
    //   "Warning! (divisor != 0)", "Warning! (nesting < kMaxNesting)"
    CView* Parse(const char* text);

    CGenerator& Generator() const { return *fGenerator; }

private:
    explicit CRapidViewScope(CRapidViewScope& parent);

    // The scope of the properties of a view, or of a block, in this one. There is never more than
    // one of each in use at a time, so each is made once and cleared for the next.
    CRapidViewScope& PropertyScope();
    CRapidViewScope& BlockScope(const char* start);

    void MatchViewList(const char*& cursor, CViewProxy* parent, ViewProxyList& list);
    bool MatchView(const VexName& name, const char*& cursor, CViewProxy* parent,
                   ViewProxyList& list);
    bool MatchBlock(const char*& cursor, CViewProxy& view);
    void MatchPropertyList(const char*& cursor);
    bool MatchProperty(const char*& cursor);

    CGenerator* fGenerator;
    std::unique_ptr<CRapidViewScope> fPropertyScope;
    std::unique_ptr<CRapidViewScope> fBlockScope;
};

} // namespace Kesto
