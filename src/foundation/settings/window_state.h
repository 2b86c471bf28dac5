// WindowState, what a window keeps of its place between runs.
//
// One list of the fields, VisitWindowStateFields, serves the settings file and the keys of the
// layout language.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace Kesto {

struct WindowState {
    std::int32_t state = 0;
    std::int32_t monitor = 0;
    double lastLeft = 0;
    double lastTop = 0;
    double lastRight = 0;
    double lastBottom = 0;
    double userLeft = 0;
    double userTop = 0;
    double userRight = 0;
    double userBottom = 0;
    double sizeX = -100;
    double sizeY = -100;
    double positionX = 0;
    double positionY = 0;
    std::int16_t slopX = 2;
    std::int16_t slopY = 2;

    // The state of a window that no layout describes and no file remembers: no size, a little off
    // the middle.
    static WindowState FromNothing();

    bool operator==(const WindowState&) const = default;
};

// Calls visit(field, key) for each field with its key in layout texts, in the order of the settings
// file.
template <class State, class Visit>
constexpr void VisitWindowStateFields(State& window, Visit&& visit)
{
    visit(window.state, "window_state");
    visit(window.monitor, "window_monitor");
    visit(window.lastLeft, "window_last_left");
    visit(window.lastTop, "window_last_top");
    visit(window.lastRight, "window_last_right");
    visit(window.lastBottom, "window_last_bottom");
    visit(window.userLeft, "window_user_left");
    visit(window.userTop, "window_user_top");
    visit(window.userRight, "window_user_right");
    visit(window.userBottom, "window_user_bottom");
    visit(window.sizeX, "window_size_x");
    visit(window.sizeY, "window_size_y");
    visit(window.positionX, "window_position_x");
    visit(window.positionY, "window_position_y");
    visit(window.slopX, "window_slop_x");
    visit(window.slopY, "window_slop_y");
}

// The number that a layout gives for a key, or nothing.
using LayoutNumbers = std::function<std::optional<double>(std::string_view key)>;

// The state that a layout describes. A key it does not give leaves slop 2, the view's own "width"
// and "height" as the size, and 0 for all else. Numbers beyond an integer field's range become its
// limit.
WindowState WindowStateFromLayout(const LayoutNumbers& numbers);

} // namespace Kesto
