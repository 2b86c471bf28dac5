// CResourceDataProvider, the reader of the icon store: every picture of the toolkit as a small PNG,
// in two sizes.
//
// The store lies in the module's resources, an index of type "IDXF" and a data file of type "IDXD"
// for each resolution. The index is read at the first lookup, a data file at the first picture that
// is wanted of it, and both stay. Pictures are not decoded here. Used by the user interface's
// thread.
#pragma once

#include "foundation/base/block.h"
#include "images/icons/icon_index.h"
#include "images/icons/resource_conversion_thunk.h"
#include "images/icons/resource_name.h"
#include "images/icons/resource_reader.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace Kesto {

class ResourceDataProvider {
public:
    virtual ~ResourceDataProvider() = default;

    // Reads the index. Without one the store is unavailable from then on: it has no picture. Throws
    // std::logic_error for an index that is broken, and so does each lookup then.
    virtual void LoadIndex() = 0;

    // The bytes of a resolution's data file; null when the module has none.
    virtual const CBlock* GetData(EResolution resolution) = 0;

    // What the store has under a name, at one resolution and state slot. A name that begins with a
    // digit means "Alpha_" and that name. The bytes are the PNG's and stay. Each returns
    // false, and GetPicture clears its results, when the name is unknown, the slot is empty or what
    // it says does not lie in the data file.
    virtual bool GetPicture(std::string_view name, EResolution resolution, EStateSlot slot,
                            std::uint32_t& size, const std::byte*& data) = 0;

    // The size belongs to the resolution, not to the state; false also when either number is 0.
    virtual bool GetPictureSize(std::string_view name, EResolution resolution, EStateSlot slot,
                                std::int32_t& width, std::int32_t& height) = 0;

    // In units, which are the pixels of the low resolution, whichever is drawn.
    virtual bool GetHotSpot(std::string_view name, std::int32_t& x, std::int32_t& y) = 0;
};

class CResourceDataProvider final : public ResourceDataProvider {
public:
    // The store of `module`.
    explicit CResourceDataProvider(const ResourceModule& module = ThisModule());

    // The process's own, made at the first call.
    static CResourceDataProvider& Get();

    void LoadIndex() override;
    const CBlock* GetData(EResolution resolution) override;
    bool GetPicture(std::string_view name, EResolution resolution, EStateSlot slot,
                    std::uint32_t& size, const std::byte*& data) override;
    bool GetPictureSize(std::string_view name, EResolution resolution, EStateSlot slot,
                        std::int32_t& width, std::int32_t& height) override;
    bool GetHotSpot(std::string_view name, std::int32_t& x, std::int32_t& y) override;

    // The same by a tag; a name may end in ".png". False also for a tag that is none of pictures;
    // nothing is set then.
    bool GetPicture(Tag tag, const CResourceName& name, CBlock& block);
    bool GetPictureSize(Tag tag, const CResourceName& name, std::int32_t& width,
                        std::int32_t& height);
    bool GetHotSpot(Tag tag, const CResourceName& name, std::int32_t& x, std::int32_t& y);

    // All names in the index, in their order.
    std::vector<std::string> GetNames();

private:
    bool NeedIndex();
    const IconPlaces* FindEntry(std::string_view name);
    const IconPlaces* FindPicture(std::string_view name, EResolution resolution, EStateSlot slot);

    IconDataNames fDataNames;
    IconEntries fEntries; // into fIndex
    CMemoryBlock fIndex;
    ResourceConversionThunk fThunk;
    bool fUnavailable = false; // the module has no index
    bool fIsLoaded = false;
    std::array<CMemoryBlock, kResolutionCount> fData;
    CResourceReader fReader;
};

} // namespace Kesto
