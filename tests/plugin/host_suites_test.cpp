// What the module takes from the host's suites: memory for tiles, and the facts of the user
// interface.
#include "support/module_test.h"

#include "module/projects.h"
#include "plugin/format/plugin_registry.h"
#include "plugin/suites/buffer_suite_allocator.h"
#include "view/process/ui_scale.h"

using namespace Testing;

namespace {

using BufferSuiteAllocator = ModuleTest;

class HostProperties : public ModuleTest {
protected:
    // The plug-in after its living object has read the properties again.
    Kesto::CLumographFormat& Told(std::map<uint32_t, intptr_t> properties)
    {
        host.properties = std::move(properties);
        host.Call(kFormatLoad);
        return *Kesto::FindFormatPlugin(Kesto::kProject_EntryElectricImage);
    }
};

} // namespace

TEST_F(BufferSuiteAllocator, KeepsBuffersLockedUntilTheyAreFreedOrItEnds)
{
    {
        Kesto::CBufferSuiteAllocator allocator(&host.buffers);
        void* const first = allocator.Allocate(100);
        EXPECT_NE(allocator.Allocate(200), nullptr);
        EXPECT_EQ(host.LockedBuffers(), 2U);
        for (void* memory :
             {first, first, static_cast<void*>(nullptr)}) { // only the first is of effect
            SCOPED_TRACE(memory);
            allocator.Free(memory);
            EXPECT_EQ(host.LockedBuffers(), 1U);
        }
    }
    EXPECT_EQ(host.Buffers(), 0U);
    EXPECT_EQ(host.Count(Kind::kUnlock), 2);
}

TEST_F(BufferSuiteAllocator, AnswersNullForWhatTheHostDoesNotGive)
{
    Kesto::CBufferSuiteAllocator allocator(&host.buffers);
    EXPECT_EQ(allocator.Allocate(std::size_t{1} << 31), nullptr);
    EXPECT_EQ(host.Count(Kind::kAllocate), 0);
    for (const Kind refused : {Kind::kAllocate, Kind::kLock}) {
        SCOPED_TRACE(static_cast<int>(refused));
        host.ForgetCalls();
        host.fault = Fault{refused, 0};
        EXPECT_EQ(allocator.Allocate(100), nullptr);
        EXPECT_EQ(host.Buffers(), 0U);
    }
    EXPECT_EQ(Kesto::CBufferSuiteAllocator(nullptr).Allocate(100), nullptr);
}

TEST_F(HostProperties, ValuesBecomeFields)
{
    for (const auto& [value, level] :
         {std::pair{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 2}, {-1, 2}, {99, 2}})
        EXPECT_EQ(Told({{kPropertyUiBrightness, value}}).uiBrightness, level) << value;
    for (const int value : {0, 1, 2, 3}) {
        const auto& plugin = Told({{kPropertyHighContrast, value}, {kPropertyLargeTabs, value}});
        EXPECT_EQ(plugin.highContrast, value == 2) << value;
        EXPECT_EQ(plugin.largeTabs, value == 1) << value;
    }
    for (const auto& [value, scale] : {std::pair{0, 1.0F}, {100, 1.0F}, {150, 1.5F}, {225, 2.25F}})
        EXPECT_EQ(Told({{kPropertyUiScale, value}}).uiScale, scale) << value;
}

TEST_F(HostProperties, AFailedReadLeavesTheField)
{
    Told({{kPropertyUiScale, 150}, {kPropertyUiBrightness, 3}});
    EXPECT_EQ(Told({}).uiBrightness, 3);
    static const HostBasicSuite bare{nullptr, nullptr};
    for (const HostBasicSuite* suite : {static_cast<const HostBasicSuite*>(nullptr), &bare}) {
        SCOPED_TRACE(suite == nullptr ? "no basic suite" : "one without suites");
        host.record.basicSuite = suite;
        EXPECT_EQ(Told({{kPropertyUiScale, 300}}).uiScale, 1.5F);
    }
}

TEST_F(HostProperties, TheScaleModeIsSetOncePerObject)
{
    for (const auto& [value, mode] :
         {std::pair{std::optional<int>(2), 2}, {1, 0}, {0, 1}, {7, 1}, {std::nullopt, 0}}) {
        ScriptableHost each;
        each.properties.erase(kPropertyHighDpi);
        if (value)
            each.properties[kPropertyHighDpi] = *value;
        Kesto::SetUiScaleMode(Kesto::UiScaleMode{77});
        each.Call(kFormatLoad);
        EXPECT_EQ(static_cast<int>(Kesto::GetUiScaleMode()), mode);
        each.properties[kPropertyHighDpi] = 2 - mode;
        each.Call(kFormatLoad);
        EXPECT_EQ(static_cast<int>(Kesto::GetUiScaleMode()), mode)
            << "read again by the same object";
        ExpectClean(each);
    }
}
