#include "glow.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>
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
    return static_cast<float>(sample) * (1 / kWhite<Sample>);
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

// A plane of light, row by row.
struct Plane {
    Plane(int32_t columns, int32_t rows)
        : width(columns), height(rows),
          samples(static_cast<size_t>(columns) * static_cast<size_t>(rows))
    {
    }
    float* Row(int32_t y) { return samples.data() + ptrdiff_t{y} * width; }
    const float* Row(int32_t y) const { return samples.data() + ptrdiff_t{y} * width; }

    int32_t width;
    int32_t height;
    std::vector<float> samples;
};

// Averages each column's samples with their neighbours, as far as there are any. The sums of all
// columns go down together, row by row.
template <class Sum>
void AverageColumns(const Plane& from, Plane& to, int32_t reach)
{
    to.width = from.width;
    to.height = from.height;
    const auto count = static_cast<size_t>(from.width);
    const std::vector<float> none(count);
    std::vector<Sum> columns(count);
    Sum* const sums = columns.data();
    for (int32_t y = 0; y < std::min(reach, from.height); ++y) {
        const float* const row = from.Row(y);
        for (size_t x = 0; x < count; ++x)
            sums[x] += row[x];
    }
    for (int32_t y = 0; y < from.height; ++y) {
        const int32_t rows = std::min(y + reach + 1, from.height) - std::max(y - reach, 0);
        const Sum part = Sum{1} / static_cast<Sum>(rows);
        const float* const entering = y + reach < from.height ? from.Row(y + reach) : none.data();
        const float* const leaving = y >= reach ? from.Row(y - reach) : none.data();
        float* const row = to.Row(y);
        for (size_t x = 0; x < count; ++x) {
            const Sum sum = sums[x] + entering[x];
            row[x] = static_cast<float>(sum * part);
            sums[x] = sum - leaving[x];
        }
    }
}

// Rows become columns, a square at a time, so that both sides stay in the cache.
void Turn(const Plane& from, Plane& to)
{
    constexpr int32_t kSquare = 16;
    to.width = from.height;
    to.height = from.width;
    for (int32_t top = 0; top < from.height; top += kSquare)
        for (int32_t left = 0; left < from.width; left += kSquare)
            for (int32_t x = left; x < std::min(left + kSquare, from.width); ++x) {
                float* const row = to.Row(x);
                for (int32_t y = top; y < std::min(top + kSquare, from.height); ++y)
                    row[y] = from.Row(y)[x];
            }
}

// What is bright without limit must leave nothing behind in a sum that it has left.
template <class Sample>
using SumOf = std::conditional_t<std::is_same_v<Sample, float>, double, float>;

// Blurs `light`; `spare` has room for as much.
template <class Sum>
void Blur(Plane& light, Plane& spare, int32_t reach)
{
    for (int direction = 0; direction < 2; ++direction) {
        for (int n = 0; n < kAverages; ++n) {
            AverageColumns<Sum>(light, spare, reach);
            std::swap(light, spare);
        }
        Turn(light, spare);
        std::swap(light, spare);
    }
}

template <int32_t kMode>
float Blend(float base, float light)
{
    if constexpr (kMode == kLighten)
        return std::max(base, light);
    else if constexpr (kMode == kSoftLight)
        return (1 - 2 * light) * base * base + 2 * light * base;
    else
        return 1 - (1 - base) * (1 - light);
}

template <class Sample>
class Glower {
public:
    Glower(const Settings& settings, int32_t planes, const Pixels<const uint8_t>& from,
           int32_t left, int32_t top, const Pixels<uint8_t>& to)
        : fSettings(settings), fStep(static_cast<size_t>(planes) * sizeof(Sample)), fFrom(from),
          fLeft(left), fTop(top), fTo(to), fLight(from.width, from.height), fSpare(fLight)
    {
    }

    void LightUp(int32_t plane)
    {
        LoadLight(plane);
        Blur<SumOf<Sample>>(fLight, fSpare, AverageReach(fSettings));
        if (fSettings.mode == kLighten)
            BlendRows<kLighten>(plane);
        else if (fSettings.mode == kSoftLight)
            BlendRows<kSoftLight>(plane);
        else
            BlendRows<kScreen>(plane);
    }

    void Copy(int32_t plane)
    {
        for (int32_t y = 0; y < fTo.height; ++y) {
            const uint8_t* from = From(fLeft, fTop + y, plane);
            uint8_t* to = To(y, plane);
            for (int32_t x = 0; x < fTo.width; ++x, from += fStep, to += fStep)
                std::memcpy(to, from, sizeof(Sample));
        }
    }

private:
    const uint8_t* From(int32_t x, int32_t y, int32_t plane) const
    {
        return fFrom.bytes + y * fFrom.stride + static_cast<size_t>(x) * fStep +
               static_cast<size_t>(plane) * sizeof(Sample);
    }
    uint8_t* To(int32_t y, int32_t plane) const
    {
        return fTo.bytes + y * fTo.stride + static_cast<size_t>(plane) * sizeof(Sample);
    }

    void LoadLight(int32_t plane)
    {
        for (int32_t y = 0; y < fFrom.height; ++y) {
            const uint8_t* from = From(0, y, plane);
            float* const row = fLight.Row(y);
            for (int32_t x = 0; x < fFrom.width; ++x, from += fStep)
                row[x] = Load<Sample>(from);
        }
    }

    template <int32_t kMode>
    void BlendRows(int32_t plane)
    {
        const float amount = static_cast<float>(fSettings.amount) / 100;
        for (int32_t y = 0; y < fTo.height; ++y) {
            const uint8_t* from = From(fLeft, fTop + y, plane);
            uint8_t* to = To(y, plane);
            const float* const light = fLight.Row(fTop + y) + fLeft;
            for (int32_t x = 0; x < fTo.width; ++x, from += fStep, to += fStep) {
                const float base = Load<Sample>(from);
                Store<Sample>(to, base + (Blend<kMode>(base, light[x]) - base) * amount);
            }
        }
    }

    const Settings& fSettings;
    size_t fStep; // bytes from pixel to pixel
    const Pixels<const uint8_t>& fFrom;
    int32_t fLeft;
    int32_t fTop;
    const Pixels<uint8_t>& fTo;
    Plane fLight;
    Plane fSpare;
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
            plane < colours ? glower.LightUp(plane) : glower.Copy(plane);
    };
    if (bits == 8)
        run(Glower<uint8_t>(settings, planes, from, left, top, to));
    else if (bits == 16)
        run(Glower<uint16_t>(settings, planes, from, left, top, to));
    else
        run(Glower<float>(settings, planes, from, left, top, to));
}

} // namespace SoftGlow
