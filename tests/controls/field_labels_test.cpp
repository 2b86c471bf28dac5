// Labels that belong to fields, and buttons of the system, in a window.
#include "controls/field_window.h"

#include "controls/buttons/system_button.h"
#include "controls/text/static_text.h"
#include "foundation/base/service.h"
#include "platform/windows/focus.h"
#include "platform/windows/window_paint.h"
#include "support/testing.h"
#include "view/process/desktop.h"

namespace {

using namespace Kesto;
using Testing::FieldStage;

constexpr std::uint32_t kAlt = 0x12;

class FieldLabels : public testing::Test {
protected:
    FieldLabels()
    {
        auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
        made->SetValueAndRange(5, 0, 20);
        stage.Open(std::move(made));
        auto label = std::make_unique<CStaticText>(Rect{10, 70, 60, 86});
        label->SetText("&Number:");
        label->SetScrubId(CObjID("field"));
        label->SetHotkeyId(CObjID("field"));
        stage.window.AppendChild(std::move(label));
        stage.process.PumpQuiet();
    }

    void MoveTo(double x, double y) { stage.MoveTo(x, y); }
    void Button(bool down) { stage.Button(down); }
    void PressWithAlt(std::uint32_t key)
    {
        stage.Hold(kAlt, true);
        stage.Press(key);
        stage.Hold(kAlt, false);
    }

    FieldStage stage;
};

TEST_F(FieldLabels, ScrubTheNumber)
{
    const struct {
        const char* name;
        std::function<void()> drag;
        const char* sent;
        double value;
    } rows[] = {
        {"a drag to the right", [&] { MoveTo(26, 78), MoveTo(30, 78), Button(false); },
         "6:5 7:8 7:10 8:10 2:10", 10},
        {"to the left, beyond the range and back",
         [&] { MoveTo(0, 78), MoveTo(-40, 78), MoveTo(16, 78), Button(false); },
         "6:5 7:0 7:20 8:20 2:20", 20},
        {"upward", [&] { MoveTo(20, 74), Button(false); }, "6:5 7:7 8:7 2:7", 7},
        {"a click", [&] { Button(false); }, "6:5 8:5", 5},
        {"broken off by Escape",
         [&] {
             MoveTo(30, 78);
             stage.Press(kKeyCode_Escape, u"\x1b");
             Button(false);
         },
         "6:5 7:10 8:5", 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        stage.field->SetValue(5);
        stage.other->BecomeBullseye(true);
        stage.Sent();
        MoveTo(20, 78);
        Button(true);
        row.drag();
        EXPECT_EQ(stage.Sent(), row.sent);
        EXPECT_EQ(stage.field->GetValue(), row.value);
        EXPECT_TRUE(stage.field->IsBullseye());
    }
}

TEST_F(FieldLabels, LeadToTheFieldByTheirKey)
{
    stage.other->BecomeBullseye(true);
    PressWithAlt('X');
    EXPECT_TRUE(stage.other->IsBullseye());
    PressWithAlt('N');
    EXPECT_TRUE(stage.field->IsBullseye());
    EXPECT_EQ(stage.field->GetSelection(), (Platform::TextRange{0, 1}));
}

TEST_F(FieldLabels, ButtonsOfTheSystemWorkByMouseAndKeysAndShowWhatThePaneDrew)
{
    auto* const button = stage.window.AppendChild(std::make_unique<CPushButton>(
        Rect{120, 10, 192, 34}, CObjID("go"), kView_TabStop, kBind_Fixed, kPushButton, "&Go"));
    auto* const check = stage.window.AppendChild(std::make_unique<CCheckButton>(
        Rect{120, 40, 192, 60}, CObjID("check"), kView_TabStop, kBind_Fixed, kCheckButton, "Keep"));
    stage.process.PumpQuiet();
    stage.Sent();
    MoveTo(130, 20);
    Button(true);
    EXPECT_EQ(button->GetDrawState(), EButtonState::kPress);
    MoveTo(150, 90);
    EXPECT_EQ(button->GetDrawState(), EButtonState::kRollover);
    MoveTo(130, 20);
    Button(false);
    EXPECT_EQ(stage.Sent(), "5:5 go");
    EXPECT_TRUE(button->IsBullseye());
    EXPECT_EQ(Platform::FocusedWindow(), button->GetFocusWindow());
    EXPECT_NE(Platform::FocusedWindow(), stage.window.NativeHandle());
    stage.Press(kKeyCode_Space, u" ");
    PressWithAlt('G');
    EXPECT_EQ(stage.Sent(), "go go");
    stage.Press(kKeyCode_Tab);
    stage.Press(kKeyCode_Space, u" ");
    EXPECT_EQ(check->GetValue(), kOn);
    Platform::Bitmap picture;
    ASSERT_TRUE(Platform::PhotographWindow(stage.window.NativeHandle(), picture));
    const Platform::Bitmap& drawn = stage.window.GetBitmap();
    const PixelRect pixels = button->GetDeviceRect();
    for (std::int32_t y = pixels.top; y < pixels.bottom; ++y)
        EXPECT_EQ(std::memcmp(picture.Bits() + y * picture.RowBytes() + pixels.left * 4,
                              drawn.Bits() + y * drawn.RowBytes() + pixels.left * 4,
                              static_cast<std::size_t>(pixels.right - pixels.left) * 4),
                  0)
            << "row " << y;
}

} // namespace
