// The module as the build delivers it: what the entries without a class answer, and what its
// property list declares.
#include "lumograph/lumograph.h"
#include "module_library.h"

#include <nlohmann/json.hpp>

using Json = nlohmann::json;

TEST(BuiltModule, RefusesWhatNeedsAnObjectOfAProjectWithoutAClass)
{
    static const std::set<int> Format{0, 1, 2, 5, 6, 13, 17, 20, 24, 25, 27}, Filter{0, 1, 2, 3},
        Export{0, 1, 4};
    const struct {
        const char* name;
        const std::set<int>& refused;
    } entries[] = {
#define SIDECAR_ENTRY(index, entry, group) {#entry, group},
#include "module/entries.inc"
#include "support/testing.h"
#undef SIDECAR_ENTRY
    };
    const Host::ModuleLibrary module(SIDECAR_MODULE);
    for (const auto& [name, refused] : entries) {
        const auto entry = module.FindFunction<HostEntry>(name);
        ASSERT_NE(entry, nullptr) << name;
        if (name == std::string("EntryElectricImage"))
            continue;
        for (const int16_t selector :
             {-1, 0, 1, 2, 3, 4, 5, 6, 8, 13, 17, 18, 20, 24, 25, 27, 35, 40, 41, 99}) {
            HostExportRecord record{}; // large enough for each kind; it has no suites
            intptr_t data = 0;
            int16_t result = 99;
            entry(selector, &record, &data, &result);
            EXPECT_EQ(result, refused.contains(selector) ? 1 : 0) << name << " " << selector;
            entry(selector, nullptr, nullptr, nullptr);
        }
    }
}

TEST(BuiltModule, CarriesItsStringFileAndDeclaresTheFormatInItsPropertyList)
{
    const Host::ModuleLibrary module(SIDECAR_MODULE);
    EXPECT_TRUE(module.ResourceBytes("JSON", "NO_SUCH_THING").empty());
    EXPECT_TRUE(module.ResourceBytes("HTML", "JSON_TAGL").empty());
    EXPECT_THAT(module.ResourceBytes("TSTR", "PROJECTSTRINGS.TXT"),
                testing::ElementsAre(std::byte{0xFF}, std::byte{0xFE}))
        << "a string file without texts";
    const auto bytes = module.ResourceBytes(kHostPropertyListType, kHostPropertyListName);
    const auto* const text = reinterpret_cast<const char*>(bytes.data());
    EXPECT_EQ(Json::parse(text, text + bytes.size()), Json::parse(R"({ "Tagls": [ {
        "Name": "ElectricImage",
        "TagStringName": "$$$/OrlenPlugin/TAGLInfo/PluginName/ElectricImage=ElectricImage",
        "NoAboutBox": true, "Kind": "Format", "Version": 1, "SubVersion": 0,
        "ComponentVersionShortNum": 26, "ComponentVersionMinorRevNum": 0,
        "ComponentVersionDotRevNum": 0,
        "ComponentName": "ElectricImage",
        "CodeMacARM64": "EntryElectricImage", "CodeMacIntel64": "EntryElectricImage",
        "CodeEntryPointWin64": "EntryElectricImage",
        "SupportsPOSIXIO": true, "MonitorScalingAware": true,
        "SupportedModes": { "GrayScale": true, "IndexedColor": true, "RGBColor": true,
            "Bitmap": false, "CMYKColor": false, "HSLColor": false, "HSBColor": false,
            "Multichannel": false, "Duotone": false, "LABColor": false },
        "FmtFileType": { "Type": "EIDI", "Creator": "EIAD" },
        "ReadTypes": [ { "Type": "EIDI", "Creator": "    " } ],
        "WriteTypes": [ { "Type": "EIDI", "Creator": "    " } ],
        "ReadExtensions": [ "IMG ", "EI  ", "EIZ ", "EIZZ" ],
        "WriteExtensions": [ "IMG " ],
        "FormatFlags": { "SavesImageResources": false, "CanRead": true, "CanWrite": true,
            "CanWriteIfRead": false, "CanWriteTransparency": false, "CanCreateThumbnail": true },
        "FormatMaxSize": { "Vertical": 30000, "Horizontal": 30000 },
        "LoadUnload": true, "ResourceThreadSafe": true,
        "FormatMaxChannels": [ 1, 2, 2, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 ] } ] })"));
}
