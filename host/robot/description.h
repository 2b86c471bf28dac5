// What a script asks of descriptions of windows.
#pragma once

#include "robot/script.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace Host {

// Pixels of the screen.
struct ViewRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

// The first view of the id, in the order of the description; null for none.
const nlohmann::ordered_json* FindView(const nlohmann::ordered_json& view, const std::string& id);

// The innermost visible view at a point of the screen; null for none. The earlier of two that
// overlap lies in front.
const nlohmann::ordered_json* FindViewAt(const nlohmann::ordered_json& view, double x, double y);

ViewRect GlobalBounds(const nlohmann::ordered_json& view);

// The value under a key, which may lack the blanks that fill it up to four characters; null for
// none.
const nlohmann::ordered_json* FindValue(const nlohmann::ordered_json& view, const std::string& key);

// Whether a value is the one that a script wants: texts as they are, or in quotes as JSON has them,
// others as JSON, numbers by their amount.
bool IsValue(const nlohmann::ordered_json& found, const std::string& wanted);

// A value for people.
std::string WordsOf(const nlohmann::ordered_json& value);

} // namespace Host
