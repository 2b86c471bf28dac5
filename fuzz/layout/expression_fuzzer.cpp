// Any text through each evaluator. The first byte chooses it.
#include "layout/language/expression_scope.h"

#include <stdexcept>
#include <string>

namespace {

class CSumFunctions : public Kesto::CClientFunctions {
public:
    std::int32_t Call(const char*, Kesto::CExpressionScope& arguments) override
    {
        std::int32_t a = 0;
        arguments.GetFourCharVariable("a", &a);
        return a;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    CSumFunctions functions;
    Kesto::CExpressionScope scope(nullptr, data[0] >= '5' ? &functions : nullptr);
    scope.AddVariable("a", 7);
    try {
        switch (data[0] % 5) {
        case 0:
            scope.EvaluateCondition(text.c_str());
            break;
        case 1:
            scope.EvaluateInteger(text.c_str());
            break;
        case 2:
            scope.EvaluateStatements(text.c_str());
            break;
        case 3:
            scope.IsCondition(text.c_str());
            break;
        default: // a scope that a statement has filled
            scope.EvaluateStatements("step(1, 2, &b, &c);");
            scope.EvaluateCondition(text.c_str());
        }
    } catch (const std::logic_error&) {
    }
    return 0;
}
