// What expressions and statements amount to.
#include "layout/expression_scope.h"
#include "layout/expression_tree.h"
#include "layout/recording_generator.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

constexpr const char* kParameterError = "Warning! (static_cast<long>(paramErr) == static_cast<long>(noErr))";

// The value of any expression, conditions in parentheses included, by way of a statement.
std::int32_t Evaluate(CExpressionScope& scope, const std::string& text)
{
    class CValueScope : public CExpressionScope {
    public:
        using CExpressionScope::CExpressionScope;
        bool Read(const char* at, VexContent& value) { return ParseValue(at, ",)", value); }
    } value(&scope);
    VexContent content;
    EXPECT_TRUE(value.Read(text.c_str(), content)) << text;
    return content.integer;
}

std::int32_t Evaluate(const std::string& text)
{
    CExpressionScope scope;
    return Evaluate(scope, text);
}

TEST(Expressions, ComputeInThirtyTwoBits)
{
    EXPECT_EQ(Evaluate("2 + 3 * 4 - 10 / 3"), 11);
    EXPECT_EQ(Evaluate("7 % 2"), 3);
    EXPECT_EQ(Evaluate("-7 / 2"), -3);
    EXPECT_EQ(Evaluate("2147483647 + 2"), -2147483647);
    EXPECT_EQ(Evaluate("4294967297"), 1);
    EXPECT_EQ(Evaluate("65536 * 65536"), 0);
    EXPECT_EQ(Evaluate("- - -3"), -3);
}

TEST(Expressions, SpreadTheUndefinedValue)
{
    EXPECT_EQ(Evaluate("1 + unknown"), VexUndefined);
    EXPECT_EQ(Evaluate("unknown / 0"), VexUndefined);
    EXPECT_EQ(Evaluate("-unknown"), VexUndefined);
    EXPECT_EQ(Evaluate("min(1, unknown)"), VexUndefined);
    EXPECT_EQ(Evaluate("max(1, unknown)"), 1);
    EXPECT_EQ(Evaluate("!unknown + 0"), 0);
    EXPECT_EQ(Evaluate("(unknown == unknown) + (unknown != 1) + (unknown || 1)"), 0);
}

TEST(Expressions, BindRelationsLooserThanEquality)
{
    EXPECT_EQ(Evaluate("(2 < 3 == 1)"), 0);
    EXPECT_EQ(Evaluate("(2 < (3 == 3))"), 0);
    EXPECT_EQ(Evaluate("(0 && 0 || 1)"), 1);
}

TEST(Expressions, KnowTheirFunctions)
{
    EXPECT_EQ(Evaluate("dim(3, 5) * 10 + dim(5, 3)"), 2);
    EXPECT_EQ(Evaluate("min(4, 2, 3) * 10 + max(4, 2, 3)"), 24);
    EXPECT_EQ(Evaluate("in(3, 1, 2, 3)"), 1);
    EXPECT_EQ(Evaluate("in(40, 40) + in(-1, -1) + in(3)"), 0);
}

TEST(Expressions, TakeAWordWithoutParenthesisForAVariable)
{
    CExpressionScope scope;
    scope.AddVariable("min_x", 5);
    scope.AddVariable("min", 6);
    scope.AddVariable("in", 7);
    EXPECT_EQ(Evaluate(scope, "min_x + min * in + 0"), 47);
}

TEST(Expressions, StopBeforeAnOperatorWithoutRightSide)
{
    CExpressionScope scope;
    EXPECT_TRUE(scope.EvaluateCondition("1 + )"));
    EXPECT_FALSE(scope.IsCondition("1 + )"));
    EXPECT_FALSE(scope.IsCondition("1 < 2 < 3"));
    EXPECT_TRUE(scope.IsCondition(" !(1 < 2) || in(1, 1) \r\n"));
}

TEST(Expressions, DivisionByZeroThrows)
{
    CExpressionScope scope;
    EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger("4 / (2 - 2)"); }), "Warning! (divisor != 0)");
    EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger("4 % 0"); }), "Warning! (divisor != 0)");
    EXPECT_EQ(scope.EvaluateInteger("(0 - 2147483647) / -1"), 2147483647);
}

TEST(Expressions, NestAsDeepAsTheLimit)
{
    const auto nested = [](std::size_t depth, const char* open, const char* close) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += open;
        text += "1";
        for (std::size_t i = 0; i < depth; ++i)
            text += close;
        return text;
    };
    CExpressionScope scope;
    constexpr std::size_t kLimit = CExpressionScope::kMaxNesting;
    for (const auto& [open, close] : {std::pair{"(", ")"}, std::pair{"-", ""}, std::pair{"max(0,", ")"}}) {
        EXPECT_NO_THROW(scope.EvaluateInteger(nested(kLimit, open, close).c_str()));
        EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger(nested(kLimit + 1, open, close).c_str()); }),
                  "Warning! (nesting < kMaxNesting)");
        EXPECT_EQ(scope.EvaluateInteger("(1)"), 1);
    }
}

