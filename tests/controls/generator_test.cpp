// Layout texts become views.
#include "controls/frames/frame_pane.h"
#include "controls/registered_classes.h"
#include "controls/text/static_text.h"
#include "layout/build/builder_registry.h"
#include "layout/build/layout_owner.h"
#include "support/testing.h"
#include "view/window/window_kinds.h"

using namespace Kesto;

namespace {

class Generator : public testing::Test {
protected:
    Generator() { RegisterViewClasses(); }

    CView* Load(const char* text) { return LoadLayoutFromText(fOwner, text); }

    // The view of an id that the text gives.
    template <class View = CView>
    View& At(const char* id)
    {
        auto* const view = dynamic_cast<View*>(fOwner.fRootView->FindChild(CObjID(id), true));
        if (view == nullptr)
            throw std::runtime_error(id);
        return *view;
    }

    LayoutOwner fOwner;
};

TEST_F(Generator, BuildsTheWindowAndItsPanesInPlace)
{
    CView* const window = Load("PDialog(margin: 4, window_title: '$$$/some/key=Hello') {"
                               "  CFramePane(view_id: 'a', width: 30, height: 20) {"
                               "    CPane(view_id: 'b', width: 10, height: 5, vertical: align_top);"
                               "  } }");
    ASSERT_EQ(window, fOwner.fRootView);
    EXPECT_EQ(dynamic_cast<CDialog&>(*window).GetTitle(), "Hello");
    EXPECT_EQ(window->GetBounds(), (Rect{0, 0, 38, 28}));
    EXPECT_EQ(At("a").GetFrame(), (Rect{4, 4, 34, 24}));
    EXPECT_EQ(At("b").GetParent(), &At("a"));
    EXPECT_EQ(fOwner.TakeWindow().get(), window);
}

TEST_F(Generator, MakesTheWindowThatItsKeysDescribe)
{
    const struct {
        const char* text;
        EWindowKind kind;
        std::uint32_t features;
        bool isModal;
    } cases[] = {
        {"CWindow();", kWin_Document, 0x83, false},
        {"CWindow(window_style: kWin_Toolbar);", kWin_Toolbar, 0x83, false},
        {"CDialog(window_style: kWin_Toolbar);", kWin_Dialog, 0x83, true},
        {"CAlert();", kWin_Alert, 0x83, true},
        {"CDocumentWindow(window_style: kWin_DocumentSeamless);", kWin_DocumentSeamless, 0x83,
         false},
        {"CFloater();", kWin_Palette, 0x83, false},
        {"CToolbar();", kWin_Toolbar, 0x83, false},
        {"CMDIFrame();", kWin_MDIFrame, 0x83, false},
        {"CPopup(window_features: kWin_NoFeatures);", kWin_Popup, 0, false},
        {"PDialog(window_can_close: false, window_can_tabstop: true);", kWin_Dialog, 0x382, true},
        {"CWindow(window_features: kWin_AllFeatures, window_can_zoom: false, window_open_hidden: "
         "1);",
         kWin_Document, 0x45F, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.text);
        LayoutOwner owner;
        LoadLayoutFromText(owner, each.text);
        const std::unique_ptr<CWindow> window = owner.TakeWindow();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->GetKind(), each.kind);
        EXPECT_EQ(window->GetFeatures(), each.features);
        EXPECT_EQ(window->IsModal(), each.isModal);
    }
}

TEST_F(Generator, GivesAWindowItsPlaceAndItsLeastSize)
{
    Load("CWindow(window_position_x: 30, window_size_y: -50, window_monitor: kMonitor_Tall,"
         "  window_user_bottom: 7, view_help: 'Some help') { CPane(width: 70, height: 20); }");
    const std::unique_ptr<CWindow> window = fOwner.TakeWindow();
    CWindowPlacement placement = window->GetPlacement();
    EXPECT_EQ(placement.positionX, 30.0);
    EXPECT_EQ(placement.positionY, -33.0);
    EXPECT_EQ(placement.sizeY, -50.0);
    EXPECT_EQ(placement.monitor, kMonitor_Tall);
    EXPECT_EQ(placement.user[3], 7.0);
    EXPECT_EQ(window->GetSizeLimits().minimum, (Point{70.0, 20.0}));
    EXPECT_EQ(window->GetTip(), "Some help");
}

