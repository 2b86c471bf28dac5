// What controls have in common: their mnemonics, and the states that they are drawn in.
#include "controls/base/drawn_control.h"
#include "controls/base/label_text.h"
#include "controls/base/mnemonic.h"
#include "controls/control_panel.h"
#include "drawing/ports/system_port.h"
#include "support/testing.h"
#include "view/process/ui_scale.h"

using namespace Kesto;

namespace {

TEST(Mnemonics, AreTheLettersAfterTheirMarkSmallOrCapital)
{
    const struct {
        const char* label;
        std::uint32_t typed;
        bool matches;
    } cases[] = {{"&Apply", 'a', true},
                 {"&apply", 'A', true},
                 {"Fu&zz", 'Z', true},
                 {"Salt && &Pepper", 'p', true},
                 {"Salt && Pepper", 'p', false},
                 {"Apply", 'a', false},
                 {"Apply&", 'y', false},
                 {"&{", '[', false},
                 {"&`", '@', false},
                 {"&\u00E0", 0xC0, true},
                 {"&\u00FE", 0xDE, true},
                 {"&\u00F7", 0xD7, false},
                 {"&\u03B1", 0x391, true},
                 {"&\u03C9", 0x3A9, true},
                 {"&\u0430", 0x410, true},
                 {"&\u044F", 0x42F, true},
                 {"&\u00FF", 0xDF, false},
                 {"&\u0450", 0x430, false}};
    for (const auto& [label, typed, matches] : cases) {
        SCOPED_TRACE(label);
        const auto isFor = [text = label, key = typed](CObjID kind, bool repeated) {
            return IsMnemonicOf(text, CKeyboardMessage(nullptr, kind, 0, key, 1, repeated));
        };
        EXPECT_EQ(isFor(kMessage_SysKeyChar, false), matches);
        EXPECT_FALSE(isFor(kMessage_SysKeyChar, true) || isFor(kMessage_KeyChar, false));
    }
}

TEST(Labels, FitAtTheScaleThatWindowsOpenWith)
{
    constexpr const char* kLabel = "Disabled disclosure";
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        SCOPED_TRACE(scale);
        SetUiScale(scale);
        LookUpUsualScale();
        const double width = MeasureLabel(kLabel, kFont_UI, nullptr);
        CSystemPort& port = MeasuringPort(nullptr, kFont_UI);
        port.SetScaleFactor(UsualScale());
        EXPECT_LE(port.MeasureText(kLabel), width);
    }
    SetUiScale(1.0);
    LookUpUsualScale();
}

TEST(Labels, KeepTheirRoomWhenTheScaleChanges)
{
    constexpr const char* kLabel = "Disabled disclosure";
    const double room = MeasureLabel(kLabel, kFont_UI, nullptr);
    for (const double scale : {1.25, 1.5}) {
        SCOPED_TRACE(scale);
        CSystemPort& port = MeasuringPort(nullptr, kFont_UI);
        port.SetScaleFactor(scale);
        FitFont(port, kLabel, room, 0);
        EXPECT_LE(port.MeasureText(kLabel), room);
        const CFont fitted = port.GetFont();
        FitFont(port, kLabel, 1.0, 0);
        EXPECT_EQ(port.GetFont(), fitted) << "one pixel is the most";
    }
}

TEST(DrawnControls, LookAsTheyAreUsed)
{
    ControlPanel panel;
    auto& control = panel.Add<CDrawnControl>("control", {10, 10, 60, 30}, kView_Bullseye);
    auto& other = panel.Add<CDrawnControl>("other", {10, 40, 60, 60}, kView_Bullseye);
    const std::function<void()> steps[] = {[&] { panel.Move(20, 20); },
                                           [&] { control.SetPressed(true); },
                                           [&] { control.Disable(); },
                                           [&] { panel.Deactivate(); },
                                           [&] { control.Enable(); },
                                           [&] { panel.Activate(); },
                                           [&] { control.SetPressed(false); },
                                           [&] { panel.Move(200, 100); },
                                           [&] { control.BecomeBullseye(true); },
                                           [&] { other.BecomeBullseye(true); }};
    using enum EButtonState;
    const EButtonState states[] = {kRollover, kPress,    kDisabled, kDisactive, kInactive,
                                   kPress,    kRollover, kNormal,   kNormal,    kNormal};
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        SCOPED_TRACE(i);
        panel.UpdateNow();
        steps[i]();
        EXPECT_EQ(control.GetDrawState(), states[i]);
        EXPECT_EQ(control.ShowsFocus(), i == 8);
        EXPECT_TRUE(panel.GetInvalid().Contains(control.GetDeviceRect())) << "it is drawn anew";
    }
}

} // namespace
