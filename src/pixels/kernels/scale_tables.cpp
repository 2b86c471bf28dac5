#include "pixels/kernels/scale_tables.h"

namespace Kesto {

ScaleTable MakeReduceTable(std::int32_t targetSize, std::int32_t sourceSize,
                           std::int32_t sourceStart, float& scale)
{
    ScaleTable table(static_cast<std::size_t>(targetSize));
    const float target = static_cast<float>(targetSize);
    const float source = static_cast<float>(sourceSize);
    scale = target / source;
    float carry = 0;
    std::int32_t position = 0;
    for (std::int32_t i = 1; i <= targetSize; ++i) {
        const float edge = static_cast<float>(i) * source / target;
        std::int32_t whole = static_cast<std::int32_t>(edge);
        float rest = edge - static_cast<float>(whole);
        if (whole >= sourceSize) { // a float may round the last edge up
            whole = sourceSize;
            rest = 0;
        }
        ScaleEntry& entry = table[static_cast<std::size_t>(i) - 1];
        entry.fFirst = sourceStart + position;
        entry.fFirstWeight = carry > 0 ? 1 - carry : 1;
        entry.fLast = sourceStart + (rest > 0 ? whole : whole - 1);
        entry.fLastWeight = rest > 0 ? rest : 1;
        position = whole;
        carry = rest;
    }
    return table;
}

ScaleTable MakeEnlargeTable(std::int32_t targetSize, std::int32_t sourceSize,
                            std::int32_t sourceStart)
{
    ScaleTable table(static_cast<std::size_t>(targetSize));
    const double steps = targetSize - 1.0;
    for (std::int32_t i = 0; i < targetSize; ++i) {
        const double place = i * (sourceSize - 1.0) / steps;
        const std::int32_t whole = static_cast<std::int32_t>(place);
        const double rest = place - whole;
        const std::int32_t index = sourceStart + whole;
        ScaleEntry& entry = table[static_cast<std::size_t>(i)];
        if (rest > 0 && whole + 1 < sourceSize)
            entry = {static_cast<float>(1 - rest), static_cast<float>(rest), index, index + 1};
        else
            entry = {1, 0, index, index};
    }
    return table;
}

} // namespace Kesto