TEST_F(Generator, HandsBlockVariablesDown)
{
    Load("PDialog() { CStaticText(view_id: 'before', text: 'a'); text_font = kFont_UISmall;"
         "  CFramePane(text_font: kFont_UILarge) { CFramePane() {"
         "    CStaticText(view_id: 'inside', text: 'a');"
         "    CStaticText(view_id: 'own', text: 'a', text_font: kFont_UIMicro); } } }");
    EXPECT_EQ(At<CStaticText>("before").GetStyle().font, kFont_UI);
    EXPECT_EQ(At<CStaticText>("inside").GetStyle().font, kFont_UISmall);
    EXPECT_EQ(At<CStaticText>("own").GetStyle().font, kFont_UIMicro);
}

TEST_F(Generator, LosesTextsOfFourBytes)
{
    Load("PDialog() { CStaticText(view_id: 'aaa', text: 'Edit');"
         "  CStaticText(view_id: 'bbb', text: 'Edits'); }");
    EXPECT_EQ(At<CStaticText>("aaa").GetText(), "");
    EXPECT_EQ(At<CStaticText>("bbb").GetText(), "Edits");
    EXPECT_EQ(At("aaa").GetBounds().Width(), 0);
    EXPECT_GT(At("bbb").GetBounds().Width(), 10);
}

TEST_F(Generator, ReadsTheOptionsBitByBit)
{
    Load("PDialog() { CPane(view_id: 'on', view_options: kView_TabStop + kView_DrawParts, "
         "view_draw_parts: false, view_invisible: true, view_tip: 'Tip', view_tip_disabled: 'Not "
         "now'); }");
    const CView& view = At("on");
    EXPECT_TRUE(view.IsTabStop());
    EXPECT_FALSE(view.IsShown());
    EXPECT_EQ(view.State() & CView::kState_DrawParts, 0U);
    EXPECT_TRUE(view.HasTip(true) && view.HasTip(false));
}

TEST_F(Generator, OnlyMeasuresForATarget)
{
    fOwner.fTarget.emplace();
    EXPECT_EQ(Load("PDialog(margin: 3) { CPane(width: 10, height: 20); }"), nullptr);
    EXPECT_EQ(fOwner.fTarget, (Point{16, 26}));
    EXPECT_EQ(fOwner.fRootView, nullptr);
}

TEST_F(Generator, FillsAnExistingWindow)
{
    CWindow window(CWindowPlan{});
    fOwner.fExistingView = &window;
    EXPECT_EQ(Load("PDialog() { CPane(view_id: 'a', width: 10, height: 5); }"), &window);
    EXPECT_EQ(At("a").GetParent(), &window);
    EXPECT_EQ(fOwner.TakeWindow(), nullptr);
}

TEST_F(Generator, LeavesNothingOfARefusedText)
{
    EXPECT_THROW(Load("PDialog() { CPane(; }"), std::logic_error);
    EXPECT_EQ(fOwner.fRootView, nullptr);
    EXPECT_EQ(fOwner.TakeWindow(), nullptr);
    EXPECT_NE(Load("PDialog();"), nullptr);
    EXPECT_EQ(Load(nullptr), nullptr);
    EXPECT_EQ(LoadLayoutResource(fOwner, "NO_SUCH.VEX"), nullptr);
}

// What a builder reads must stand in the tables that the checker and the documentation go by.
TEST_F(Generator, ReadsNoKeyThatIsNotInATable)
{
    std::set<std::string_view> names;
    for (const RegisteredClass& registered : RegisteredClasses()) {
        SCOPED_TRACE(registered.name);
        EXPECT_TRUE(names.insert(registered.name).second) << "twice";
        CViewBuilderBase* const builder = FindBuilder(registered.name);
        ASSERT_NE(builder, nullptr);
        EXPECT_EQ(builder->IsForWindows(), registered.kind == VexClassKind::kWindow);
        std::vector<PropertyRows> tables;
        builder->AppendRows(tables);
        std::set<std::string_view> listed;
        for (PropertyRows rows : tables)
            for (const PropertyRow& row : rows)
                EXPECT_TRUE(listed.insert(row.key.text).second) << row.key.text << " twice";
        for (std::string_view key : listed)
            EXPECT_TRUE(std::ranges::any_of(PropertyKeys(),
                                            [key](const auto& row) { return row.name == key; }))
                << key << " is no key of the language";
        CWindow bare(CWindowPlan{});
        LayoutOwner owner;
        owner.fCurrentView = owner.fDefaultParent = &bare;
        owner.fKeyListener = [&listed](std::string_view key) {
            EXPECT_TRUE(listed.contains(key)) << key << " is read and in no table";
        };
        LoadLayoutFromText(owner, (std::string(registered.name) + "();").c_str());
    }
}

} // namespace
