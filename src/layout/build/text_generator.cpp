#include "layout/build/text_generator.h"

#include "layout/build/view_layout_record.h"
#include "layout/language/expression_scope.h"

namespace Kesto {

void CTextGenerator::Measure(std::string_view, CExpressionScope* properties,
                             CExpressionScope* layoutScope)
{
    CopyScopeVariables(*properties, *layoutScope, fRoot);
    ViewLayoutRecord::Read(*properties, fRoot).Write(*layoutScope);
}

CView* CTextGenerator::Build(std::string_view, CExpressionScope*, CView*)
{
    return nullptr;
}

} // namespace Kesto
