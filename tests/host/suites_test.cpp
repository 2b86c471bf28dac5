// The suites that the host serves by name, and what it makes of a module's descriptors.
#include "driver/basic_suite.h"
#include "lumograph/lumograph.h"
#include "suites/descriptors.h"
#include "suites/string_ids.h"
#include "suites/ui_hooks.h"
#include "support/testing.h"

#include <nlohmann/json.hpp>

namespace Host {
namespace {

uint32_t Key(const char* name)
{
    uint32_t key = 0;
    EXPECT_EQ(StringIdSuite()->KeyOf(name, &key), kHostNoError);
    return key;
}

TEST(Suites, AreFoundByNameAndVersionAndCounted)
{
    const struct {
        const char* name;
        int32_t version;
        bool there;
    } rows[] = {
        {kHostPropertySuiteName, 1, true},
        {kHostBufferSuiteName, 1, true},
        {kHostBufferSuiteName, 2, false},
        {kHostUIHooksSuiteName, 4, true},
        {kHostUIHooksSuiteName, 3, false},
        {kHostDescriptorSuiteName, 5, true},
        {kHostListSuiteName, 3, true},
        {kHostStringIdSuiteName, 3, true},
        {kHostHelpSuiteName, 1, true},
        {kHostHelpSuiteName, 2, true},
        {kHostUtilitiesSuiteName, 1, true},
        {kHostPaletteSuiteName, 1, true},
        {"Orlen Lanterns Suite", 1, false},
        {"", 1, false},
        {nullptr, 1, false},
    };
    const HostSuiteTable& host = *BasicSuite()->suites;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name != nullptr ? row.name : "no name");
        const void* table = nullptr;
        EXPECT_EQ(host.AcquireSuite(row.name, row.version, &table) == kHostNoError, row.there);
        EXPECT_EQ(table != nullptr, row.there);
        EXPECT_EQ(AcquiredSuites(), row.there ? 1 : 0);
        EXPECT_EQ(host.ReleaseSuite(row.name, row.version) == kHostNoError, row.there);
        EXPECT_NE(host.ReleaseSuite(row.name, row.version), kHostNoError);
    }
}

TEST(Descriptors, HoldEachKindOfValueUnderItsName)
{
    const HostDescriptorSuite& suite = *DescriptorSuite();
    HostDescriptor window = nullptr, bounds = nullptr, view = nullptr;
    HostList views = nullptr;
    suite.Make(&window), suite.Make(&bounds), suite.Make(&view), ListSuite()->Make(&views);
    for (const auto& [name, value] : {std::pair{"left", 1}, {"top", -2}, {"right", 3}})
        suite.PutInteger(bounds, Key(name), value);
    suite.PutString(window, Key("filter"), "a name");
    suite.PutObject(window, Key("bounds"), Key("rectangle"), bounds);
    suite.PutBoolean(window, LUMOGRAPH_KEY('V', 's', 'b', 'l'), 2);
    suite.PutFloat(window, Key("floatValue"), 0.5);
    suite.PutString(view, LUMOGRAPH_KEY('N', 'm', ' ', ' '), "OK");
    ListSuite()->Append(views, LUMOGRAPH_KEY('n', 'u', 'l', 'l'), view);
    suite.PutList(window, Key("subViews"), views);
    suite.PutString(window, Key("filter"), "another");
    EXPECT_EQ(JsonOf(window).dump(),
              R"({"filter":"another","bounds":[1,-2,3],"Vsbl":true,"floatValue":0.5,)"
              R"("subViews":[{"Nm  ":"OK"}]})");
    EXPECT_EQ(LooseDescriptors(), 1U) << "the others belong to the window";
    EXPECT_EQ(suite.Free(window), kHostNoError);
    EXPECT_EQ(LooseDescriptors(), 0U);
}

TEST(Descriptors, RefuseWhatIsGivenAwayFreedOrNothing)
{
    const HostDescriptorSuite& suite = *DescriptorSuite();
    HostDescriptor outer = nullptr, inner = nullptr;
    suite.Make(&outer), suite.Make(&inner);
    EXPECT_NE(suite.PutObject(outer, 1, 1, outer), kHostNoError) << "into itself";
    EXPECT_EQ(suite.PutObject(outer, 1, 1, inner), kHostNoError);
    EXPECT_NE(suite.PutInteger(inner, 1, 1), kHostNoError) << "given away";
    EXPECT_NE(suite.PutObject(outer, 2, 1, inner), kHostNoError) << "given away";
    EXPECT_NE(suite.Free(inner), kHostNoError) << "given away";
    EXPECT_NE(suite.PutString(outer, 1, nullptr), kHostNoError);
    EXPECT_NE(suite.PutList(outer, 1, nullptr), kHostNoError);
    EXPECT_NE(suite.Make(nullptr), kHostNoError);
    EXPECT_EQ(suite.Free(nullptr), kHostNoError);
    EXPECT_EQ(suite.Free(outer), kHostNoError);
    EXPECT_NE(suite.Free(outer), kHostNoError) << "freed";
    EXPECT_TRUE(JsonOf(outer).is_null());
}

TEST(Hooks, AreRegisteredAsTheProtocolSaysAndTakenBack)
{
    const HostUIHooksSuite4& suite = *UIHooksSuite();
    const HostViewInfoCallback callback = [](void*, int32_t, HostDescriptor*, uint32_t) {
        return uint8_t{0};
    };
    EXPECT_NE(suite.RegisterViewInfo(callback, 1, 3, 6), kHostNoError);
    EXPECT_NE(suite.RegisterViewInfo(nullptr, 1, 4, 6), kHostNoError);
    EXPECT_EQ(suite.RegisterViewInfo(callback, 1, 4, 6), kHostNoError);
    EXPECT_EQ(ViewInfoHooks(), (std::vector<ViewInfoHook>{{callback, 6}}));
    EXPECT_NE(suite.UnregisterViewInfo(callback, 1, 4, 7), kHostNoError);
    EXPECT_EQ(suite.UnregisterViewInfo(callback, 1, 4, 6), kHostNoError);
    EXPECT_TRUE(ViewInfoHooks().empty());
    HostInputEvent event{};
    EXPECT_EQ(suite.TakeTurn(&event), 0);
    const HostTurn first([](HostInputEvent& given) { return given.message = 7, true; });
    {
        const HostTurn second([](HostInputEvent&) { return false; });
        EXPECT_EQ(suite.TakeTurn(&event), 0);
        EXPECT_TRUE(second.TakeOuter(event));
    }
    EXPECT_EQ(suite.TakeTurn(&event), 1);
    EXPECT_EQ(event.message, 7U);
}

} // namespace
} // namespace Host
