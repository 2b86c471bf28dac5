#include "controls/buttons/button.h"
#include "controls/buttons/button_looks.h"
#include "controls/buttons/radio_group.h"
#include "controls/control_panel.h"
#include "drawing/ports/image_port.h"
#include "pixels/pixmaps/display_pixmap.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"

using namespace Kesto;

namespace {

class Buttons : public testing::Test {
protected:
    CButton& Add(const char* id, const Rect& frame, EButtonKind kind,
                 EButtonStyle style = kButtonStyle_Default, std::uint32_t options = kView_NoOptions)
    {
        auto graphic =
            CButtonGraphics::Get().Make(CButtonGraphics::ClassOf(style), nullptr, style, "Label");
        return *panel.AppendChild(std::make_unique<CButton>(
            frame, CObjID(id), options, kBind_Fixed, kind, "Label", false, std::move(graphic)));
    }

    ControlPanel panel;
};

TEST_F(Buttons, ClickWhenPressAndReleaseAreBothOverThem)
{
    CButton& button = Add("ok", {10, 10, 110, 34}, kPushButton);
    const struct {
        const char* what;
        Point press, move, release;
        EButtonState whileDown;
        const char* sent;
    } rows[] = {
        {"a click", {20, 20}, {21, 21}, {21, 21}, EButtonState::kPress, "ok"},
        {"away and back", {20, 20}, {200, 150}, {30, 30}, EButtonState::kRollover, "ok"},
        {"released outside", {20, 20}, {200, 150}, {200, 150}, EButtonState::kRollover, ""},
        {"released below its edge", {20, 20}, {20, 33}, {20, 34}, EButtonState::kPress, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        panel.Move(row.press.x, row.press.y);
        panel.Press(row.press.x, row.press.y);
        EXPECT_EQ(button.GetDrawState(), EButtonState::kPress);
        panel.Move(row.move.x, row.move.y);
        EXPECT_EQ(button.GetDrawState(), row.whileDown);
        panel.Release(row.release.x, row.release.y);
        EXPECT_NE(button.GetDrawState(), EButtonState::kPress);
        EXPECT_EQ(panel.Take(), row.sent);
    }
}

TEST_F(Buttons, TheKindDecidesWhatAClickDoes)
{
    CButton& check = Add("check", {0, 0, 100, 20}, kCheckButton, kButtonStyle_Check);
    CButton& first = Add("first", {0, 30, 100, 50}, kRadioButton, kButtonStyle_Radio);
    CButton& second = Add("second", {0, 60, 100, 80}, kRadioButton, kButtonStyle_Radio);
    CButton& other = Add("other", {0, 90, 100, 110}, kCTAGroupButton);
    check.SetValue(kNeutral);
    check.Clicked(0, 0);
    check.Clicked(0, 0);
    check.Clicked(0, 0);
    EXPECT_EQ(
        panel.Take(),
        "check phase=2 value=1 was=2; check phase=2 value=0 was=1; check phase=2 value=1 was=0");
    first.Clicked(0, 0);
    second.Clicked(0, 0);
    EXPECT_EQ(panel.Take(), "first; second");
    EXPECT_EQ(first.GetValue(), kOff);
    EXPECT_EQ(second.GetValue(), kOn);
    EXPECT_EQ(check.GetValue(), kOn) << "not of the group";
    other.Clicked(0, 0);
    EXPECT_EQ(panel.Take(), "");
}

TEST_F(Buttons, FlashOnlyWhenTheyCanBeClicked)
{
    CButton& button = Add("ok", {10, 10, 110, 34}, kPushButton);
    EXPECT_TRUE(button.Flash());
    EXPECT_EQ(panel.Take(), "ok");
    EXPECT_EQ(button.GetDrawState(), EButtonState::kNormal) << "released again";
    button.Disable();
    EXPECT_FALSE(button.Flash());
    EXPECT_EQ(button.GetDrawState(), EButtonState::kDisabled);
    button.Enable();
    panel.SetActive(false);
    EXPECT_FALSE(button.Flash());
    EXPECT_EQ(button.GetDrawState(), EButtonState::kInactive);
    EXPECT_EQ(panel.Take(), "");
}

TEST_F(Buttons, AreChosenByTheKeyboard)
{
    CButton& first = Add("first", {0, 0, 100, 20}, kRadioButton, kButtonStyle_Radio, kView_TabStop);
    CButton& second =
        Add("second", {0, 30, 100, 50}, kRadioButton, kButtonStyle_Radio, kView_TabStop);
    CButton& third =
        Add("third", {0, 60, 100, 80}, kRadioButton, kButtonStyle_Radio, kView_TabStop);
    third.Disable();
    ASSERT_TRUE(first.BecomeBullseye(false));
    EXPECT_TRUE(panel.Key(first, kKeyCode_Down));
    EXPECT_TRUE(second.IsBullseye());
    EXPECT_TRUE(panel.Key(second, kKeyCode_Down)) << "over the disabled one, round the end";
    EXPECT_TRUE(first.IsBullseye());
    EXPECT_EQ(first.GetValue(), kOn);
    EXPECT_TRUE(panel.Key(first, kKeyCode_Space));
    EXPECT_EQ(panel.Take(), "second; first; first");
}

TEST_F(Buttons, AreDrawnAnewWhenTheFocusComesAndGoes)
{
    CButton& first = Add("first", {0, 0, 100, 24}, kPushButton, kButtonStyle_Push, kView_Bullseye);
    CButton& second =
        Add("second", {0, 30, 100, 54}, kCheckButton, kButtonStyle_Check, kView_Bullseye);
    const auto isInvalid = [&](const CButton& button) {
        return panel.GetInvalid().Contains(button.GetDeviceRect());
    };
    panel.UpdateNow();
    ASSERT_TRUE(first.BecomeBullseye(false));
    EXPECT_TRUE(isInvalid(first) && !isInvalid(second));
    panel.UpdateNow();
    ASSERT_TRUE(second.BecomeBullseye(false));
    EXPECT_TRUE(isInvalid(first) && isInvalid(second));
}

// Says which of its operations was called.
class SpeakingGraphic : public CButtonGraphic {
public:
    using CButtonGraphic::CButtonGraphic;
    void DrawDefaultRing(CSystemPort&) override { drawn = "ring"; }
    void DrawPressNeutral(CSystemPort&) override { drawn = "press neutral"; }
    std::string drawn;

protected:
    void DrawLook(CSystemPort&, EButtonState state, EButtonValue value) override
    {
        drawn = std::to_string(static_cast<int>(state)) + "," + std::to_string(value);
    }
};

TEST(ButtonGraphic, DrawsByStateAndValue)
{
    CContext root({10, 10});
    SpeakingGraphic graphic(nullptr, kButtonStyle_Push, "");
    const struct {
        EButtonState state;
        EButtonValue value;
        bool isDefault;
        const char* drawn;
    } rows[] = {
        {EButtonState::kNormal, kOff, false, "0,0"},
        {EButtonState::kNormal, kOn, true, "ring"},
        {EButtonState::kRollover, kOff, true, "2,0"},
        {EButtonState::kPress, kNeutral, false, "press neutral"},
        {EButtonState::kDisactive, kOn, false, "5,1"},
        {EButtonState::kDisabled, kOff, true, "3,0"},
        {static_cast<EButtonState>(9), kOn, false, "0,1"},
        {EButtonState::kInactive, static_cast<EButtonValue>(7), false, "4,0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.drawn);
        graphic.SetState(row.state, row.value);
        graphic.SetDefault(row.isDefault);
        graphic.Draw(root);
        EXPECT_EQ(graphic.drawn, row.drawn);
    }
}

TEST(ButtonGraphic, ComesByClassOrStyleAndStatesItsSize)
{
    CButtonGraphics& looks = CButtonGraphics::Get();
    EXPECT_EQ(looks.Make("CNoGraphic", nullptr, kButtonStyle_Default, "x"), nullptr);
    EXPECT_EQ(CButtonGraphics::ClassOf(static_cast<EButtonStyle>(50)), "CButtonGraphic");
    const auto bevel = looks.Make("CBevelButtonGraphic", nullptr, kButtonStyle_Bevel, "x");
    EXPECT_NE(dynamic_cast<CBevelButtonGraphic*>(bevel.get()), nullptr);

    const CButtonGraphic small(nullptr, kButtonStyle_Push, "OK");
    EXPECT_EQ(small.GetWidth(), 72);
    EXPECT_EQ(small.GetHeight(), 24);
    const CButtonGraphic wide(nullptr, kButtonStyle_Push, "A label that needs its room");
    EXPECT_EQ(wide.GetWidth(), wide.GetContentWidth() + 24);
    const CButtonGraphic check(nullptr, kButtonStyle_Check, "&Keep");
    const CButtonGraphic same(nullptr, kButtonStyle_Check, "Keep");
    EXPECT_EQ(check.GetWidth(), same.GetWidth()) << "the mnemonic's mark takes no room";
    EXPECT_EQ(check.GetHeight(), 20);
}

TEST(ButtonGraphic, ShowsTheFocusInEachLook)
{
    for (const EButtonStyle style :
         {kButtonStyle_Push, kButtonStyle_Check, kButtonStyle_Radio, kButtonStyle_Bevel,
          kButtonStyle_Disclosure, kButtonStyle_Tool, kButtonStyle_None}) {
        SCOPED_TRACE(style);
        const auto graphic =
            CButtonGraphics::Get().Make(CButtonGraphics::ClassOf(style), nullptr, style, "Label");
        graphic->SetFrame({0, 0, 80, 24});
        const auto draw = [&](bool focused) {
            CImagePort port;
            const CDisplayPixmap pixmap(port, 80, 24);
            graphic->SetCues(false, focused);
            graphic->Draw(port);
            const Platform::Bitmap& bitmap = pixmap.GetBitmap();
            return std::vector<std::uint8_t>(bitmap.Bits(),
                                             bitmap.Bits() + bitmap.Height() * bitmap.RowBytes());
        };
        EXPECT_NE(draw(true), draw(false));
    }
}

} // namespace
