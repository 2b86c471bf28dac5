// A second evaluator of number fields' expressions, with two stacks where the module's descends.
#pragma once

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// The value of a text; nothing when it is no expression, and nothing finite when it overflows.
class StackEvaluator {
public:
    std::optional<double> Run(const std::string& text)
    {
        for (std::size_t at = 0; at < text.size();) {
            const char c = text[at];
            if (c == ' ' || c == '\t') {
                ++at;
            } else if (std::isdigit(static_cast<unsigned char>(c)) || c == '.') {
                const auto [value, end] = Number(text, at);
                if (fWantsOperator || end == at)
                    return std::nullopt;
                fValues.push_back(value);
                fOverflow |= !std::isfinite(value);
                fWantsOperator = true;
                at = end;
            } else if (!Sign(c)) {
                return std::nullopt;
            } else {
                ++at;
            }
        }
        while (fWantsOperator && !fSigns.empty() && fSigns.back() != '(')
            Apply();
        if (!fWantsOperator || !fSigns.empty() || fBad)
            return std::nullopt;
        return fOverflow ? HUGE_VAL : fValues.back();
    }

private:
    // digits [. digits] [exponent]; the end is the start when there is no digit.
    static std::pair<double, std::size_t> Number(const std::string& text, std::size_t start)
    {
        std::size_t at = start;
        std::size_t digits = 0;
        const auto skip = [&] {
            for (; at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])); ++at)
                ++digits;
        };
        skip();
        if (at < text.size() && text[at] == '.') {
            ++at;
            skip();
        }
        if (digits == 0)
            return {0.0, start};
        std::size_t exponent = at;
        if (exponent < text.size() && (text[exponent] == 'e' || text[exponent] == 'E')) {
            ++exponent;
            if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-'))
                ++exponent;
            if (exponent < text.size() && std::isdigit(static_cast<unsigned char>(text[exponent])))
                for (at = exponent;
                     at < text.size() && std::isdigit(static_cast<unsigned char>(text[at])); ++at) {
                }
        }
        const double value = std::strtod(text.substr(start, at - start).c_str(), nullptr);
        return {value, at};
    }

    // 'n' is the sign that negates what follows it, 'p' the one that does nothing.
    static int Level(char sign)
    {
        switch (sign) {
        case '+':
        case '-':
            return 1;
        case '*':
        case '/':
            return 2;
        case 'n':
        case 'p':
            return 3;
        default:
            return 0;
        }
    }

    bool Sign(char c)
    {
        if (c == '(') {
            if (fWantsOperator)
                return false;
            fSigns.push_back(c);
            return true;
        }
        if (c == ')') {
            if (!fWantsOperator)
                return false;
            while (!fSigns.empty() && fSigns.back() != '(')
                Apply();
            if (fSigns.empty())
                return false;
            fSigns.pop_back();
            ApplyPrefixes();
            return true;
        }
        if (c != '+' && c != '-' && c != '*' && c != '/')
            return false;
        if (!fWantsOperator) {
            if (c == '*' || c == '/')
                return false;
            fSigns.push_back(c == '-' ? 'n' : 'p');
            return true;
        }
        while (!fSigns.empty() && Level(fSigns.back()) >= Level(c))
            Apply();
        fSigns.push_back(c);
        fWantsOperator = false;
        return true;
    }

    void ApplyPrefixes()
    {
        while (!fSigns.empty() && Level(fSigns.back()) == 3)
            Apply();
    }

    void Apply()
    {
        const char sign = fSigns.back();
        fSigns.pop_back();
        double& right = fValues.back();
        if (sign == 'n')
            right = -right;
        if (Level(sign) == 3)
            return;
        const double b = right;
        fValues.pop_back();
        double& a = fValues.back();
        fBad |= sign == '/' && b == 0.0;
        a = sign == '+' ? a + b : sign == '-' ? a - b : sign == '*' ? a * b : a / b;
        fOverflow |= !std::isfinite(a);
    }

    std::vector<double> fValues;
    std::vector<char> fSigns;
    bool fWantsOperator = false;
    bool fBad = false;
    bool fOverflow = false;
};
