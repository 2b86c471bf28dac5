// What expressions and statements amount to.
#include "layout/language/expression_scope.h"
#include "layout/recording_generator.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

constexpr const char* kParameterError =
    "Warning! (static_cast<long>(paramErr) == static_cast<long>(noErr))";

TEST(Expressions, HaveTheirValues)
{
    const std::pair<const char*, std::int32_t> cases[] = {
        {"2 + 3 * 4 - 10 / 3", 11},
        {"7 % 2", 3}, // divides too
        {"2147483647 + 2", -2147483647},
        {"4294967297", 1},
        {"unknown / 0", VexUndefined},
        {"min(1, unknown)", VexUndefined},
        {"(unknown == unknown) + (unknown != 1) + (unknown || 1)", 0},
        {"(2 < 3 == 1)", 0}, // equality binds tighter
        {"in(40, 40) + in(-1, -1) + in(3)", 0},
        {"in(2, 1, 2, 3) + in(32, 32) + in(31, 31) * 2 + in(0, 1)", 3},
        {"(1 || 0 && 0) + (0 && 1 || 1) * 2 + (1 && 2)", 4}, // "and" binds tighter
        {"(1 == 1 && 2 != 2 || 3 > 2) + 0", 1},
        {"(3 >= 3) + (3 > 3) * 2 + (2 <= 1) * 4 + (2 < 3) * 8 + (2 <= 2) * 16", 25},
        {"7 - 2 - 1 + 100 / 7 / 2 + 2 * 3 % 4", 12}, // from the left
        {"-2 * -3 + +4 - -(2 - 5)", 7},
        {"(!0) + (!5) * 2 + (!!7) * 4", 5},
        {"max(3, 1, 7) * 100 + min(3, 1, 7) * 10 + max(-3, -1)", 709},
        {"dim(7, 4) * 10 + dim(4, 7) - 7 / -2", 33},
        {"2147483647 * 2", -2},
        {"unknown + 1", VexUndefined},
        {"max(1 , 2*( 3+min (4,5) ))", 14},
    };
    CExpressionScope scope;
    for (const auto& [text, value] : cases)
        EXPECT_EQ(ValueOf(scope, text), value) << text;
}

TEST(Expressions, TakeAWordWithoutParenthesisForAVariable)
{
    CExpressionScope scope;
    scope.AddVariable("min_x", 5);
    scope.AddVariable("min", 6);
    scope.AddVariable("in", 7);
    EXPECT_EQ(ValueOf(scope, "min_x + min * in + 0"), 47);
}

TEST(Expressions, StopBeforeAnOperatorWithoutRightSide)
{
    CExpressionScope scope;
    EXPECT_TRUE(scope.EvaluateCondition("1 + )"));
    EXPECT_FALSE(scope.IsCondition("1 + )"));
    EXPECT_FALSE(scope.IsCondition("1 < 2 < 3"));
    EXPECT_TRUE(scope.IsCondition(" !(1 < 2) || in(1, 1) \r\n"));
}

TEST(Expressions, NestAsDeepAsTheLimit)
{
    CExpressionScope scope;
    constexpr std::size_t kLimit = CExpressionScope::kMaxNesting;
    for (const auto& [open, close] :
         {std::pair{"(", ")"}, std::pair{"-", ""}, std::pair{"max(0,", ")"}}) {
        SCOPED_TRACE(open);
        EXPECT_NO_THROW(scope.EvaluateInteger(Nested(kLimit, open, "1", close).c_str()));
        const std::string tooDeep = Nested(kLimit + 1, open, "1", close);
        EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger(tooDeep.c_str()); }),
                  "Warning! (nesting < kMaxNesting)");
        EXPECT_EQ(scope.EvaluateInteger("(1)"), 1);
    }
}

TEST(Evaluators, RefuseWhatIsNoWholeDefinedSum)
{
    CExpressionScope scope;
    for (const char* text : {"", "1 2", "unknown", "1 < 2", "!1", "(1 < 2)"})
        EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger(text); }), kParameterError) << text;
    EXPECT_EQ(LogicErrorOf([&] { scope.EvaluateInteger("4 / (2 - 2)"); }),
              "Warning! (divisor != 0)");
    for (const char* text : {"unknown", "0", ")"})
        EXPECT_FALSE(scope.EvaluateCondition(text)) << text;
    EXPECT_TRUE(scope.EvaluateCondition("(1 < 2)"));
}

TEST(Statements, AssignInStepsAndAlignCenters)
{
    CExpressionScope scope;
    scope.EvaluateStatements("step(100, 10, &a, & b, &c);d = a + c; steps = 3;");
    EXPECT_EQ(scope.EvaluateInteger("b * 1000 + d + steps"), 110223);
    scope.EvaluateStatements(
        "align_centers(10, 20, 40, &a, &b); align_centers(1, -5, -2, &c, &d);");
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

TEST(Statements, SpreadWhatIsUndefined)
{
    CExpressionScope scope;
    scope.EvaluateStatements(
        "step(nothing, 1, &a, &b); step(1, nothing, &c, &d);"
        "align_centers(nothing, 4, &e); align_centers(1, 4, nothing, &f, &g);");
    for (const auto& [name, value] : {std::pair{"a", VexUndefined},
                                      {"b", VexUndefined},
                                      {"c", 1},
                                      {"d", VexUndefined},
                                      {"e", VexUndefined},
                                      {"f", 1},
                                      {"g", VexUndefined}})
        EXPECT_EQ(scope.FindVariable(name)->integer, value) << name;
}

TEST(Statements, LeaveNoTraceWhenTheyFail)
{
    CExpressionScope scope;
    for (const char* text : {"step(1, 2, &a, b);", "step(1, 2, &a)", "align_centers(1, 2, 3, &a);",
                             "a = 1", "", "a = (;"})
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
