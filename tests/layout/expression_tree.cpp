#include "layout/expression_tree.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace {

struct Operator {
    const char* sign;
    int level;     // how tightly it binds
    int leftLevel; // the least level that needs no parentheses on that side
    int rightLevel;
};

constexpr Operator kOperators[] = {{"||", 1, 1, 2}, {"&&", 2, 2, 3}, {"<", 3, 4, 4},  {"<=", 3, 4, 4}, {">", 3, 4, 4},
                                   {">=", 3, 4, 4}, {"==", 4, 5, 5}, {"!=", 4, 5, 5}, {"+", 5, 5, 6},  {"-", 5, 5, 6},
                                   {"*", 6, 6, 7},  {"/", 6, 6, 7},  {"%", 6, 6, 7}};
constexpr int kSumLevel = 5;
constexpr int kSignLevel = 7;
constexpr int kLeafLevel = 8;

const Operator* BinaryOf(const ExpressionNode& node)
{
    if (node.arguments.size() != 2)
        return nullptr;
    const auto found = std::ranges::find(kOperators, node.sign, &Operator::sign);
    return found == std::end(kOperators) ? nullptr : found;
}

bool IsPrefix(const ExpressionNode& node)
{
    return node.arguments.size() == 1 && (node.sign == "-" || node.sign == "+" || node.sign == "!");
}

int LevelOf(const ExpressionNode& node)
{
    const Operator* const binary = BinaryOf(node);
    return binary != nullptr ? binary->level : IsPrefix(node) ? kSignLevel : kLeafLevel;
}

std::string TextOf(const ExpressionNode& node, int leastLevel)
{
    std::string text = node.leaf;
    if (const Operator* const binary = BinaryOf(node)) {
        text =
            TextOf(node.arguments[0], binary->leftLevel) + binary->sign + TextOf(node.arguments[1], binary->rightLevel);
    } else if (IsPrefix(node)) {
        text = node.sign + TextOf(node.arguments[0], kSignLevel);
    } else if (!node.sign.empty()) {
        text = node.sign + " ( ";
        for (const ExpressionNode& argument : node.arguments)
            text += (&argument == &node.arguments.front() ? "" : ", ") + TextOf(argument, kSumLevel);
        text += "\n)";
    }
    return LevelOf(node) < leastLevel ? "(" + text + ")" : text;
}

std::int64_t Wrapped(std::int64_t value) // to the 32-bit number of the same remainder
{
    constexpr std::int64_t kModulus = 4294967296LL;
    const std::int64_t rest = ((value % kModulus) + kModulus) % kModulus;
    return rest >= kModulus / 2 ? rest - kModulus : rest;
}

std::int64_t Quotient(std::int64_t a, std::int64_t b)
{
    if (b == 0)
        throw std::domain_error("division by zero");
    return a / b;
}

std::int64_t Combine(const std::string& sign, std::int64_t a, std::int64_t b)
{
    const bool isArithmetic = std::string("+-*/%").find(sign) != std::string::npos;
    if (a == kNoValue || b == kNoValue)
        return isArithmetic ? kNoValue : 0;
    const std::map<std::string, bool> truths{
        {"||", a != 0 || b != 0}, {"&&", a != 0 && b != 0}, {"<", a < b},  {"<=", a <= b}, {">", a > b},
        {">=", a >= b},           {"==", a == b},           {"!=", a != b}};
    if (!isArithmetic)
        return truths.at(sign) ? 1 : 0;
    return Wrapped(sign == "+" ? a + b : sign == "-" ? a - b : sign == "*" ? a * b : Quotient(a, b));
}

} // namespace

ExpressionNode RandomExpression(std::mt19937& random, int depth)
{
    const auto upTo = [&random](int limit) { return std::uniform_int_distribution<int>(0, limit)(random); };
    if (depth == 0 || upTo(5) == 0) {
        static const char* const kLeaves[] = {"0",          "1",          "2",          "31",    "32",
                                              "2147483647", "2147483648", "4294967295", "small", "large",
                                              "nothing",    "min",        "in_x"};
        return {"", kLeaves[upTo(12)], {}};
    }
    static const char* const kFunctions[] = {"min", "max", "dim", "in"};
    static const char* const kPrefixes[] = {"-", "+", "!"};
    ExpressionNode node;
    int count = 2;
    switch (upTo(4)) {
    case 0:
        node.sign = kPrefixes[upTo(2)];
        count = 1;
        break;
    case 1:
        node.sign = kFunctions[upTo(3)];
        count = node.sign == "dim" ? 2 : 2 + upTo(2);
        break;
    default:
        node.sign = kOperators[upTo(12)].sign;
    }
    for (int i = 0; i < count; ++i)
        node.arguments.push_back(RandomExpression(random, depth - 1));
    return node;
}

std::string TextOf(const ExpressionNode& node)
{
    return TextOf(node, 1);
}

std::int64_t ValueOf(const ExpressionNode& node, const std::map<std::string, std::int32_t>& variables)
{
    if (node.sign.empty()) {
        if (node.leaf[0] >= '0' && node.leaf[0] <= '9')
            return Wrapped(std::stoll(node.leaf));
        const auto found = variables.find(node.leaf);
        return found == variables.end() ? kNoValue : found->second;
    }
    std::vector<std::int64_t> values;
    for (const ExpressionNode& argument : node.arguments)
        values.push_back(ValueOf(argument, variables));
    if (BinaryOf(node) != nullptr)
        return Combine(node.sign, values[0], values[1]);
    if (IsPrefix(node))
        return node.sign == "-" ? Wrapped(-values[0]) : node.sign == "!" ? (values[0] == 0) : values[0];
    if (node.sign == "min")
        return *std::ranges::min_element(values);
    if (node.sign == "max")
        return *std::ranges::max_element(values);
    if (node.sign == "dim")
        return values[0] > values[1] ? Wrapped(values[0] - values[1]) : 0;
    const std::set<std::int64_t> members(values.begin() + 1, values.end());
    return values[0] >= 0 && values[0] < 32 && members.contains(values[0]) ? 1 : 0;
}
