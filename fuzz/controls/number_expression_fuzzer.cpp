// Any text ends in a value or in the reason why there is none; a value stays the same in
// parentheses, between blanks and negated twice.
#include "controls/fields/number_expression.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace Kesto;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 300));
    const ExpressionResult result = EvaluateExpression(text);
    const bool isGood = result.status == ExpressionStatus::kGood;
    if (isGood != std::isfinite(result.value))
        std::abort();
    const ExpressionResult again = EvaluateExpression(" -(-(" + text + ") )\t");
    const bool isTooDeep = std::ranges::count(text, '(') > kDeepestExpression - 2;
    if (isGood && !isTooDeep && again.value != result.value)
        std::abort();
    return 0;
}
