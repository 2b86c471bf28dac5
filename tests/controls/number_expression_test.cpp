#include "controls/fields/number_expression.h"

#include "support/testing.h"

using namespace Kesto;

namespace {

using enum ExpressionStatus;

// golden/make_expressions gives them their values, by an evaluator of another make.
TEST(NumberExpression, HasTheValueThatAnotherEvaluatorGives)
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/tests/controls/golden/expressions.txt");
    int count = 0;
    for (std::string line; std::getline(file, line); ++count) {
        SCOPED_TRACE(line);
        const std::size_t tab = line.find('\t');
        const ExpressionResult result = EvaluateExpression(std::string_view(line).substr(tab + 1));
        const bool isGood = !line.starts_with("none");
        EXPECT_EQ(result.status == kGood, isGood);
        EXPECT_TRUE(isGood ? result.value == std::strtod(line.c_str(), nullptr)
                           : std::isnan(result.value));
    }
    EXPECT_GT(count, 500);
}

TEST(NumberExpression, SaysWhyThereIsNoValue)
{
    const std::string deepest =
        std::string(kDeepestExpression, '(') + "1" + std::string(kDeepestExpression, ')');
    const std::pair<std::string, ExpressionStatus> rows[] = {
        {"0." + std::string(400, '0') + "1", kGood},
        {deepest, kGood},
        {"(" + deepest + ")", kBad},
        {"", kEmpty},
        {"  ", kEmpty},
        {"1+", kBad},
        {"1/0", kBad},
        {std::string(400, '9'), kOverflow},
        {"1e308*10-1e308*10", kOverflow},
    };
    for (const auto& [text, status] : rows)
        EXPECT_EQ(EvaluateExpression(text).status, status) << text;
}

} // namespace
