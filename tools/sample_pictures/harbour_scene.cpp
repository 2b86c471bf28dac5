#include "harbour_scene.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace Samples {
namespace {

constexpr double kSunX = -0.28;
constexpr double kSunRadius = 0.085;
constexpr double kNothing = std::numeric_limits<double>::infinity();

Light Mix(const Light& a, const Light& b, double part)
{
    const double t = std::clamp(part, 0.0, 1.0);
    return {a.red + (b.red - a.red) * t, a.green + (b.green - a.green) * t,
            a.blue + (b.blue - a.blue) * t};
}

Light Scale(const Light& light, double factor)
{
    return {light.red * factor, light.green * factor, light.blue * factor};
}

// The same number from 0 to 1 for the same two whole numbers.
double Chance(int a, int b)
{
    auto bits = static_cast<uint32_t>(a) * 0x9E3779B1u ^ static_cast<uint32_t>(b) * 0x85EBCA77u;
    bits ^= bits >> 15;
    bits *= 0x2C1B3C6Du;
    bits ^= bits >> 13;
    return (bits & 0xFFFF) / 65535.0;
}

// Outlines of the land behind the town.
double FarHills(double x)
{
    return 0.10 + 0.035 * std::sin(2.1 * x + 0.6) + 0.018 * std::sin(5.3 * x) +
           0.006 * std::sin(17 * x);
}

double NearHills(double x)
{
    return 0.055 + 0.04 * std::sin(1.4 * x + 2.4) + 0.012 * std::sin(6.7 * x + 1);
}

} // namespace

HarbourScene::HarbourScene(double hour) : fHour(hour), fSunY(0.34 - 0.42 * hour) {}

// Things lose their colour and half their light towards the night.
Light HarbourScene::Shade(const Light& day) const
{
    const double grey = (day.red + day.green + day.blue) / 3;
    return Scale(Mix(day, {grey * 0.55, grey * 0.6, grey}, fHour), 1 - 0.62 * fHour);
}

Light HarbourScene::Sky(double y) const
{
    const Light zenith = Mix({0.32, 0.56, 0.86}, {0.03, 0.04, 0.16}, fHour * 1.05);
    const Light middle = Mix({0.72, 0.82, 0.92}, {0.30, 0.16, 0.36}, fHour * 1.2);
    const Light horizon = Mix({0.98, 0.86, 0.62}, {0.96, 0.42, 0.22}, fHour * 1.3);
    const double late = std::clamp((fHour - 0.75) * 4, 0.0, 1.0);
    const Light low = Mix(horizon, {0.22, 0.14, 0.34}, late * 0.85);
    return y < 0.22 ? Mix(low, middle, y / 0.22) : Mix(middle, zenith, (y - 0.22) / 0.5);
}

bool HarbourScene::Boat(double x, double y, Sight& sight) const
{
    const double bx = x - 0.33, by = y + 0.13; // the boat floats before the middle of the picture
    const auto paint = [&](const Light& colour) {
        sight = {Shade(colour), 18, true};
        return true;
    };
    const double keel = 0.13 - 0.5 * std::max(0.0, 0.035 - by);
    if (by >= 0 && by < 0.05 && bx > -keel && bx < keel + by * 0.7)
        return paint(by > 0.036 ? Light{0.95, 0.93, 0.86} : Light{0.62, 0.14, 0.12});
    if (std::abs(bx) < 0.004 && by >= 0.05 && by < 0.47)
        return paint({0.42, 0.28, 0.16});
    const double sail = (by - 0.075) / 0.38;
    if (sail >= 0 && sail < 1 && bx > 0.012 && bx < 0.012 + 0.2 * (1 - sail) * (1 + 0.25 * sail))
        return paint(std::fmod(by, 0.1) < 0.012 ? Light{0.88, 0.82, 0.70}
                                                : Light{0.97, 0.94, 0.86});
    const double jib = (by - 0.085) / 0.32;
    if (jib >= 0 && jib < 1 && bx < -0.012 && bx > -0.012 - 0.13 * (1 - jib))
        return paint({0.90, 0.45, 0.22});
    return false;
}

