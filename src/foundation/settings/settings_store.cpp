#include "foundation/settings/settings_store.h"

#include "foundation/base/block.h"
#include "foundation/errors/system_checks.h"
#include "foundation/localization/localize.h"
#include "foundation/settings/settings_locations.h"
#include "foundation/streams/container.h"
#include "foundation/streams/file_port.h"
#include "platform/files/folders.h"
#include "platform/files/user_store.h"

#include <new>
#include <string>

namespace Kesto {
namespace {

// No settings are larger; it keeps a stray file from being taken into memory.
constexpr std::uint64_t kLargestFile = Platform::kUserValueLimit;

std::string LocalizedBytes(CText text)
{
    return std::string(Localize(text).View());
}

bool FillContainer(CContainer& out, std::span<const std::byte> bytes)
{
    out.SetSize(bytes.size());
    out.Seek(0);
    out.Write(bytes.data(), bytes.size());
    out.Seek(0);
    return !bytes.empty();
}

CFile SettingsFile(CSettingsStore& store, const CText& fileName)
{
    CFileSpec spec;
    store.GetSettingsFolder(spec);
    spec.Append(LocalizedBytes(fileName));
    return CFile(spec);
}

void ReadFile(const CFile& file, CBlock& bytes)
{
    std::optional<CFilePort> port = file.OpenIfPresent(FileMode::kRead);
    if (!port)
        return;
    const std::uint64_t size = port->GetLength();
    if (size > kLargestFile)
        throw std::bad_alloc();
    bytes.SetSize(static_cast<std::size_t>(size));
    port->ReadAt(bytes.Data(), bytes.GetSize(), 0);
}

} // namespace

void CSettingsStore::GetSettingsFolder(CFileSpec& out)
{
    std::string path;
    OSThrow(Platform::FindUserDataFolder(path));
    out = CFileSpec(CText(path));
    for (const CText& name : SettingsFolderNames(HostEdition()))
        out.Append(name);
    out.CreateFolder();
}

bool CSettingsStore::ReadSettingsData(const CText& keyPath, const CText& valueName,
                                      const CText& fileName, CContainer& out, bool useRegistry)
{
    if (useRegistry)
        return FillContainer(
            out, Platform::ReadUserValue(LocalizedBytes(keyPath), LocalizedBytes(valueName)));
    CMemoryBlock bytes;
    ReadFile(SettingsFile(*this, fileName), bytes);
    return FillContainer(out, bytes.Bytes());
}

bool CSettingsStore::WriteSettingsData(const CText& keyPath, const CText& valueName,
                                       const CText& fileName, CContainer& in, bool useRegistry)
{
    if (in.GetSize() == 0)
        return false;
    CMemoryBlock bytes;
    bytes.SetSize(static_cast<std::size_t>(in.GetSize()));
    in.ReadAt(bytes.Data(), bytes.GetSize(), 0);
    if (useRegistry)
        OSThrow(Platform::WriteUserValue(LocalizedBytes(keyPath), LocalizedBytes(valueName),
                                         bytes.Bytes()));
    else
        SettingsFile(*this, fileName).ReplaceContents(bytes.Bytes());
    return true;
}

} // namespace Kesto
