// CVexGenerator, between the parser and the classes: it has the class of each view say how large
// the view is, and make it when all are placed.
#pragma once

#include "layout/placement/generator.h"

namespace Kesto {

class CRapidViewScope;
class CViewBuilderBase;
class LayoutOwner;

class CVexGenerator : public CGenerator {
public:
    explicit CVexGenerator(LayoutOwner& owner);

    // To be called before the parse with the scope that it starts from.
    void SetRoot(CRapidViewScope* root) { fRoot = root; }
    CRapidViewScope* Root() const { return fRoot; }

    // Where builders find the properties of the view in work; null between views.
    const CExpressionScope* CurrentScope() const
    {
        return fLayout != nullptr ? fLayout : fProperties;
    }

    void Measure(std::string_view className, CExpressionScope* properties,
                 CExpressionScope* layoutScope) override;
    CView* Build(std::string_view className, CExpressionScope* layoutScope,
                 CView* parentView) override;

private:
    class CViewInWork;

    void Dispatch(std::string_view className);
    void MakeWindow(CViewBuilderBase& builder);
    CView* Construct(CViewBuilderBase& builder, CView* parent);

    LayoutOwner& fOwner;
    CRapidViewScope* fRoot = nullptr;
    const CExpressionScope* fProperties = nullptr; // of the view in work
    const CExpressionScope* fLayout = nullptr;
    bool fIntoExisting; // the owner has a target record
    bool fFilled = false;
};

} // namespace Kesto
