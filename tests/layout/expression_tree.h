// Random expressions as trees, written down as text and computed from the tree.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

struct ExpressionNode {
    std::string sign; // of an operator or function; empty for a leaf
    std::string leaf; // a number or a name
    std::vector<ExpressionNode> arguments;
};

// An expression of at most `depth` levels. With `conditions`, comparisons and the like stand in parentheses.
ExpressionNode RandomExpression(std::mt19937& random, int depth);

// Each operand in parentheses only where the binding of the operators calls for it.
std::string TextOf(const ExpressionNode& node);

// The value in 64-bit arithmetic, brought back to 32 bits at each step; std::nullopt-like `kNoValue` for the undefined one.
// Throws std::domain_error for a division by zero.
std::int64_t ValueOf(const ExpressionNode& node, const std::map<std::string, std::int32_t>& variables);
inline constexpr std::int64_t kNoValue = -2147483648LL;
