#include "controls/fields/number_expression.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace Kesto {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Of a number beyond the doubles: whether it is too close to zero, rather than too far from it.
bool IsTiny(std::string_view token)
{
    const std::size_t exponent = token.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return token.substr(exponent + 1).starts_with('-');
    return token.find_first_not_of('0') == token.find('.');
}

// Descends the grammar. After a mistake everything is read as nothing; after an overflow reading
// goes on, since a mistake later in the text matters more.
class Evaluator {
public:
    explicit Evaluator(std::string_view text) : fRest(text) {}

    ExpressionResult Run()
    {
        SkipBlanks();
        if (fRest.empty())
            return {kNoNumber, ExpressionStatus::kEmpty};
        const double value = Sum();
        if (!fRest.empty())
            Fail();
        return fStatus == ExpressionStatus::kGood ? ExpressionResult{value, fStatus}
                                                  : ExpressionResult{kNoNumber, fStatus};
    }

private:
    double Sum()
    {
        double value = Product();
        while (!Bad()) {
            if (Take('+'))
                value = Checked(value + Product());
            else if (Take('-'))
                value = Checked(value - Product());
            else
                break;
        }
        return value;
    }

    double Product()
    {
        double value = Signed();
        while (!Bad()) {
            if (Take('*'))
                value = Checked(value * Signed());
            else if (Take('/'))
                value = Quotient(value, Signed());
            else
                break;
        }
        return value;
    }

    double Signed()
    {
        bool negative = false;
        for (;;) {
            if (Take('-'))
                negative = !negative;
            else if (!Take('+'))
                break;
        }
        const double value = Take('(') ? Parenthesis() : Number();
        return negative ? -value : value;
    }

    double Parenthesis()
    {
        if (++fDepth > kDeepestExpression)
            return Fail();
        const double value = Sum();
        --fDepth;
        return Take(')') ? value : Fail();
    }

    double Number()
    {
        const ExpressionResult number = TakeNumber(fRest);
        if (number.status == ExpressionStatus::kBad)
            return Fail();
        SkipBlanks();
        return number.status == ExpressionStatus::kGood
                   ? number.value
                   : Checked(std::numeric_limits<double>::infinity());
    }

    double Quotient(double value, double divisor)
    {
        return divisor == 0.0 ? Fail() : Checked(value / divisor);
    }

    double Checked(double value)
    {
        if (!Bad() && !std::isfinite(value))
            fStatus = ExpressionStatus::kOverflow;
        return value;
    }

    double Fail()
    {
        fStatus = ExpressionStatus::kBad;
        return kNoNumber;
    }

    bool Bad() const { return fStatus == ExpressionStatus::kBad; }

    bool Take(char wanted)
    {
        if (Bad() || fRest.empty() || fRest.front() != wanted)
            return false;
        fRest.remove_prefix(1);
        SkipBlanks();
        return true;
    }

    void SkipBlanks()
    {
        while (!fRest.empty() && (fRest.front() == ' ' || fRest.front() == '\t'))
            fRest.remove_prefix(1);
    }

    std::string_view fRest;
    int fDepth = 0;
    ExpressionStatus fStatus = ExpressionStatus::kGood;
};

} // namespace

ExpressionResult TakeNumber(std::string_view& text) noexcept
{
    // The parser of the library would also take "inf" and "nan".
    double value = kNoNumber;
    if (text.empty() || !(IsDigit(text.front()) || text.front() == '.'))
        return {kNoNumber, ExpressionStatus::kBad};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return {kNoNumber, ExpressionStatus::kBad};
    const std::string_view token = text.substr(0, static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(token.size());
    if (error != std::errc::result_out_of_range)
        return {value, ExpressionStatus::kGood};
    if (IsTiny(token))
        return {0.0, ExpressionStatus::kGood};
    return {kNoNumber, ExpressionStatus::kOverflow};
}

ExpressionResult EvaluateExpression(std::string_view text) noexcept
{
    return Evaluator(text).Run();
}

} // namespace Kesto
