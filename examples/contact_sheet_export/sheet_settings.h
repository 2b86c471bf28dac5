// What a user can set about the sheet.
#pragma once

#include "foundation/settings/plugin_settings.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace ContactSheet {

struct Settings : Project::PSettings {
    int32_t columns = 3; // prints side by side
    int32_t rows = 3;
    int32_t size = 160; // pixels of a print's longer side
    int32_t gap = 16;   // pixels around each print

    void Read(Kesto::CStream& stream, uint32_t size) override;
    void Write(Kesto::CStream& stream) const override;
    std::unique_ptr<PSettings> Clone() const override { return std::make_unique<Settings>(*this); }
};

// A setting: what the host calls it, the id of its control, and its limits.
struct Field {
    const char* name;
    const char* control;
    int32_t Settings::*number;
    int32_t least;
    int32_t most;
};
inline constexpr std::array kFields = {
    Field{"columns", "ContactSheet/Columns", &Settings::columns, 1, 50},
    Field{"rows", "ContactSheet/Rows", &Settings::rows, 1, 50},
    Field{"size", "ContactSheet/Size", &Settings::size, 8, 2000},
    Field{"gap", "ContactSheet/Gap", &Settings::gap, 0, 500},
};

inline void Settings::Read(Kesto::CStream& stream, uint32_t bytes)
{
    if (bytes < kFields.size() * sizeof(int32_t))
        return;
    for (const Field& field : kFields)
        this->*field.number = std::clamp(stream.ReadInt32(), field.least, field.most);
}

inline void Settings::Write(Kesto::CStream& stream) const
{
    for (const Field& field : kFields)
        stream.WriteInt32(this->*field.number);
}

} // namespace ContactSheet
