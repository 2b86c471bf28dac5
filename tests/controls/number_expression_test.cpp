#include "controls/fields/number_expression.h"

#include "support/testing.h"

using namespace Kesto;

namespace {

using enum ExpressionStatus;

TEST(NumberExpression, GivesTheValueOrSaysWhyThereIsNone)
{
    const std::string deep(kDeepestExpression, '(');
    const std::string deepest = deep + "1" + std::string(kDeepestExpression, ')');
    const struct {
        std::string text;
        ExpressionStatus status;
        double value;
    } rows[] = {
        {"2*(3+4)", kGood, 14},
        {"1+2*3-4/8", kGood, 6.5},
        {"8/4/2", kGood, 1},
        {"7-2-1", kGood, 4},
        {" 1 +\t2 ", kGood, 3},
        {"--2*-+3", kGood, -6},
        {"2*-(1+1)", kGood, -4},
        {".5+5.", kGood, 5.5},
        {"1e3+2E-1", kGood, 1000.2},
        {"1e-999", kGood, 0},
        {"0." + std::string(400, '0') + "1", kGood, 0},
        {deepest, kGood, 1},
        {"", kEmpty, 0},
        {"  ", kEmpty, 0},
        {"abc", kBad, 0},
        {"1+", kBad, 0},
        {"(1", kBad, 0},
        {"1)", kBad, 0},
        {"()", kBad, 0},
        {"1 2", kBad, 0},
        {"2(3)", kBad, 0},
        {"1.2.3", kBad, 0},
        {".", kBad, 0},
        {"1/0", kBad, 0},
        {"0/(2-2)", kBad, 0},
        {"nan", kBad, 0},
        {"inf", kBad, 0},
        {"1,5", kBad, 0},
        {"(" + deepest + ")", kBad, 0},
        {std::string(400, '9'), kOverflow, 0},
        {"1e308*10", kOverflow, 0},
        {"1e308*10-1e308*10", kOverflow, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 40));
        const ExpressionResult result = EvaluateExpression(row.text);
        EXPECT_EQ(result.status, row.status);
        if (row.status == kGood) {
            EXPECT_DOUBLE_EQ(result.value, row.value);
        } else {
            EXPECT_TRUE(std::isnan(result.value));
        }
    }
}

} // namespace
