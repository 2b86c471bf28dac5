// Which known word was meant by one that is not known.
#pragma once

#include <string>
#include <string_view>

namespace Vex {

// Offers the nearest of the words that were shown to it, if it is near enough to be what was meant.
class CNearestWord {
public:
    // Both must outlive the words that are considered.
    explicit CNearestWord(std::string_view name) : fName(name), fDistance(name.size() / 3 + 1) {}

    void Consider(std::string_view word);

    // Empty if none is near.
    std::string Hint() const;

private:
    std::string_view fName;
    std::size_t fDistance;
    std::string_view fBest;
};

} // namespace Vex
