// The frame of all plug-in dialogs, built from a layout and used by its keys and buttons.
#include "controls/buttons/custom_button.h"
#include "dialogs/plugin_dialog/dialog_builder.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/plugin_dialog/stored_placement.h"
#include "foundation/settings/plugin_settings.h"
#include "layout/build/layout_owner.h"
#include "support/testing.h"
#include "view/messages/message_event.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"

namespace {

using namespace Kesto;
using namespace Project;

struct Preview : CPane, PPreview {
    using CPane::CPane;
    void SetDialog(PDialog&) override { said += "dialog "; }
    void StartPreview() override { said += "start "; }
    double GetScale() const override { return scale; }
    void SetScale(double wanted) override { scale = wanted; }
    void ZoomIn(int flag) override { said += flag == 0 ? "in " : "? "; }
    void ZoomOut(int flag) override { said += flag == 0 ? "out " : "? "; }
    double scale = 0.5;
    std::string said;
};

// A field that lets the focus go or not.
struct Field : CPane {
    Field() : CPane(Rect{0, 0, 10, 10}, CObjID("Project/Dialog/Setting1"), kView_TabStop) {}
    bool CanSurrender(bool force) override { return force || lets; }
    bool lets = true;
};

struct Dialog : PDialog {
    using PDialog::PDialog;
    void OnReset() override { said += "reset "; }
    void OnDefault() override { said += "default "; }
    std::string said;
};

class PluginDialog : public ::testing::Test {
protected:
    PluginDialog()
    {
        RegisterDialogClasses();
        LoadLayoutFromText(fOwner, "PDialog(placement: place_row, window_title: 'A blur') {"
                                   "CPushButton(view_id: 'Project/Dialog/OKButton');"
                                   "CPushButton(view_id: 'Project/Dialog/CancelButton');}");
        fWindow = fOwner.TakeWindow();
    }

    PDialog& Frame() { return dynamic_cast<PDialog&>(*fWindow); }
    std::string Label(CObjID id)
    {
        return dynamic_cast<CCustomButton&>(*fWindow->FindChild(id, true)).GetLabel().CStr();
    }
    void Press(CObjID id, std::uint32_t modifiers = 0)
    {
        CCommandMessage command(nullptr, id);
        command.fModifiers = modifiers;
        fWindow->Send(command);
    }

    CProcess fProcess;
    LayoutOwner fOwner;
    std::unique_ptr<CWindow> fWindow;
};

} // namespace

