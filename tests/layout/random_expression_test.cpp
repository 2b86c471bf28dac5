// Random expressions, written down while they are computed in 64 bits.
#include "layout/language/expression_scope.h"
#include "layout/recording_generator.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

using Number = std::int64_t;

struct Operator {
    const char* sign;
    int level;     // how tightly it binds
    int leftLevel; // the least level that needs no parentheses on that side
    int rightLevel;
    std::function<Number(Number, Number)> compute;
};

constexpr int kSumLevel = 5; // from here on the operators are arithmetic
constexpr int kPrefixLevel = 7;
constexpr int kLeafLevel = 8;

const Operator kOperators[] = {
    {"||", 1, 1, 2, std::logical_or<>()}, {"&&", 2, 2, 3, std::logical_and<>()},
    {"<", 3, 4, 4, std::less<>()},        {"<=", 3, 4, 4, std::less_equal<>()},
    {">", 3, 4, 4, std::greater<>()},     {">=", 3, 4, 4, std::greater_equal<>()},
    {"==", 4, 5, 5, std::equal_to<>()},   {"!=", 4, 5, 5, std::not_equal_to<>()},
    {"+", 5, 5, 6, std::plus<>()},        {"-", 5, 5, 6, std::minus<>()},
    {"*", 6, 6, 7, std::multiplies<>()},  {"/", 6, 6, 7, std::divides<>()},
    {"%", 6, 6, 7, std::divides<>()}};

constexpr const char* kLeaves[] = {"0",          "1",          "2",          "31",    "32",
                                   "2147483647", "2147483648", "4294967295", "small", "large",
                                   "nothing",    "min",        "in_x"};
const std::map<std::string, std::int32_t> kVariables{
    {"small", -3}, {"large", 2147483600}, {"min", 4}, {"in_x", 17}};

struct Expression {
    // In parentheses only where the binding calls for it.
    std::string Within(int leastLevel) const
    {
        return level < leastLevel ? "(" + text + ")" : text;
    }

    std::string text;
    int level;
    std::optional<Number> value; // none: a division by zero
};

Number Wrapped(Number value)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

int UpTo(std::mt19937& random, int limit)
{
    return std::uniform_int_distribution<int>(0, limit)(random);
}

Expression RandomExpression(std::mt19937& random, int depth);

Expression RandomPrefix(std::mt19937& random, int depth)
{
    const char sign = "-+!"[UpTo(random, 2)];
    Expression operand = RandomExpression(random, depth);
    if (operand.value && sign != '+')
        operand.value = sign == '-' ? Wrapped(-*operand.value) : *operand.value == 0;
    return {sign + operand.Within(kPrefixLevel), kPrefixLevel, operand.value};
}

Expression RandomCall(std::mt19937& random, int depth)
{
    const std::string function =
        std::array{"min", "max", "dim", "in"}[static_cast<std::size_t>(UpTo(random, 3))];
    std::vector<std::optional<Number>> values(
        function == "dim" ? 2U : 2U + static_cast<unsigned>(UpTo(random, 1)));
    std::string text = function + " ( ";
    for (std::optional<Number>& value : values) {
        const Expression argument = RandomExpression(random, depth);
        text += (&value == &values.front() ? "" : ", ") + argument.Within(kSumLevel);
        value = argument.value;
    }
    Expression call{text + "\n)", kLeafLevel, std::nullopt};
    if (std::count(values.begin(), values.end(), std::nullopt) != 0)
        return call;
    const Number first = *values[0];
    if (function == "min" || function == "max")
        call.value = function == "min" ? *std::ranges::min_element(values)
                                       : *std::ranges::max_element(values);
    else if (function == "dim")
        call.value = first > *values[1] ? Wrapped(first - *values[1]) : 0;
    else
        call.value =
            first >= 0 && first < 32 && std::count(values.begin(), values.end(), first) > 1;
    return call;
}

Expression RandomOperation(std::mt19937& random, int depth)
{
    const Operator& chosen = kOperators[UpTo(random, 12)];
    const Expression a = RandomExpression(random, depth);
    const Expression b = RandomExpression(random, depth);
    Expression both{a.Within(chosen.leftLevel) + chosen.sign + b.Within(chosen.rightLevel),
                    chosen.level, std::nullopt};
    if (!a.value || !b.value)
        return both;
    if (a.value == VexUndefined || b.value == VexUndefined)
        both.value = chosen.level >= kSumLevel ? VexUndefined : 0;
    else if (b.value != 0 || (*chosen.sign != '/' && *chosen.sign != '%'))
        both.value = Wrapped(chosen.compute(*a.value, *b.value));
    return both;
}

Expression RandomExpression(std::mt19937& random, int depth)
{
    if (depth == 0 || UpTo(random, 5) == 0) {
        const std::string text = kLeaves[UpTo(random, 12)];
        const auto variable = kVariables.find(text);
        const Number number = text == "nothing"              ? VexUndefined
                              : variable == kVariables.end() ? Wrapped(std::stoll(text))
                                                             : variable->second;
        return {text, kLeafLevel, number};
    }
    const int kind = UpTo(random, 4);
    return (kind == 0 ? RandomPrefix : kind == 1 ? RandomCall : RandomOperation)(random, depth - 1);
}

TEST(RandomExpressions, HaveTheirValues)
{
    CExpressionScope scope;
    for (const auto& [name, value] : kVariables)
        scope.AddVariable(name, value);
    std::mt19937 random(20250101);
    int divisions = 0;
    for (int i = 0; i < 8000; ++i) {
        const Expression expression = RandomExpression(random, 5);
        const std::string text = "(" + expression.text + ") + 0";
        if (expression.value) {
            ASSERT_EQ(ValueOf(scope, text), expression.value) << text;
        } else {
            ++divisions;
            ASSERT_EQ(LogicErrorOf([&] { ValueOf(scope, text); }), "Warning! (divisor != 0)")
                << text;
        }
    }
    EXPECT_GT(divisions, 50);
}

} // namespace