bool HarbourScene::Town(double x, double y, Sight& sight) const
{
    constexpr double kWidth = 0.062;
    const int house = static_cast<int>(std::floor(x / kWidth));
    const double inside = x / kWidth - house;
    if (house < -9 || house > 4 || y < 0)
        return false;
    const double wall = 0.055 + 0.06 * Chance(house, 1);
    const double roof = wall + 0.03 * (1 - std::abs(2 * inside - 1));
    if (y >= roof)
        return false;
    const Light tones[] = {
        {0.80, 0.62, 0.46}, {0.74, 0.44, 0.34}, {0.86, 0.80, 0.70}, {0.55, 0.60, 0.64}};
    Light colour = Shade(tones[static_cast<int>(Chance(house, 2) * 3.99)]);
    if (y >= wall)
        colour = Shade({0.45, 0.20, 0.16});
    const double column = inside * 3, storey = y / 0.026;
    const bool window = y < wall - 0.008 && std::abs(column - std::floor(column) - 0.5) < 0.2 &&
                        std::abs(storey - std::floor(storey) - 0.5) < 0.26;
    if (window) {
        const bool lit =
            Chance(house * 8 + static_cast<int>(column), static_cast<int>(storey)) < fHour * 0.9;
        colour = lit ? Light{1.0, 0.84, 0.42} : Shade({0.22, 0.26, 0.34});
    }
    sight = {colour, 140 + 6 * Chance(house, 3), false};
    return true;
}

bool HarbourScene::Lighthouse(double x, double y, Sight& sight) const
{
    const double lx = x - 0.62;
    const auto paint = [&](const Light& colour, bool shines) {
        sight = {shines ? colour : Shade(colour), 75, false};
        return true;
    };
    if (y >= 0 && y < 0.022 && x > 0.36)
        return paint({0.46, 0.42, 0.40}, false); // the pier
    const double half = 0.034 - 0.035 * y;
    if (y >= 0.022 && y < 0.33 && std::abs(lx) < half)
        return paint(std::fmod(y, 0.11) < 0.055 ? Light{0.93, 0.91, 0.88} : Light{0.78, 0.18, 0.16},
                     false);
    if (y >= 0.33 && y < 0.37 && std::abs(lx) < 0.02)
        return paint(Mix({0.85, 0.92, 0.95}, {1.0, 0.93, 0.6}, fHour * 2), fHour > 0.3);
    if (y >= 0.37 && y < 0.40 && std::abs(lx) < 0.024 * (0.40 - y) / 0.03)
        return paint({0.30, 0.28, 0.30}, false);
    return false;
}

Sight HarbourScene::Above(double x, double y) const
{
    Sight sight = {Sky(y), kNothing, false};
    const double toSun = std::hypot(x - kSunX, y - fSunY);
    if (toSun < kSunRadius)
        sight.light = Mix({1.0, 0.96, 0.78}, {1.0, 0.62, 0.30}, fHour * 1.2);
    else if (toSun < kSunRadius * 3.1)
        sight.light = Mix(sight.light, {1.0, 0.80, 0.50},
                          0.34 - 0.12 * std::floor((toSun / kSunRadius - 1) / 0.7));
    if (y < FarHills(x))
        sight = {Mix(Shade({0.42, 0.50, 0.56}), Sky(0), 0.35), 900, false};
    if (y < NearHills(x))
        sight = {Shade({0.28, 0.38, 0.30}), 420, false};
    if (Lighthouse(x, y, sight) || Town(x, y, sight))
        return sight;
    return sight;
}

// The sea mirrors what is above it, dimmed, and shakes it sideways row by row.
Sight HarbourScene::Water(double x, double y) const
{
    const double depth = -y;
    const int ripple = static_cast<int>(depth / (0.005 + 0.008 * depth));
    const double shift =
        0.03 * depth * (Chance(ripple, 7) - 0.5) + 0.006 * (Chance(ripple, 8) - 0.5);
    const Light deep = Shade({0.10, 0.30, 0.40});
    const Sight mirrored = Above(x + shift, depth * 0.92);
    Light light = Mix(Scale(Sky(depth * 0.9), 0.85), deep, 0.30 + 0.9 * depth);
    if (std::isfinite(mirrored.distance))
        light = Mix(mirrored.light, deep, 0.35 + depth);
    const double streak = (0.02 + 0.15 * depth) * (0.2 + 0.8 * Chance(ripple, 9));
    if (std::abs(x + shift - kSunX) < streak && fSunY > -kSunRadius)
        light = Mix(light, {1.0, 0.74, 0.42}, 0.72);
    return {light, 14 / (depth + 0.02), false};
}

Sight HarbourScene::Look(double x, double y) const
{
    Sight sight = y >= 0 ? Above(x, y) : Water(x, y);
    Boat(x, y, sight);
    return sight;
}

} // namespace Samples
