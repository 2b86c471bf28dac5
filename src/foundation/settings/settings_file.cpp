#include "foundation/settings/settings_file.h"

#include "foundation/settings/plugin_settings.h"
#include "foundation/streams/memory_container.h"

namespace Kesto {
namespace {

constexpr Tag kKesto = MakeTag("Kest");
constexpr Tag kKestoSwapped = SwapBytes(kKesto);
constexpr Tag kProject = MakeTag("Proj");
constexpr Tag kWindowState = MakeTag("WnSt");
constexpr Tag kSettings = MakeTag("Sett");
constexpr Tag kEnd = 0;

constexpr std::uint32_t kHeaderSize = 20;
constexpr std::uint32_t kWindowStateVersion = 2;
constexpr std::uint32_t kWindowStateSize = 108;

struct ChunkHeader {
    Tag owner = kEnd;
    Tag tag = kEnd;
    std::uint32_t version = 0;
    std::uint32_t size = 0;

    bool Is(Tag wantedOwner, Tag wantedTag) const
    {
        return owner == wantedOwner && tag == wantedTag && version == 0;
    }
};

ChunkHeader ReadHeaderBehindOwner(CStream& file, Tag owner)
{
    ChunkHeader header;
    header.owner = owner;
    header.tag = file.ReadTag();
    file.ReadInt32(); // the id, which nobody uses
    header.version = file.ReadUInt32();
    header.size = file.ReadUInt32();
    return header;
}

void WriteHeader(CStream& file, Tag owner, Tag tag, std::uint64_t size)
{
    file.WriteTag(owner);
    file.WriteTag(tag);
    file.WriteInt32(0);
    file.WriteUInt32(0);
    file.WriteUInt32(static_cast<std::uint32_t>(size));
}

void ReadWindowState(CStream& file, WindowState& window)
{
    const std::uint32_t version = file.ReadUInt32();
    const std::uint32_t size = file.ReadUInt32();
    if (version != kWindowStateVersion) {
        file.SkipRead(size);
        return;
    }
    WindowState read;
    VisitWindowStateFields(
        read, [&]<class Field>(Field& field, const char*) { field = file.ReadValue<Field>(); });
    window = read;
}

void WriteWindowState(CStream& file, const WindowState& window)
{
    file.WriteUInt32(kWindowStateVersion);
    file.WriteUInt32(kWindowStateSize);
    VisitWindowStateFields(window, [&]<class Field>(const Field& field, const char*) {
        file.WriteValue<Field>(field);
    });
}

template <class WritePayload>
void WriteChunk(CContainer& file, Tag owner, Tag tag, WritePayload writePayload)
{
    CMemoryContainer payload(kSettingsGrowth);
    payload.SetSwapped(file.IsSwapped());
    writePayload(payload);
    WriteHeader(file, owner, tag, payload.GetSize());
    file.Write(payload.Bytes().data(), payload.Bytes().size());
}

// Reads the first tag and turns the stream to the file's byte order.
bool FindByteOrder(CStream& file)
{
    const Tag first = file.ReadTag();
    if (first == kKestoSwapped)
        file.SetSwapped(!file.IsSwapped());
    return first == kKesto || first == kKestoSwapped;
}

} // namespace

// Each chunk is found by the sizes of those before it, so that a reader may leave a part unread and
// chunks of later versions are passed over.
void SettingsFileLoad(PluginSettings& settings, CContainer& file)
{
    file.Seek(0);
    if (file.GetSize() <= kHeaderSize || !FindByteOrder(file))
        return;
    const ChunkHeader whole = ReadHeaderBehindOwner(file, kKesto);
    if (!whole.Is(kKesto, kProject) || whole.size <= sizeof kEnd)
        return;
    std::uint64_t next = kHeaderSize;
    for (Tag owner = file.ReadTag(); owner != kEnd; owner = file.ReadTag()) {
        const ChunkHeader chunk = ReadHeaderBehindOwner(file, owner);
        next += std::uint64_t{chunk.size} + kHeaderSize;
        if (chunk.Is(kKesto, kWindowState))
            ReadWindowState(file, settings.window);
        else if (chunk.Is(kProject, kSettings))
            settings.project->Read(file, chunk.size);
        file.Seek(next);
    }
}

void SettingsFileSave(const PluginSettings& settings, CContainer& file)
{
    file.SkipWrite(kHeaderSize);
    WriteChunk(file, kKesto, kWindowState,
               [&](CStream& payload) { WriteWindowState(payload, settings.window); });
    WriteChunk(file, kProject, kSettings,
               [&](CStream& payload) { settings.project->Write(payload); });
    file.WriteTag(kEnd);
    file.Seek(0);
    WriteHeader(file, kKesto, kProject, file.GetSize() - kHeaderSize);
}

} // namespace Kesto
