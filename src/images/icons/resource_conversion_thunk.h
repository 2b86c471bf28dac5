// ResourceConversionThunk, which knows the tags of pictures: four letters, of which the first gives
// the density and the last ones the state.
//
//   low     high    state                          slot
//   PNGf    HNGf    the picture as it is             0
//   PICn    HICn    normal                           0
//   PICr    HICr    rollover                         0
//   PICi    HICi    inactive                         2
//   PICd    HICd    disabled                         2
//   PICx    HICx    extra                            2
//   PICp    HICp    pressed                          4
//   PIND    HIND    normal in a dark theme           6
//
// Every other tag belongs to the resources of the module itself.
#pragma once

#include "foundation/streams/stream.h"
#include "images/icons/icon_index.h"

#include <string_view>

namespace Kesto {

class ResourceConversionThunk {
public:
    virtual ~ResourceConversionThunk() = default;

    // The name without the extension ".png", if it has that. The result lies in `name`.
    virtual std::string_view GetResourceName(std::string_view name) const;

    // Each returns false, with nothing set, for a tag that is not in its column.
    virtual bool GetTagSlots(Tag tag, EStateSlot& slot, EResolution& density) const;
    virtual bool GetHighTag(Tag tag, Tag& highTag) const;
    virtual bool GetLowTag(Tag tag, Tag& lowTag) const;
};

} // namespace Kesto
