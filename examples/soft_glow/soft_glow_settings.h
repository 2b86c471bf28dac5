// What a user can set about the glow.
#pragma once

#include "foundation/settings/plugin_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace SoftGlow {

enum Mode : int32_t { kScreen, kLighten, kSoftLight };
inline constexpr std::array<std::string_view, 3> kModeNames = {"screen", "lighten", "soft_light"};

inline constexpr int32_t kMostRadius = 500;

struct Settings : Project::PSettings {
    int32_t radius = 12; // pixels that light reaches, 1 to kMostRadius
    int32_t amount = 60; // percent of the glow in the result
    int32_t mode = kScreen;

    bool operator==(const Settings& other) const
    {
        return radius == other.radius && amount == other.amount && mode == other.mode;
    }

    void Read(Kesto::CStream& stream, uint32_t size) override
    {
        if (size < 3 * sizeof(int32_t))
            return;
        radius = std::clamp(stream.ReadInt32(), 1, kMostRadius);
        amount = std::clamp(stream.ReadInt32(), 0, 100);
        mode = std::clamp<int32_t>(stream.ReadInt32(), kScreen, kSoftLight);
    }
    void Write(Kesto::CStream& stream) const override
    {
        stream.WriteInt32(radius);
        stream.WriteInt32(amount);
        stream.WriteInt32(mode);
    }
    std::unique_ptr<PSettings> Clone() const override { return std::make_unique<Settings>(*this); }
};

} // namespace SoftGlow
