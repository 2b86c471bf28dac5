// Takes any bytes for an icon store: all but the last few are the index, the rest is each of its
// data files. Whatever the store says that it has must lie in its data.
//
//   0   1  how many bytes at the end are the data file
//   1      the index, then the data file
#include "images/icons/resource_data_provider.h"

#include <cstdlib>
#include <stdexcept>

using namespace Kesto;

namespace {

void LookUpAll(CResourceDataProvider& store, const std::string& name)
{
    CMemoryBlock block;
    std::int32_t x, y;
    for (std::uint32_t resolution = 0; resolution <= kResolutionCount; ++resolution)
        for (std::uint32_t slot = 0; slot <= kStateSlotCount; ++slot) {
            std::uint32_t size;
            const std::byte* data;
            const auto density = static_cast<EResolution>(resolution);
            const auto state = static_cast<EStateSlot>(slot);
            if (store.GetPicture(name, density, state, size, data)) {
                if (size == 0 || resolution == kResolutionCount || slot == kStateSlotCount)
                    std::abort();
                CopyToBlock(block, {data, size}); // reads each byte
            }
            if (store.GetPictureSize(name, density, state, x, y) && (x <= 0 || y <= 0))
                std::abort();
        }
    store.GetPicture(MakeTag("HICp"), name, block);
    store.GetHotSpot(MakeTag("PNGf"), name, x, y);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const auto bytes = std::as_bytes(std::span(data + 1, size - 1));
    const std::size_t dataBytes = std::min<std::size_t>(data[0], bytes.size());
    CResourceDataProvider store([&](std::string_view type, std::string_view) {
        return std::optional(type == "IDXF" ? bytes.first(bytes.size() - dataBytes)
                                            : bytes.last(dataBytes));
    });
    try {
        for (const std::string& name : store.GetNames())
            LookUpAll(store, name);
        LookUpAll(store, "26019.png");
    } catch (const std::logic_error&) {
        // a broken index
    }
    return 0;
}
