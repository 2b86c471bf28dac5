#include "images/pictures.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace Bench {

namespace {

std::uint8_t ToByte(double value)
{
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

// A picture of `paint(x, y, sample)` for each pixel.
template <class Paint>
TestPNG::Picture Painted(std::int32_t side, std::uint8_t colorType, const Paint& paint)
{
    TestPNG::Picture picture{side, side, colorType, false, {}, {}, {}};
    picture.samples.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) *
                           picture.Channels());
    std::uint8_t* sample = picture.samples.data();
    for (std::int32_t y = 0; y < side; ++y)
        for (std::int32_t x = 0; x < side; ++x, sample += picture.Channels())
            paint(x, y, sample);
    return picture;
}

} // namespace

TestPNG::Picture PhotoLike(std::int32_t side, std::uint8_t colorType)
{
    std::minstd_rand random(1);
    return Painted(side, colorType,
                   [&, channels = colorType == 0 ? 1 : 3](auto x, auto y, std::uint8_t* sample) {
                       const double light =
                           120 + 50 * std::sin(x * 0.004 + 2 * std::sin(y * 0.011)) +
                           40 * std::cos(y * 0.003) + 12 * std::sin(x * 0.09) * std::sin(y * 0.07);
                       for (int c = 0; c < channels; ++c) {
                           const auto grain = static_cast<std::uint32_t>(random()) >> 4;
                           sample[c] = ToByte(light + 15 * c * std::sin(x * 0.002) + (grain & 3) +
                                              (grain >> 2 & 3) - 3.0);
                       }
                       if (colorType == 6)
                           sample[3] = ToByte(std::min({x, y, side - 1 - x, side - 1 - y}) * 2);
                   });
}

TestPNG::Picture DitheredPhotoLike(std::int32_t side)
{
    const TestPNG::Picture photo = PhotoLike(side, 2);
    const std::uint8_t* color = photo.samples.data();
    std::minstd_rand random(2);
    TestPNG::Picture picture = Painted(side, 3, [&](auto, auto, std::uint8_t* sample) {
        *sample = 0;
        for (int c = 0; c < 3; ++c) {
            const int level = static_cast<int>((*color++ + (random() >> 8) % 51) / 51);
            *sample = static_cast<std::uint8_t>(*sample * 6 + std::min(level, 5));
        }
    });
    for (int i = 0; i < 216; ++i)
        for (const int level : {i / 36, i / 6 % 6, i % 6})
            picture.palette.push_back(static_cast<std::uint8_t>(level * 51));
    return picture;
}

TestPNG::Picture DrawingLike(std::int32_t side)
{
    TestPNG::Picture picture = Painted(side, 3, [](auto x, auto y, std::uint8_t* sample) {
        const int area =
            static_cast<int>(x / 61 + 3 * std::sin(y * 0.02)) * 31 + (y + x / 7) / 47 * 17;
        const bool isShaded = area % 3 == 0;
        const int shade = isShaded ? (x + y + (x * 7 ^ y * 13) % 5) / 24 % 10 : 0;
        *sample = static_cast<std::uint8_t>((area % 190 + 190) % 190 + shade);
    });
    for (int i = 0; i < 3 * 200; ++i)
        picture.palette.push_back(static_cast<std::uint8_t>(i * 37));
    return picture;
}

TestPNG::Picture IconLike(std::int32_t side, std::uint32_t seed)
{
    std::minstd_rand random(seed + 1);
    const auto upTo = [&](double limit) {
        return limit * static_cast<double>(random() % 1000) / 1000;
    };
    const double middleX = side * 0.4 + upTo(side * 0.2), middleY = side * 0.4 + upTo(side * 0.2);
    const double radius = side * 0.2 + upTo(side * 0.25);
    const double color[] = {upTo(255), upTo(255), upTo(255)};
    return Painted(side, 6, [&](auto x, auto y, std::uint8_t* sample) {
        const double outside = std::hypot(x - middleX, y - middleY) - radius;
        sample[3] = ToByte(255 * std::clamp(0.5 - outside, 0.0, 1.0));
        for (int c = 0; c < 3 && sample[3] != 0; ++c)
            sample[c] = ToByte(outside > -1.5 ? color[c] / 2 : color[c] + (middleY - y) * 3);
    });
}

} // namespace Bench
