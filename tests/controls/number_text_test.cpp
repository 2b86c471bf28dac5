#include "controls/fields/number_text.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

CNumberRules Rules(std::uint32_t format, std::int32_t digits = 2)
{
    CNumberRules rules;
    rules.format = format;
    rules.digits = digits;
    return rules;
}

TEST(NumberText, ShowsAValueAsItsFormatAsks)
{
    constexpr std::uint32_t kFixed = kNumber_Decimal | kNumber_FixedDecimal;
    const struct {
        const char* name;
        CNumberRules rules;
        double value;
        const char* text;
    } rows[] = {
        {"whole", Rules(kNumber_Integer), 12, "12"},
        {"half away from zero", Rules(kNumber_Integer), 2.5, "3"},
        {"negative half away from zero", Rules(kNumber_Integer), -2.5, "-3"},
        {"no negative zero", Rules(kNumber_Integer), -0.2, "0"},
        {"beyond 64 bits", Rules(kNumber_Integer), 1e20, "100000000000000000000"},
        {"padded", Rules(kNumber_PadInteger, 4), 7, "0007"},
        {"padded after the sign", Rules(kNumber_PadInteger, 4), -7, "-007"},
        {"plus", Rules(kNumber_ShowPlus), 5, "+5"},
        {"no plus for zero", Rules(kNumber_ShowPlus), 0, "0"},
        {"decimal", Rules(kNumber_Decimal), 1.5, "1.5"},
        {"decimal rounds", Rules(kNumber_Decimal), 1.005001, "1.01"},
        {"decimal rounds away below zero", Rules(kNumber_Decimal), -1.125, "-1.13"},
        {"decimal of many digits", Rules(kNumber_Decimal, 20), 0.1, "0.1"},
        {"fixed", Rules(kFixed, 3), 1.5, "1.500"},
        {"fixed with plus", Rules(kFixed | kNumber_ShowPlus, 1), 2, "+2.0"},
        {"decimal beyond scaling", Rules(kNumber_Decimal, 30), 1e300, "1e+300"},
        {"digits out of all bounds", Rules(kFixed, -5), 1.25, "1"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.rules.ValueToText(row.value), row.text) << row.name;

    CNumberRules comma = Rules(kFixed, 2);
    comma.decimalPoint = ",";
    EXPECT_EQ(comma.ValueToText(1.25), "1,25");
    EXPECT_EQ(comma.TextToValue("1,5+1.5"), 3.0);
    for (const double value : {1e308, -1e308, 5e-324})
        for (const std::int32_t digits : {0, 15, 340, std::numeric_limits<std::int32_t>::max()})
            EXPECT_FALSE(Rules(kFixed, digits).ValueToText(value).empty())
                << value << ' ' << digits;
}

TEST(NumberText, ReadsExpressionsOrPlainNumbers)
{
    CNumberRules plain;
    plain.noExpressions = true;
    const CNumberRules expressions;
    const std::tuple<const char*, std::optional<double>, std::optional<double>> rows[] = {
        {"2*(3+4)", 14, 2},
        {"", std::nullopt, std::nullopt},
        {" ", std::nullopt, std::nullopt},
        {"abc", std::nullopt, 0},
        {"-3", -3, -3},
        {"+3", 3, 3},
        {"12px", std::nullopt, 12},
        {"1e", std::nullopt, 1},
        {"\xEF\xBC\x91\xEF\xBC\x92", std::nullopt, 12}, // full-width digits
        {"1e999", kOverflowValue, kOverflowValue},
        {"-1e999", kOverflowValue, -kOverflowValue},
        {"nan", std::nullopt, 0},
        {"inf", std::nullopt, 0},
    };
    for (const auto& [text, expression, number] : rows) {
        EXPECT_EQ(expressions.TextToValue(text), expression) << text;
        EXPECT_EQ(plain.TextToValue(text), number) << text;
    }
    EXPECT_EQ(expressions.TextToValue(std::string(400, '9')), kOverflowValue);
}

TEST(NumberText, CountsWhatPrintsAsTheLimitAsInRange)
{
    CNumberRules rules = Rules(kNumber_Decimal, 2);
    rules.minimum = 0;
    rules.maximum = 100;
    EXPECT_TRUE(rules.IsInRange(100.004));
    EXPECT_FALSE(rules.IsInRange(100.006));
    EXPECT_TRUE(rules.IsInRange(-0.004));
    EXPECT_FALSE(rules.IsInRange(std::nan("")));
    rules.digits = 0;
    EXPECT_FALSE(rules.IsInRange(100.004));
    EXPECT_TRUE(rules.IsInRange(100));
    EXPECT_EQ(rules.Clamp(100.004), 100);
    EXPECT_EQ(rules.Clamp(-1), 0);
    EXPECT_TRUE(std::isnan(rules.Clamp(std::nan(""))));
}

TEST(NumberText, StepsWithinTheRangeOrAroundItsEnds)
{
    CNumberRules rules;
    rules.minimum = 0;
    rules.maximum = 360;
    EXPECT_EQ(rules.Step(359, 2), 360);
    EXPECT_EQ(rules.Step(1, -2), 0);
    rules.format = kNumber_WrapAround;
    double value = 350;
    for (int presses = 0; presses < 10; ++presses)
        value = rules.Step(value, 2);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(rules.Step(0, -1), 359);
    EXPECT_EQ(rules.Step(0, -721), 359);
    std::swap(rules.minimum, rules.maximum);
    EXPECT_EQ(rules.Step(0, -1), 359) << "limits the other way round";
    rules.minimum = rules.maximum;
    EXPECT_EQ(rules.Step(7, 1), 7) << "equal limits";
}

TEST(NumberText, LetsInWhatANumberCanNeed)
{
    CNumberRules plain;
    plain.noExpressions = true;
    plain.minimum = 0;
    CNumberRules plainSigned = plain;
    plainSigned.minimum = -1;
    plainSigned.format = kNumber_Decimal | kNumber_ShowPlus;
    plainSigned.decimalPoint = ",";
    CNumberRules expressions;
    expressions.minimum = 0;
    const struct {
        std::uint32_t character;
        bool atStart, plain, plainSigned, expression;
    } rows[] = {
        {'5', true, true, true, true},      {8, false, true, true, true},
        {127, false, true, true, true},     {'-', true, false, true, false},
        {'-', false, false, true, true},    {'+', true, false, true, true},
        {'*', false, false, false, true},   {'(', true, false, false, true},
        {'.', false, false, false, true},   {',', false, false, true, false},
        {0xFF11, false, true, true, false}, {'e', false, false, false, false},
        {' ', false, false, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.character);
        EXPECT_EQ(plain.LetsIn(row.character, row.atStart), row.plain);
        EXPECT_EQ(plainSigned.LetsIn(row.character, row.atStart), row.plainSigned);
        EXPECT_EQ(expressions.LetsIn(row.character, row.atStart), row.expression);
    }
}

} // namespace
