#include "images/icons/resource_data_provider.h"

namespace Kesto {
namespace {

constexpr Tag kIndexType = MakeTag("IDXF");
constexpr Tag kDataType = MakeTag("IDXD");
constexpr std::string_view kIndexName = "IconResources.idx";

// The name under which the index has a picture.
std::string MakeKey(std::string_view name)
{
    const bool isNumber = !name.empty() && name.front() >= '0' && name.front() <= '9';
    return (isNumber ? "Alpha_" : "") + std::string(name);
}

// True for a width or height that a pixmap can have.
bool IsLength(std::uint32_t pixels)
{
    return pixels != 0 && pixels <= 0x7FFFFFFF;
}

} // namespace

CResourceDataProvider::CResourceDataProvider(const ResourceModule& module) : fReader(module, false)
{
}

CResourceDataProvider& CResourceDataProvider::Get()
{
    static CResourceDataProvider provider;
    return provider;
}

// A broken index is left unloaded, so that the next lookup throws again.
void CResourceDataProvider::LoadIndex()
{
    fIsLoaded = false;
    fEntries.clear();
    fUnavailable = !fReader.Read(fIndex, kIndexType, kIndexName);
    if (fUnavailable)
        return;
    ParseIconIndex(fIndex.Bytes(), fDataNames, fEntries);
    fIsLoaded = true;
}

// False if there is no index.
bool CResourceDataProvider::NeedIndex()
{
    if (!fIsLoaded && !fUnavailable)
        LoadIndex();
    return fIsLoaded;
}

const CBlock* CResourceDataProvider::GetData(EResolution resolution)
{
    if (resolution >= kResolutionCount || !NeedIndex())
        return nullptr;
    CMemoryBlock& data = fData[resolution];
    if (data.GetSize() == 0)
        fReader.Read(data, kDataType, fDataNames[resolution]);
    return data.GetSize() == 0 ? nullptr : &data;
}

const IconPlaces* CResourceDataProvider::FindEntry(std::string_view name)
{
    if (!NeedIndex())
        return nullptr;
    const auto found = fEntries.find(MakeKey(name));
    return found == fEntries.end() ? nullptr : found->second;
}

// The entry, if it says that it has this picture.
const IconPlaces* CResourceDataProvider::FindPicture(std::string_view name, EResolution resolution,
                                                     EStateSlot slot)
{
    const IconPlaces* entry = FindEntry(name);
    if (entry == nullptr || resolution >= kResolutionCount || slot >= kStateSlotCount)
        return nullptr;
    return entry->fOffset[resolution][slot] == 0 || entry->fSize[resolution][slot] == 0 ? nullptr
                                                                                        : entry;
}

bool CResourceDataProvider::GetPicture(std::string_view name, EResolution resolution,
                                       EStateSlot slot, std::uint32_t& size, const std::byte*& data)
{
    size = 0;
    data = nullptr;
    const IconPlaces* entry = FindPicture(name, resolution, slot);
    const CBlock* file = entry == nullptr ? nullptr : GetData(resolution);
    if (file == nullptr)
        return false;
    const std::uint32_t offset = entry->fOffset[resolution][slot];
    const std::uint32_t wanted = entry->fSize[resolution][slot];
    if (offset > file->GetSize() || wanted > file->GetSize() - offset)
        return false;
    size = wanted;
    data = file->Data() + offset;
    return true;
}

bool CResourceDataProvider::GetPictureSize(std::string_view name, EResolution resolution,
                                           EStateSlot slot, std::int32_t& width,
                                           std::int32_t& height)
{
    const IconPlaces* entry = FindPicture(name, resolution, slot);
    if (entry == nullptr || !IsLength(entry->fWidth[resolution]) ||
        !IsLength(entry->fHeight[resolution]))
        return false;
    width = static_cast<std::int32_t>(entry->fWidth[resolution]);
    height = static_cast<std::int32_t>(entry->fHeight[resolution]);
    return true;
}

bool CResourceDataProvider::GetHotSpot(std::string_view name, std::int32_t& x, std::int32_t& y)
{
    const IconPlaces* entry = FindEntry(name);
    if (entry == nullptr)
        return false;
    x = static_cast<std::int32_t>(entry->fHotX[kResolution_Low]);
    y = static_cast<std::int32_t>(entry->fHotY[kResolution_Low]);
    return true;
}

bool CResourceDataProvider::GetPicture(Tag tag, const CResourceName& name, CBlock& block)
{
    EStateSlot slot;
    EResolution density;
    std::uint32_t size;
    const std::byte* data;
    if (!fThunk.GetTagSlots(tag, slot, density) ||
        !GetPicture(fThunk.GetResourceName(name.Text()), density, slot, size, data))
        return false;
    CopyToBlock(block, {data, size});
    return true;
}

bool CResourceDataProvider::GetPictureSize(Tag tag, const CResourceName& name, std::int32_t& width,
                                           std::int32_t& height)
{
    EStateSlot slot;
    EResolution density;
    return fThunk.GetTagSlots(tag, slot, density) &&
           GetPictureSize(fThunk.GetResourceName(name.Text()), density, slot, width, height);
}

bool CResourceDataProvider::GetHotSpot(Tag tag, const CResourceName& name, std::int32_t& x,
                                       std::int32_t& y)
{
    EStateSlot slot;
    EResolution density;
    if (!fThunk.GetTagSlots(tag, slot, density))
        return false;
    const std::string_view plain = fThunk.GetResourceName(name.Text());
    return FindPicture(plain, density, slot) != nullptr && GetHotSpot(plain, x, y);
}

std::vector<std::string> CResourceDataProvider::GetNames()
{
    std::vector<std::string> names;
    if (NeedIndex())
        for (const auto& [name, places] : fEntries)
            names.push_back(name);
    return names;
}

} // namespace Kesto
