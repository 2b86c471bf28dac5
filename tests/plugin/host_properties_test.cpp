// What the module learns of the host's user interface.
#include "support/module_test.h"

#include "plugin/plugin_registry.h"
#include "view/ui_scale.h"

namespace Testing {
namespace {

class HostProperties : public ModuleTest {
protected:
    Kesto::CLumographFormat& Plugin() { return *Kesto::FindFormatPlugin(Kesto::kProject_EntryElectricImage); }

    // Has a living object read the properties again.
    void Tell(uint32_t key, intptr_t value)
    {
        host.properties[key] = value;
        host.Call(kFormatLoad);
    }
};

TEST_F(HostProperties, ValuesBecomeFields)
{
    for (const auto& [value, level] : {std::pair{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 2}, {-1, 2}, {99, 2}}) {
        Tell(kPropertyUiBrightness, value);
        EXPECT_EQ(static_cast<int>(Plugin().uiBrightness), level) << value;
    }
    for (const int value : {0, 1, 2, 3}) {
        Tell(kPropertyHighContrast, value);
        EXPECT_EQ(static_cast<bool>(Plugin().highContrast), value == 2) << value;
        Tell(kPropertyLargeTabs, value);
        EXPECT_EQ(static_cast<bool>(Plugin().largeTabs), value == 1) << value;
    }
    for (const auto& [value, scale] : {std::pair{0, 1.0F}, {100, 1.0F}, {150, 1.5F}, {225, 2.25F}}) {
        Tell(kPropertyUiScale, value);
        EXPECT_EQ(Plugin().uiScale, scale) << value;
    }
}

TEST_F(HostProperties, AFailedReadLeavesTheField)
{
    Tell(kPropertyUiScale, 150);
    Tell(kPropertyUiBrightness, 3);
    host.properties.clear();
    host.Call(kFormatLoad);
    EXPECT_EQ(Plugin().uiScale, 1.5F);
    EXPECT_EQ(static_cast<int>(Plugin().uiBrightness), 3);
    host.properties[kPropertyUiScale] = 300;
    host.record.basicSuite = nullptr;
    host.Call(kFormatLoad);
    EXPECT_EQ(Plugin().uiScale, 1.5F);
    static const HostBasicSuite bare{nullptr, nullptr};
    host.record.basicSuite = &bare;
    host.Call(kFormatLoad);
    EXPECT_EQ(Plugin().uiScale, 1.5F);
}

TEST_F(HostProperties, TheScaleModeIsSetOncePerObject)
{
    const auto modeFor = [&](std::optional<int> value) {
        ScriptableHost each;
        each.properties.erase(kPropertyHighDpi);
        if (value)
            each.properties[kPropertyHighDpi] = *value;
        Kesto::SetUiScaleMode(Kesto::UiScaleMode{77});
        each.Call(kFormatLoad);
        const auto mode = static_cast<int>(Kesto::GetUiScaleMode());
        each.properties[kPropertyHighDpi] = 0;
        each.Call(kFormatLoad);
        EXPECT_EQ(static_cast<int>(Kesto::GetUiScaleMode()), mode) << "read again by the same object";
        ExpectClean(each);
        return mode;
    };
    EXPECT_EQ(modeFor(2), 2);
    EXPECT_EQ(modeFor(1), 0);
    EXPECT_EQ(modeFor(0), 1);
    EXPECT_EQ(modeFor(7), 1);
    EXPECT_EQ(modeFor(std::nullopt), 0);
}

} // namespace
} // namespace Testing