TEST_F(PluginDialog, CancelSaysAndDoesWhatTheModifiersMean)
{
    constexpr std::uint32_t kAlt = CMessage::kModifier_Alt;
    constexpr std::uint32_t kControl = CMessage::kModifier_Control;
    const struct {
        const char* words;
        std::uint32_t modifiers;
        bool resetAllowed;
        const char *label, *said;
        bool ends;
    } rows[] = {
        {"no keys", 0, true, "Cancel", "", true},
        {"Alt", kAlt, true, "Reset", "reset ", false},
        {"Control", kControl, true, "Default", "default ", false},
        {"both", kAlt | kControl, true, "Reset", "reset ", false},
        {"Alt, and resetting isn't allowed", kAlt, false, "Cancel", "", true},
        {"Control, and resetting isn't allowed", kControl, false, "Cancel", "", true},
        {"a key that means nothing here", CMessage::kModifier_Shift, true, "Cancel", "", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        LayoutOwner owner;
        const DialogMaker make = [](const CWindowPlan& plan) {
            return std::make_unique<Dialog>(plan);
        };
        const auto dialog = LoadDialog("ELECTRICIMAGE.VEX", make);
        dialog->SetResetAllowed(row.resetAllowed);
        dialog->Start();
        CCommandMessage press(nullptr, kDialog_CancelButton);
        press.fModifiers = row.modifiers;
        dialog->Send(press);
        auto* const button =
            dynamic_cast<CCustomButton*>(dialog->FindChild(kDialog_CancelButton, true));
        EXPECT_STREQ(button->GetLabel().CStr(), row.label);
        EXPECT_EQ(dynamic_cast<Dialog&>(*dialog).said, row.said);
        EXPECT_EQ(dialog->IsDone(), row.ends);
    }
}

TEST_F(PluginDialog, EndsAsItsLastButtonSays)
{
    const struct {
        const char* words;
        CObjID id;
        bool accepted;
        DialogEnd end;
    } rows[] = {
        {"OK", kDialog_OKButton, true, DialogEnd::kAccepted},
        {"Cancel", kDialog_CancelButton, false, DialogEnd::kCancelled},
        {"the close box", kWindow_CloseBox, false, DialogEnd::kCancelled},
        {"the toolkit's own OK", kDefault_Ok, true, DialogEnd::kAccepted},
        {"the toolkit's own Cancel", kDefault_Cancel, false, DialogEnd::kCancelled},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        CCommandMessage press(nullptr, row.id);
        CMessageEvent::Post(press, &Frame());
        EXPECT_EQ(Frame().RunModal(), row.accepted);
        EXPECT_EQ(fProcess.LastDialogEnd(), row.end);
    }
}

TEST_F(PluginDialog, ARefusedEndTakesTheAnswerBackButCancelIsNeverRefused)
{
    auto* const field = Frame().AppendChild(std::make_unique<Field>());
    Frame().Start();
    EXPECT_TRUE(field->BecomeBullseye(false));
    field->lets = false;
    for (const CObjID id : {kDialog_OKButton, kWindow_CloseBox}) {
        SCOPED_TRACE(id.Name());
        Press(id);
        bool force = false;
        EXPECT_TRUE(Frame().Poll(force)) << "it goes on";
        EXPECT_FALSE(Frame().IsAccepted());
        EXPECT_EQ(fProcess.LastDialogEnd(), DialogEnd::kNone);
    }
    Press(kDialog_CancelButton);
    bool force = false;
    EXPECT_FALSE(Frame().Poll(force));
    EXPECT_EQ(fProcess.LastDialogEnd(), DialogEnd::kCancelled);
}

TEST_F(PluginDialog, ZoomCommandsGoToThePreviewAndTheTitleSaysTheScale)
{
    const auto title = [this] { return std::string(Frame().GetTitle().CStr()); };
    const auto enabled = [this](CObjID id) {
        CMenuMessage menu(nullptr, id, nullptr, nullptr, 0, true);
        Frame().HandleMenu(menu);
        return menu.fEnable;
    };
    EXPECT_EQ(title(), "A blur") << "without a preview there is no scale";
    Press(ZoomCommand(3));
    EXPECT_FALSE(enabled(ZoomCommand(0)));

    auto* const preview =
        Frame().AppendChild(std::make_unique<Preview>(Rect{0, 0, 50, 50}, kDialog_PreviewPane));
    Frame().Start();
    EXPECT_EQ(preview->said, "dialog start ");
    EXPECT_EQ(title(), "A blur 50%");
    EXPECT_TRUE(enabled(ZoomCommand(13)));
    for (const auto& [index, words] :
         {std::pair{0U, "A blur 6%"}, {3U, "A blur 33%"}, {13U, "A blur 1600%"}}) {
        SCOPED_TRACE(words);
        Press(ZoomCommand(index));
        EXPECT_EQ(title(), words);
    }
    Press(CObjID::OfNumber(ZoomCommand(13).Value() + 1));
    EXPECT_EQ(preview->scale, 16.0) << "a command beyond the list does nothing";
    Press(kCommand_ZoomIn);
    Press(kCommand_ZoomOut);
    EXPECT_EQ(preview->said, "dialog start in out ");
}

TEST(StoredPlacement, GoesBothWaysUnlessNoWindowCanHaveHadIt)
{
    WindowState state = WindowState::FromNothing();
    state.positionX = 12.5, state.userBottom = 7.0, state.monitor = 3, state.slopY = -4;
    EXPECT_EQ(WindowStateOf(PlacementOf(state)), state);
    for (const double odd : {std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::infinity(), -1e300}) {
        SCOPED_TRACE(odd);
        WindowState bad = state;
        bad.sizeX = odd;
        EXPECT_EQ(PlacementOf(bad).positionX, -50.0);
        EXPECT_EQ(PlacementOf(bad).sizeX, 0.0);
    }
}

TEST(LoadDialog, TellsWhenThereIsNone)
{
    CProcess process;
    const DialogMaker none = [](const CWindowPlan&) { return std::unique_ptr<PDialog>(); };
    EXPECT_THROW(LoadDialog("NOWHERE.VEX", none), std::runtime_error);
}
