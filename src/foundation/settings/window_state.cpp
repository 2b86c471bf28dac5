#include "foundation/settings/window_state.h"

#include <algorithm>
#include <cmath>
#include <concepts>
#include <limits>

namespace Kesto {
namespace {

void SetField(double& field, double number)
{
    field = number;
}

template <std::integral T>
void SetField(T& field, double number)
{
    constexpr double kLowest = std::numeric_limits<T>::min();
    constexpr double kHighest = std::numeric_limits<T>::max();
    field = std::isnan(number) ? T{0} : static_cast<T>(std::clamp(number, kLowest, kHighest));
}

} // namespace

WindowState WindowState::FromNothing()
{
    WindowState window;
    window.sizeX = 0;
    window.sizeY = 0;
    window.positionX = -50;
    window.positionY = -33;
    return window;
}

WindowState WindowStateFromLayout(const LayoutNumbers& numbers)
{
    WindowState window;
    window.sizeX = numbers("width").value_or(0);
    window.sizeY = numbers("height").value_or(0);
    VisitWindowStateFields(window, [&](auto& field, std::string_view key) {
        if (const std::optional<double> number = numbers(key))
            SetField(field, *number);
    });
    return window;
}

} // namespace Kesto