TEST(Expressions, AgreeWithTheTreeTheyWereWrittenFrom)
{
    const std::map<std::string, std::int32_t> variables{{"small", -3}, {"large", 2147483600}, {"min", 4}, {"in_x", 17}};
    CExpressionScope scope;
    for (const auto& [name, value] : variables)
        scope.AddVariable(name, value);
    std::mt19937 random(20250101);
    int divisions = 0;
    for (int i = 0; i < 8000; ++i) {
        const ExpressionNode tree = RandomExpression(random, 5);
        const std::string text = "(" + TextOf(tree) + ") + 0";
        try {
            const std::int64_t expected = ValueOf(tree, variables);
            ASSERT_EQ(Evaluate(scope, text), expected) << text;
        } catch (const std::domain_error&) {
            ++divisions;
            ASSERT_EQ(LogicErrorOf([&] { Evaluate(scope, text); }), "Warning! (divisor != 0)") << text;
        }
    }
    EXPECT_GT(divisions, 50);
}

TEST(Evaluators, RefuseWhatIsNoWholeDefinedSum)
{
    CExpressionScope scope;
    for (const char* text : {"", "1 2", "unknown", "1 < 2", "!1", "(1 < 2)"})
        EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger(text); }), kParameterError) << text;
    EXPECT_FALSE(scope.EvaluateCondition("unknown"));
    EXPECT_FALSE(scope.EvaluateCondition("0"));
    EXPECT_FALSE(scope.EvaluateCondition(")"));
    EXPECT_TRUE(scope.EvaluateCondition("(1 < 2)"));
}

TEST(Statements, AssignInSteps)
{
    CExpressionScope scope;
    scope.EvaluateStatements("step(100, 10, &a, & b, &c);d = a + c; steps = 3;");
    EXPECT_EQ(scope.EvaluateInteger("b * 1000 + d"), 110220);
    EXPECT_EQ(scope.EvaluateInteger("steps"), 3);
}

TEST(Statements, AlignCenters)
{
    CExpressionScope scope;
    scope.EvaluateStatements("align_centers(10, 20, 40, &a, &b); align_centers(1, -5, -2, &c, &d);");
    EXPECT_EQ(scope.EvaluateInteger("a * 100 + b"), 2010);
    EXPECT_EQ(scope.EvaluateInteger("c * 100 + d"), 302);
    std::string heights;
    std::string names;
    for (int i = 0; i < 100; ++i) {
        heights += "," + std::to_string(i);
        names += ",&h" + std::to_string(i);
    }
    scope.EvaluateStatements(("align_centers(0" + heights + names + ");").c_str());
    EXPECT_EQ(scope.EvaluateInteger("h0 * 100 + h99"), 4900);
}

TEST(Statements, LeaveNoTraceWhenTheyFail)
{
    CExpressionScope scope;
    for (const char* text :
         {"step(1, 2, &a, b);", "step(1, 2, &a)", "align_centers(1, 2, 3, &a);", "a = 1", "", "a = (;"})
        EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateStatements(text); }), kParameterError) << text;
    EXPECT_FALSE(scope.IsDefined("a"));
}

class CAreaFunctions : public CClientFunctions {
public:
    std::int32_t Call(const char* name, CExpressionScope& arguments) override
    {
        fCaller = CallingScope();
        const char* unit = "";
        arguments.GetStringVariable("unit", &unit);
        fCalled = std::string(name) + " " + unit;
        return arguments.EvaluateInteger("width * height");
    }
    std::string fCalled;
    const CExpressionScope* fCaller = nullptr;
};

TEST(ClientFunctions, GetTheirArgumentsInAScopeOfTheirOwn)
{
    CAreaFunctions functions;
    CExpressionScope scope(nullptr, &functions);
    scope.AddVariable("height", 4);
    EXPECT_EQ(scope.EvaluateInteger("1 + area(width: 5, unit: 'px') * 2"), 41);
    EXPECT_EQ(functions.fCalled, "area px");
    EXPECT_EQ(functions.fCaller, &scope);
    EXPECT_EQ(CClientFunctions::CallingScope(), nullptr);
    EXPECT_FALSE(scope.IsDefined("width"));
}

} // namespace
