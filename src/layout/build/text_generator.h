// A generator that knows no classes: views have the sizes that their text gives, and none is made.
#pragma once

#include "layout/placement/generator.h"

namespace Kesto {

class CTextGenerator : public CGenerator {
public:
    // What is at the top of a text, in this scope, is no property of any view.
    void SetRoot(const CExpressionScope* root) { fRoot = root; }

    void Measure(std::string_view className, CExpressionScope* properties,
                 CExpressionScope* layoutScope) override;
    CView* Build(std::string_view className, CExpressionScope* layoutScope,
                 CView* parentView) override;

private:
    const CExpressionScope* fRoot = nullptr;
};

} // namespace Kesto
