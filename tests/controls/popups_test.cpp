// Popups and combo boxes.
#include "controls/control_panel.h"
#include "controls/popups/combo_box.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"
#include "view/test_pump.h"
#include "view/window_parts.h"

using namespace Kesto;

namespace {

const CText kFour("Normal\nMultiply\r\n-\nScreen");

TEST(PopupItems, AreTheLinesOfAText)
{
    const std::vector<SPopupItem> items = PopupItemsOf(kFour);
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[1].label, "Multiply");
    EXPECT_TRUE(items[2].separator);
    EXPECT_TRUE(PopupItemsOf({}).empty());
    EXPECT_TRUE(PopupItemsOf("\r\n\n").empty());
}

TEST(MenuPopup, KeysChooseWhatCanBeChosen)
{
    ControlPanel panel;
    auto& popup = panel.Add<CMenuPopup>("mode", {0, 0, 100, 24}, kView_TabStop);
    ASSERT_TRUE(popup.BecomeBullseye(false));
    EXPECT_TRUE(panel.Key(popup, kKeyCode_Down)) << "no items";
    std::vector<SPopupItem> items = PopupItemsOf("Add\nDarken\nDodge\n-\nScreen\nOff");
    items[1].enabled = false;
    popup.SetItems(items);
    const struct {
        const char* what;
        std::uint32_t key;
        unsigned from, to;
    } rows[] = {
        {"down over one that is disabled", kKeyCode_Down, 0, 2},
        {"down over a separator", kKeyCode_Down, 2, 4},
        {"down at the end", kKeyCode_Down, 5, 5},
        {"up", kKeyCode_Up, 4, 2},
        {"up at the beginning", kKeyCode_Up, 0, 0},
        {"down from none", kKeyCode_Down, CMenuPopup::kNoItem, 0},
        {"home", kKeyCode_Home, 4, 0},
        {"end", kKeyCode_End, 0, 5},
        {"a letter", 'D', 0, 2},
        {"round the end", 'A', 4, 0},
        {"a letter of none", 'X', 4, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        popup.SetChosen(row.from);
        panel.Take();
        EXPECT_TRUE(panel.Key(popup, row.key));
        EXPECT_EQ(popup.GetChosen(), row.to);
        EXPECT_EQ(panel.Take().empty(), row.from == row.to);
    }
    popup.SetChosen(3);
    EXPECT_EQ(popup.GetChosen(), CMenuPopup::kNoItem) << "a separator";
    EXPECT_EQ(popup.GetShownText(), "");
    EXPECT_FALSE(panel.Key(popup, kKeyCode_Return)) << "for the default button";
}

struct Dialog : CDocumentWindow {
    using CDocumentWindow::CDocumentWindow;
    bool HandleValue(CValueMessage& message) override
    {
        message.Describe(log);
        return true;
    }
    std::string log;
};

TEST(ComboBox, TypesAndChooses)
{
    PumpedProcess process;
    Dialog window(DocumentPlan());
    auto* const box = window.AppendChild(
        std::make_unique<CComboBox>(Rect{10, 10, 110, 34}, CObjID("size"), kView_TabStop));
    box->SetItems(PopupItemsOf("100 %\n200 %\n400 %"));
    EXPECT_EQ(box->GetShownText(), "100 %");
    box->SetEditable(true);
    window.Start();
    process.PumpQuiet();
    ASSERT_TRUE(box->Field()->IsBullseye()) << "it takes the focus for the box";
    EXPECT_EQ(box->GetShownText(), "100 %");
    ControlPanel::Key(*box->Field(), kKeyCode_Down);
    EXPECT_EQ(box->GetShownText(), "200 %");
    EXPECT_EQ(std::exchange(window.log, {}), " phase=1 value=1 was=0");
    box->Field()->SelectAll();
    box->Field()->ReplaceSelection("150 %");
    box->Field()->CheckLiveValue();
    EXPECT_EQ(box->GetShownText(), "150 %");
    EXPECT_EQ(box->GetChosen(), CMenuPopup::kNoItem);
    EXPECT_EQ(std::exchange(window.log, {}), " phase=4");
    box->SetText("400 %");
    EXPECT_EQ(box->GetChosen(), 2U);
    box->SetEditable(false);
    EXPECT_EQ(box->GetShownText(), "400 %");
    EXPECT_TRUE(box->IsTabStop());
    EXPECT_EQ(window.log, "");
}

} // namespace
