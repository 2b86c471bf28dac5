#include "glow.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>
#include <vector>

namespace SoftGlow {
namespace {

constexpr int kAverages = 3; // of neighbours, one after the other: close to a bell curve

int32_t AverageReach(const Settings& settings)
{
    return (settings.radius + kAverages - 1) / kAverages;
}

template <class Sample>
constexpr float kWhite = std::is_same_v<Sample, uint8_t>    ? 255.0F
                         : std::is_same_v<Sample, uint16_t> ? 32768.0F
                                                            : 1.0F;

template <class Sample>
float Load(const uint8_t* from)
{
    Sample sample{};
    std::memcpy(&sample, from, sizeof sample);
    return static_cast<float>(sample) / kWhite<Sample>;
}

template <class Sample>
void Store(uint8_t* to, float value)
{
    Sample sample{};
    if constexpr (std::is_same_v<Sample, float>)
        sample = value;
    else
        sample = static_cast<Sample>(std::clamp(value, 0.0F, 1.0F) * kWhite<Sample> + 0.5F);
    std::memcpy(to, &sample, sizeof sample);
}

// Averages each row's samples with their neighbours, as far as there are any, and lays the rows
// down as columns: done twice it is back in place.
void AverageRows(const std::vector<float>& from, std::vector<float>& to, int32_t width,
                 int32_t height, int32_t reach)
{
    for (int32_t y = 0; y < height; ++y) {
        const float* const row = from.data() + static_cast<size_t>(y) * static_cast<size_t>(width);
        double sum = 0;
        int32_t first = 0;
        int32_t end = 0;
        for (int32_t x = 0; x < width; ++x) {
            while (end < std::min(width, x + reach + 1))
                sum += row[end++];
            while (first < x - reach)
                sum -= row[first++];
            to[static_cast<size_t>(x) * static_cast<size_t>(height) + static_cast<size_t>(y)] =
                static_cast<float>(sum / (end - first));
        }
    }
}

float Blend(int32_t mode, float base, float light)
{
    switch (mode) {
    case kLighten:
        return std::max(base, light);
    case kSoftLight:
        return (1 - 2 * light) * base * base + 2 * light * base;
    default:
        return 1 - (1 - base) * (1 - light);
    }
}

template <class Sample>
class Glower {
public:
    Glower(const Settings& settings, int32_t planes, const Pixels<const uint8_t>& from,
           int32_t left, int32_t top, const Pixels<uint8_t>& to)
        : fSettings(settings), fStep(static_cast<size_t>(planes) * sizeof(Sample)), fFrom(from),
          fLeft(left), fTop(top), fTo(to)
    {
        fLight.resize(static_cast<size_t>(from.width) * static_cast<size_t>(from.height));
        fTurned.resize(fLight.size());
    }

    void Plane(int32_t plane, bool glows)
    {
        if (glows)
            Blur(plane);
        const float amount = glows ? static_cast<float>(fSettings.amount) / 100 : 0;
        for (int32_t y = 0; y < fTo.height; ++y) {
            const size_t row = static_cast<size_t>(fTop + y) * static_cast<size_t>(fFrom.width);
            for (int32_t x = 0; x < fTo.width; ++x) {
                const float base = Load<Sample>(From(fLeft + x, fTop + y, plane));
                const float light = fLight[row + static_cast<size_t>(fLeft + x)];
                const float glow = glows ? Blend(fSettings.mode, base, light) : base;
                Store<Sample>(To(x, y, plane), base + (glow - base) * amount);
            }
        }
    }

private:
    const uint8_t* From(int32_t x, int32_t y, int32_t plane) const
    {
        return fFrom.bytes + y * fFrom.stride + static_cast<size_t>(x) * fStep +
               static_cast<size_t>(plane) * sizeof(Sample);
    }
    uint8_t* To(int32_t x, int32_t y, int32_t plane) const
    {
        return fTo.bytes + y * fTo.stride + static_cast<size_t>(x) * fStep +
               static_cast<size_t>(plane) * sizeof(Sample);
    }

    void Blur(int32_t plane)
    {
        size_t i = 0;
        for (int32_t y = 0; y < fFrom.height; ++y)
            for (int32_t x = 0; x < fFrom.width; ++x)
                fLight[i++] = Load<Sample>(From(x, y, plane));
        const int32_t reach = AverageReach(fSettings);
        for (int n = 0; n < kAverages; ++n) {
            AverageRows(fLight, fTurned, fFrom.width, fFrom.height, reach);
            AverageRows(fTurned, fLight, fFrom.height, fFrom.width, reach);
        }
    }

    const Settings& fSettings;
    size_t fStep;
    const Pixels<const uint8_t>& fFrom;
    int32_t fLeft;
    int32_t fTop;
    const Pixels<uint8_t>& fTo;
    std::vector<float> fLight;
    std::vector<float> fTurned;
};

} // namespace

int32_t Reach(const Settings& settings)
{
    return kAverages * AverageReach(settings);
}

void Glow(const Settings& settings, int32_t bits, int32_t planes, int32_t colours,
          const Pixels<const uint8_t>& from, int32_t left, int32_t top, const Pixels<uint8_t>& to)
{
    const auto run = [&](auto glower) {
        for (int32_t plane = 0; plane < planes; ++plane)
            glower.Plane(plane, plane < colours);
    };
    if (bits == 8)
        run(Glower<uint8_t>(settings, planes, from, left, top, to));
    else if (bits == 16)
        run(Glower<uint16_t>(settings, planes, from, left, top, to));
    else
        run(Glower<float>(settings, planes, from, left, top, to));
}

} // namespace SoftGlow
