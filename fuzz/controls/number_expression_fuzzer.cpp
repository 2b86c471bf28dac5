// Two evaluators of different make must agree on every text.
#include "controls/fields/number_expression.h"
#include "controls/stack_evaluator.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 300));
    const auto result = Kesto::EvaluateExpression(text);
    if (std::count(text.begin(), text.end(), '(') > Kesto::kDeepestExpression)
        return 0;
    const auto wanted = StackEvaluator().Run(text);
    const bool good = wanted && std::isfinite(*wanted);
    if ((result.status == Kesto::ExpressionStatus::kGood) != good)
        std::abort();
    if (good && result.value != *wanted)
        std::abort();
    return 0;
}
