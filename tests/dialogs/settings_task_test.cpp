#include "dialogs/settings/settings_dialog.h"
#include "dialogs/settings/task.h"
#include "support/testing.h"
#include "view/process/process.h"

using namespace Kesto;
using namespace Project;

namespace {

struct Level : PSettings {
    explicit Level(int level) : fLevel(level) {}
    int fLevel;
};

struct Control : CMessenger {
    explicit Control(CMessenger* parent) : CMessenger(parent, {}, kCanTarget | kCanBullseye) {}
    bool BecomeBullseye(bool force) override
    {
        EXPECT_FALSE(force);
        return CMessenger::BecomeBullseye(force);
    }
};

class Plugin : public CProcess, public PSettingsOwner, public PSettingsDialog {
public:
    std::unique_ptr<PSettings>& CurrentSettings() override { return fSettings; }
    PSettingsDialog* CurrentDialog() override { return fDialog ? this : nullptr; }
    void SetValuesFromSettings(bool send) override
    {
        EXPECT_FALSE(send);
        fShown = Current();
    }
    CMessenger* FocusOfControl(CObjID id) override
    {
        return id == CObjID("Test/Control") ? &fControl : nullptr;
    }
    CMessenger* PreviewMessenger() override { return fHasPreview ? &fPreview : nullptr; }
    CMessenger& DialogMessenger() override { return fWindow; }

    int Current() const { return static_cast<const Level&>(*fSettings).fLevel; }

    std::unique_ptr<PSettings> fSettings = std::make_unique<Level>(1);
    bool fDialog = true;
    bool fHasPreview = true;
    int fShown = 0;
    Control fWindow{nullptr}, fControl{&fWindow}, fPreview{&fWindow};
};

std::unique_ptr<PSettingsTask> Change(int level, const char* control)
{
    return std::make_unique<PSettingsTask>(std::make_unique<Level>(level), CObjID(control), false);
}

} // namespace

TEST(SettingsTask, DoingAndUndoingExchangeTheSettingsAndMoveTheFocus)
{
    Plugin plugin;
    PTaskStack stack;
    stack.Do(Change(2, "Test/Control"));
    EXPECT_EQ(plugin.fShown, 2);
    EXPECT_TRUE(plugin.fControl.IsBullseye());
    CText name;
    EXPECT_TRUE(stack.GetUndoName(name));
    EXPECT_EQ(name, "Undo Filter Setting");

    stack.Do(Change(3, "Test/Elsewhere"));
    EXPECT_TRUE(plugin.fPreview.IsBullseye());
    plugin.fHasPreview = false;
    stack.Undo();
    EXPECT_EQ(plugin.fShown, 2);
    EXPECT_TRUE(plugin.fWindow.IsBullseye());
    plugin.fControl.SetCanTarget(false);
    plugin.fHasPreview = true;
    stack.Undo();
    EXPECT_EQ(plugin.fShown, 1);
    EXPECT_TRUE(plugin.fPreview.IsBullseye());
    plugin.fDialog = false;
    stack.Redo();
    EXPECT_EQ(plugin.Current(), 2);
    EXPECT_EQ(plugin.fShown, 1) << "without a dialog nobody is told";
}

TEST(SettingsTask, WithoutAPluginNothingIsExchanged)
{
    CProcess plain;
    PTaskStack stack;
    EXPECT_THROW(stack.Do(Change(2, "Test/Control")), std::logic_error);
    EXPECT_FALSE(stack.CanUndo());
    EXPECT_THROW(PSettingsTask(nullptr, {}, true), std::invalid_argument);
    std::uint32_t limit = 0;
    EXPECT_TRUE(stack.GetLimit(limit));
    EXPECT_EQ(limit, 100U);
}
