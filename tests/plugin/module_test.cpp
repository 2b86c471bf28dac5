// The module as the build delivers it: what it exports, and what its property list declares.
#include "plugin/entry_names.h"

#include "lumograph/lumograph.h"
#include "module_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

namespace {

using Json = nlohmann::json;
using Names = std::set<std::string>;

// The bytes of a library file, read at offsets that its own tables give.
class LibraryFile {
public:
    explicit LibraryFile(const char* path)
    {
        std::ifstream in(path, std::ios::binary);
        fBytes.assign(std::istreambuf_iterator<char>(in), {});
    }

    template <class T>
    T At(uint64_t offset) const
    {
        T value{};
        if (offset + sizeof value <= fBytes.size())
            std::memcpy(&value, fBytes.data() + offset, sizeof value);
        return value;
    }
    std::string TextAt(uint64_t offset) const { return offset < fBytes.size() ? fBytes.c_str() + offset : ""; }

    // The names that the file exports: defined global symbols of an ELF file, the export directory of a PE file.
    Names Exports() const
    {
        return TextAt(0).starts_with("\x7F"
                                     "ELF")
                   ? ElfExports()
                   : PeExports();
    }

private:
    Names ElfExports() const
    {
        constexpr uint32_t kDynamicSymbols = 11;
        Names names;
        const auto sections = At<uint64_t>(0x28);
        for (uint64_t i = 0; i < At<uint16_t>(0x3C); ++i) {
            const uint64_t section = sections + i * 64;
            if (At<uint32_t>(section + 4) != kDynamicSymbols)
                continue;
            const auto texts = At<uint64_t>(sections + uint64_t{At<uint32_t>(section + 40)} * 64 + 24);
            const auto first = At<uint64_t>(section + 24);
            for (uint64_t symbol = first; symbol < first + At<uint64_t>(section + 32); symbol += 24)
                if (At<uint16_t>(symbol + 6) != 0 && At<uint8_t>(symbol + 4) >> 4 != 0)
                    names.insert(TextAt(texts + At<uint32_t>(symbol)));
        }
        return names;
    }

    Names PeExports() const
    {
        Names names;
        const uint64_t header = At<uint32_t>(0x3C);
        const uint64_t directory = OffsetOf(header, At<uint32_t>(header + 24 + 112));
        const uint64_t table = OffsetOf(header, At<uint32_t>(directory + 32));
        for (uint64_t i = 0; i < At<uint32_t>(directory + 24); ++i)
            names.insert(TextAt(OffsetOf(header, At<uint32_t>(table + 4 * i))));
        return names;
    }

    // Where an address relative to the loaded image lies in the file.
    uint64_t OffsetOf(uint64_t header, uint32_t address) const
    {
        const uint64_t sections = header + 24 + At<uint16_t>(header + 20);
        for (uint64_t section = sections; section < sections + 40 * uint64_t{At<uint16_t>(header + 6)}; section += 40) {
            const auto begin = At<uint32_t>(section + 12);
            if (address >= begin && address < begin + At<uint32_t>(section + 16))
                return address - begin + At<uint32_t>(section + 20);
        }
        return UINT32_MAX;
    }

    std::string fBytes;
};

#define ENTRY_NAME(name) #name,
const Names kEntries = {"EntryElectricImage",
                        FOR_EACH_OTHER_FORMAT(ENTRY_NAME) FOR_EACH_FILTER(ENTRY_NAME) FOR_EACH_EXPORT(ENTRY_NAME)};

TEST(BuiltModule, ExportsItsEntriesAndNothingElse)
{
    ASSERT_EQ(kEntries.size(), 31U);
    Names exported = LibraryFile(SIDECAR_MODULE).Exports();
    const bool offersResources = exported.erase("ModuleResource") != 0;
    EXPECT_EQ(offersResources, std::string(SIDECAR_MODULE).ends_with(".so")) << "for want of a resource section";
    EXPECT_EQ(exported, kEntries);
}

TEST(BuiltModule, AnswersThroughEveryEntry)
{
    const Host::ModuleLibrary module(SIDECAR_MODULE);
    for (const std::string& name : kEntries) {
        const auto entry = module.FindFunction<HostEntry>(name.c_str());
        ASSERT_NE(entry, nullptr) << name;
        int16_t result = 99;
        entry(-1, nullptr, nullptr, &result);
        EXPECT_EQ(result, 0) << name;
    }
    EXPECT_TRUE(module.ResourceBytes("JSON", "NO_SUCH_THING").empty());
    EXPECT_TRUE(module.ResourceBytes("HTML", "JSON_TAGL").empty());
}

TEST(BuiltModule, DeclaresTheFormatInItsPropertyList)
{
    const Host::ModuleLibrary module(SIDECAR_MODULE);
    const auto bytes = module.ResourceBytes(kHostPropertyListType, kHostPropertyListName);
    const auto* const text = reinterpret_cast<const char*>(bytes.data());
    const Json list = Json::parse(text, text + bytes.size());
    ASSERT_EQ(list.size(), 1U);
    ASSERT_EQ(list.at("Tagls").size(), 1U);
    Json tagl = list["Tagls"][0];
    std::vector<int> sizes;
    const Json largest = tagl.at("FormatMaxSize");
    for (const Json& size : largest)
        sizes.push_back(size.get<int>());
    EXPECT_EQ(sizes, (std::vector<int>{30000, 30000}));
    tagl.erase("FormatMaxSize");
    EXPECT_EQ(tagl, Json::parse(R"({
        "Name": "ElectricImage",
        "TagStringName": "$$$/OrlenPlugin/TAGLInfo/PluginName/ElectricImage=ElectricImage",
        "NoAboutBox": true, "Kind": "Format", "Version": 1, "SubVersion": 0,
        "ComponentVersionShortNum": 26, "ComponentVersionMinorRevNum": 0, "ComponentVersionDotRevNum": 0,
        "ComponentName": "ElectricImage",
        "CodeMacARM64": "EntryElectricImage", "CodeMacIntel64": "EntryElectricImage",
        "CodeEntryPointWin64": "EntryElectricImage",
        "SupportsPOSIXIO": true, "MonitorScalingAware": true,
        "SupportedModes": { "GrayScale": true, "IndexedColor": true, "RGBColor": true, "Bitmap": false,
            "CMYKColor": false, "HSLColor": false, "HSBColor": false, "Multichannel": false, "Duotone": false,
            "LABColor": false },
        "FmtFileType": { "Type": "EIDI", "Creator": "EIAD" },
        "ReadTypes": [ { "Type": "EIDI", "Creator": "    " } ],
        "WriteTypes": [ { "Type": "EIDI", "Creator": "    " } ],
        "ReadExtensions": [ "IMG ", "EI  ", "EIZ ", "EIZZ" ],
        "WriteExtensions": [ "IMG " ],
        "FormatFlags": { "SavesImageResources": false, "CanRead": true, "CanWrite": true, "CanWriteIfRead": false,
            "CanWriteTransparency": false, "CanCreateThumbnail": true },
        "LoadUnload": true, "ResourceThreadSafe": true,
        "FormatMaxChannels": [ 1, 2, 2, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 ] })"));
}

} // namespace
