// The module as the build delivers it: what the entries without a class answer, and what its
// property list declares.
#include "lumograph/lumograph.h"
#include "module_library.h"
#include "support/testing.h"

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
    std::ifstream declared(SIDECAR_SOURCE_DIR "/resources/tagl.json");
    EXPECT_EQ(Json::parse(text, text + bytes.size()), Json::parse(declared));
}
