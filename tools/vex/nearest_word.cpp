#include "vex/nearest_word.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace Vex {

namespace {

// The count of characters to add, remove or change, at least 1 for different words.
std::size_t Distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

// Words are at least as far apart as their lengths, so most are passed over without a comparison.
void CNearestWord::Consider(std::string_view word)
{
    if (std::max(word.size(), fName.size()) - std::min(word.size(), fName.size()) > fDistance)
        return;
    const std::size_t distance = Distance(fName, word);
    if (distance < fDistance || (distance == fDistance && fBest.empty())) {
        fDistance = distance;
        fBest = word;
    }
}

std::string CNearestWord::Hint() const
{
    return fBest.empty() ? "" : "Did you mean " + std::string(fBest) + "?";
}

} // namespace Vex
