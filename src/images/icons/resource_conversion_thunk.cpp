#include "images/icons/resource_conversion_thunk.h"

#include <algorithm>
#include <array>

namespace Kesto {
namespace {

struct TagRow {
    Tag fLow;
    Tag fHigh;
    EStateSlot fSlot;
};

// A state's row: its low tag, with which the high tag shares all but the first letter.
consteval TagRow Row(const char (&low)[5], EStateSlot slot)
{
    constexpr Tag kFirstLetter = 0xFF000000;
    const Tag tag = MakeTag(low);
    return {tag, (MakeTag("H...") & kFirstLetter) | (tag & ~kFirstLetter), slot};
}

constexpr std::array kTags = {
    Row("PNGf", kStateSlot_Normal),   Row("PICn", kStateSlot_Normal),
    Row("PICr", kStateSlot_Normal),   Row("PICi", kStateSlot_Inactive),
    Row("PICd", kStateSlot_Inactive), Row("PICx", kStateSlot_Inactive),
    Row("PICp", kStateSlot_Pressed),  Row("PIND", kStateSlot_Dark),
};

const TagRow* FindRow(Tag TagRow::*column, Tag tag)
{
    const auto found = std::ranges::find(kTags, tag, column);
    return found == kTags.end() ? nullptr : &*found;
}

// Sets `out` to the other tag of the row that has `tag` in the column `from`.
bool Exchange(Tag TagRow::*from, Tag TagRow::*to, Tag tag, Tag& out)
{
    const TagRow* row = FindRow(from, tag);
    if (row != nullptr)
        out = row->*to;
    return row != nullptr;
}

} // namespace

std::string_view ResourceConversionThunk::GetResourceName(std::string_view name) const
{
    constexpr std::string_view kExtension = ".png";
    if (name.ends_with(kExtension))
        name.remove_suffix(kExtension.size());
    return name;
}

bool ResourceConversionThunk::GetTagSlots(Tag tag, EStateSlot& slot, EResolution& density) const
{
    const TagRow* low = FindRow(&TagRow::fLow, tag);
    const TagRow* row = low != nullptr ? low : FindRow(&TagRow::fHigh, tag);
    if (row == nullptr)
        return false;
    slot = row->fSlot;
    density = row == low ? kResolution_Low : kResolution_High;
    return true;
}

bool ResourceConversionThunk::GetHighTag(Tag tag, Tag& highTag) const
{
    return Exchange(&TagRow::fLow, &TagRow::fHigh, tag, highTag);
}

bool ResourceConversionThunk::GetLowTag(Tag tag, Tag& lowTag) const
{
    return Exchange(&TagRow::fHigh, &TagRow::fLow, tag, lowTag);
}

} // namespace Kesto
