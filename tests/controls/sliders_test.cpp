// Sliders, dials and progress: values and places, mouse and keys.
#include "controls/control_panel.h"
#include "controls/sliders/angle_slider.h"
#include "controls/sliders/edit_slider.h"
#include "controls/sliders/orlen_slider.h"
#include "controls/sliders/progress_bar.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"

using namespace Kesto;

namespace {

using Testing::kNaN;
constexpr double kHuge = std::numeric_limits<double>::max();

TEST(ValueRange, KeepsValuesBetweenItsEndsAndOnItsPositions)
{
    const struct {
        const char* what;
        SValueRange range;
        double value, snapped, share;
    } rows[] = {
        {"between", {0, 100}, 35, 35, 0.35},
        {"below", {0, 100}, -3, 0, 0},
        {"beyond", {0, 100}, 1e300, 100, 1},
        {"backwards", {100, 0}, 35, 35, 0.65},
        {"backwards, below", {100, 0}, -3, 0, 1},
        {"no way at all", {7, 7}, 9, 7, 0},
        {"positions", {0, 100, 5}, 37, 25, 0.25},
        {"half way, away from zero", {0, 100, 5}, 37.5, 50, 0.5},
        {"two positions", {-1, 1, 2}, -0.01, -1, 0},
        {"positions backwards", {10, 0, 3}, 4, 5, 0.5},
        {"one position is none", {0, 100, 1}, 35, 35, 0.35},
        {"as far as doubles go", {-kHuge, kHuge}, 0, 0, 0.5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.range.Snapped(row.value), row.snapped);
        EXPECT_DOUBLE_EQ(row.range.ShareOf(row.snapped), row.share);
        EXPECT_DOUBLE_EQ(row.range.ValueAt(row.share), row.snapped) << "and back";
        EXPECT_TRUE(std::isnan(row.range.Snapped(kNaN)));
        EXPECT_EQ(row.range.ValueAt(kNaN), row.range.first);
    }
}

TEST(ValueRange, StepsReachTheNextPositionAtLeast)
{
    const struct {
        const char* what;
        SValueRange range;
        double value, delta, reached;
    } rows[] = {
        {"a step", {0, 10}, 5, 1, 6},
        {"down", {0, 10}, 5, -1, 4},
        {"past the end", {0, 10}, 9.5, 1, 10},
        {"at the end", {0, 10}, 10, 1, 10},
        {"short of a position", {0, 100, 5}, 25, 1, 50},
        {"down to one", {0, 100, 5}, 25, -1, 0},
        {"several", {0, 100, 5}, 0, 80, 75},
        {"no step", {0, 10}, 5, 0, 5},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.range.Stepped(row.value, row.delta), row.reached) << row.what;
}

// Sliders of 116 units, whose thumb goes from 8 to 108: a unit is a value of 0 to 100.
class Sliders : public testing::Test {
protected:
    ControlPanel panel;
    CCustomSlider& slider = panel.Add<CCustomSlider>("slider", {0, 0, 116, 20}, kView_TabStop);
};

TEST_F(Sliders, AValueHasAPlaceAndAPlaceAValue)
{
    const SValueRange ranges[] = {{0, 100}, {100, 0}, {-5, 5, 11}, {0, 1}, {3, 3}};
    for (const SValueRange& range : ranges)
        for (const double length : {20.0, 116.0, 500.0})
            for (const bool vertical : {false, true}) {
                SCOPED_TRACE(testing::Message() << range.first << " to " << range.last << " on "
                                                << length << (vertical ? " upright" : ""));
                slider.SetFrame({0, 0, vertical ? 20 : length, vertical ? length : 20});
                slider.SetRange(range);
                slider.SetLook({.orientation = vertical ? kSlider_Vertical : kSlider_Horizontal});
                for (double share = 0.0; share <= 1.0; share += 0.1) {
                    const double value = range.ValueAt(share);
                    slider.SetValue(value);
                    EXPECT_NEAR(slider.ValueAt(slider.ThumbMiddle(value)), value, 1e-9);
                }
            }
}

TEST_F(Sliders, ADragPassesAndEndsOnce)
{
    panel.Press(38, 10); // beside the thumb: it comes
    panel.Move(48, 90);
    panel.Move(48, 12);
    panel.Release(48, 12);
    EXPECT_EQ(panel.Take(), "slider phase=0 value=30 was=0; slider phase=0 value=40 was=30; "
                            "slider phase=1 value=40 was=0");
    panel.Click(52, 10); // on the thumb, off its middle
    EXPECT_EQ(panel.Take(), "") << "nothing moved";
    panel.Press(52, 10);
    panel.Move(62, 10);
    panel.Release(62, 10);
    EXPECT_EQ(panel.Take(), "slider phase=0 value=50 was=40; slider phase=1 value=50 was=40");
    panel.Press(58, 10);
    panel.Move(900, 10);
    EXPECT_TRUE(slider.IsPressed());
    EXPECT_TRUE(panel.BreakOffTracker());
    EXPECT_FALSE(slider.IsPressed());
    EXPECT_EQ(slider.GetValue(), 50);
    EXPECT_EQ(panel.Take(), "slider phase=0 value=100 was=50; slider phase=0 value=50 was=100");
}

TEST_F(Sliders, KeysAndWheelStep)
{
    ASSERT_TRUE(slider.BecomeBullseye(false));
    constexpr std::uint32_t kShift = CMessage::kModifier_Shift;
    const struct {
        const char* what;
        std::uint32_t key, held;
        double wheel, to, toBackwards;
    } rows[] = {
        {"right", kKeyCode_Right, 0, 0, 52, 48},
        {"up", kKeyCode_Up, 0, 0, 52, 48},
        {"left", kKeyCode_Left, 0, 0, 48, 52},
        {"down with Shift", kKeyCode_Down, kShift, 0, 30, 70},
        {"page up", kKeyCode_PageUp, 0, 0, 70, 30},
        {"page down", kKeyCode_PageDown, 0, 0, 30, 70},
        {"home", kKeyCode_Home, 0, 0, 0, 100},
        {"end", kKeyCode_End, 0, 0, 100, 0},
        {"the wheel away", 0, 0, 2, 54, 46},
        {"a key of somebody else's", kKeyCode_Return, 0, 0, 50, 50},
        {"Control", kKeyCode_Right, CMessage::kModifier_Control, 0, 50, 50},
    };
    slider.SetIncrements(2, 20);
    for (const auto& row : rows)
        for (const bool backwards : {false, true}) {
            SCOPED_TRACE(row.what);
            slider.SetRange(backwards ? SValueRange{100, 0} : SValueRange{0, 100});
            slider.SetValue(50);
            const double to = backwards ? row.toBackwards : row.to;
            if (row.wheel != 0)
                panel.Wheel(50, 10, 0, row.wheel);
            else
                EXPECT_EQ(panel.Key(slider, row.key, row.held), to != 50);
            EXPECT_EQ(slider.GetValue(), to);
            const std::string sent = panel.Take();
            EXPECT_EQ(sent.empty(), to == 50) << sent;
            EXPECT_EQ(sent.find("phase=0"), std::string::npos);
        }
}

TEST_F(Sliders, AreSilentWithoutAnIdAndDeadWhenDisabled)
{
    slider.SetID({});
    panel.Click(58, 10);
    EXPECT_EQ(slider.GetValue(), 50);
    EXPECT_EQ(panel.Take(), "");
    slider.SetID(CObjID("slider"));
    slider.Disable();
    panel.Click(88, 10);
    panel.Wheel(50, 10, 0, 1);
    EXPECT_EQ(slider.GetValue(), 50);
    slider.SetValue(kNaN);
    slider.SetRange({0, kNaN});
    slider.SetRange({-std::numeric_limits<double>::infinity(), 0});
    EXPECT_EQ(slider.GetValue(), 50);
    EXPECT_EQ(slider.GetRange().last, 100);
}

TEST(SliderFill, ReadsColoursInThreeWays)
{
    const struct {
        const char* what;
        ESliderFill fill;
        std::array<double, 3> components;
        Colour colour;
    } rows[] = {
        {"red, green, blue", kSliderFill_SolidRGB, {10, 20, 255}, {10, 20, 255}},
        {"beyond", kSliderFill_SolidRGB, {-10, 999, kNaN}, {0, 255, 0}},
        {"inks", kSliderFill_SolidCMY, {255, 0, 55}, {0, 255, 200}},
        {"red", kSliderFill_SolidHSV, {0, 100, 100}, {255, 0, 0}},
        {"yellow", kSliderFill_SolidHSV, {60, 100, 100}, {255, 255, 0}},
        {"green", kSliderFill_GradientHSV, {120, 100, 100}, {0, 255, 0}},
        {"dark blue", kSliderFill_SolidHSV, {240, 100, 40}, {0, 0, 102}},
        {"red again", kSliderFill_SolidHSV, {360, 100, 100}, {255, 0, 0}},
        {"grey", kSliderFill_SolidHSV, {77, 0, 60}, {153, 153, 153}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FillColour(row.fill, row.components), row.colour) << row.what;
    const SSliderLook look{.fill = kSliderFill_GradientRGB,
                           .colours = {{{0, 0, 0}, {100, 200, 0}}}};
    EXPECT_EQ(FillColourAt(look, 0.25), (Colour{25, 50, 0}));
}

TEST(AngleSlider, APlaceAroundItsMiddleIsAValue)
{
    ControlPanel panel;
    auto& dial = panel.Add<CAngleSlider>("dial", {0, 0, 40, 40});
    const struct {
        const char* what;
        std::uint32_t options;
        double offset, arc;
        SValueRange range;
        double right, top, left, bottom; // values at these places, from the middle of the values
    } rows[] = {
        {"counter-clockwise", kAngleSlider_CCW, 0, 360, {0, 360}, 0, 90, 180, 270},
        {"clockwise", kAngleSlider_CW, 0, 360, {0, 360}, 0, 270, 180, 90},
        {"from the top, clockwise", kAngleSlider_CW, 90, 360, {0, 360}, 90, 0, 270, 180},
        {"both ways", kAngleSlider_BiDirectional, 0, 360, {-180, 180}, 0, 90, -180, -90},
        {"both ways, clockwise",
         kAngleSlider_BiDirectional | kAngleSlider_CW,
         90,
         360,
         {-180, 180},
         90,
         0,
         -90,
         -180},
        {"an arc", kAngleSlider_CW | kAngleSlider_PinValue, 180, 180, {0, 10}, 10, 5, 0, 10},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        dial.SetRange(row.range);
        dial.SetDial(row.options, row.offset, row.arc);
        dial.SetValue((row.range.first + row.range.last) / 2 + 1e-6);
        EXPECT_NEAR(dial.ValueAt({40, 20}), row.right, 1e-9);
        EXPECT_NEAR(dial.ValueAt({20, 0}), row.top, 1e-9);
        EXPECT_NEAR(dial.ValueAt({0, 20}), row.left, 1e-9);
        EXPECT_NEAR(dial.ValueAt({20, 40}), row.bottom, 1e-9);
        EXPECT_EQ(dial.ValueAt({20, 20}), dial.GetValue()) << "the middle says nothing";
    }
}

TEST(AngleSlider, GoesRoundUnlessItPins)
{
    ControlPanel panel;
    auto& dial = panel.Add<CAngleSlider>("dial", {0, 0, 40, 40}, kView_TabStop);
    dial.SetRange({0, 360});
    dial.SetIncrements(1, 10);
    dial.SetValue(359.5);
    EXPECT_EQ(dial.StepFrom(359.5, 1), 0.5);
    EXPECT_EQ(dial.StepFrom(0, -1), 359);
    EXPECT_NEAR(dial.ValueAt({40, 19}), 2.862, 1e-3);
    dial.SetDial(kAngleSlider_PinValue, 0, 360);
    EXPECT_EQ(dial.StepFrom(359.5, 1), 360);
    EXPECT_EQ(dial.ValueAt({40, 19}), 360) << "on past the end";
    dial.SetValue(0);
    EXPECT_EQ(dial.ValueAt({40, 21}), 0);
    for (double value = 0; value < 360; value += 30) {
        dial.SetDial(kAngleSlider_CW, 77, 360);
        dial.SetValue(value);
        EXPECT_NEAR(std::remainder(dial.AngleOf(value) - (77 - value), 360), 0, 1e-9) << value;
    }
}

class EditSliders : public testing::Test {
protected:
    EditSliders()
    {
        both.Field().SetRange(0, 200);
        both.Slider().SetRange({0, 100});
        both.SetArrangement(kPosEdit_Right, 56);
    }

    ControlPanel panel;
    // The slider lies in 0 to 116, as above, beside a gap of 8 and a field of 56.
    CEditSlider& both = panel.Add<CEditSlider>("both", {0, 0, 180, 24});
};

TEST_F(EditSliders, TheSlidersValueIsWhatTheFieldShows)
{
    panel.Press(38.3, 12);
    EXPECT_EQ(both.GetValue(), 30) << "a whole number";
    EXPECT_EQ(both.Field().GetText().View(), "30");
    panel.Move(38.4, 12);
    panel.Move(48.3, 12);
    panel.UpdateNow();
    panel.Move(48.3, 12);
    EXPECT_TRUE(panel.GetInvalid().IsEmpty()) << "a mouse that rests changes nothing";
    panel.Release(48.3, 12);
    EXPECT_EQ(panel.Take(), "both phase=0 value=30 was=0; both phase=0 value=40 was=30; "
                            "both phase=1 value=40 was=0");
    both.Field().SetDecimal(true);
    both.Field().SetDigits(1);
    panel.Click(58.26, 12);
    EXPECT_EQ(both.GetValue(), 50.3);
}

TEST_F(EditSliders, TheSliderFollowsTheField)
{
    both.Field().StepUp(150);
    EXPECT_EQ(panel.Take(), "both phase=3 value=150 was=0");
    EXPECT_EQ(both.GetValue(), 150);
    EXPECT_EQ(both.Slider().GetValue(), 100) << "as far as it goes";
    both.SetValue(20);
    EXPECT_EQ(both.Slider().GetValue(), 20);
    EXPECT_EQ(both.Field().GetText().View(), "20");
    both.SetValue(kNaN);
    EXPECT_EQ(both.GetValue(), 20);
    EXPECT_EQ(panel.Take(), "") << "quietly";
    both.SetID({});
    both.Field().StepUp(1);
    EXPECT_EQ(panel.Take(), "");
}

TEST(OrlenSlider, ADoubleClickBringsTheDefaultBack)
{
    ControlPanel panel;
    auto& slider = panel.Add<COrlenSlider>("slider", {0, 0, 116, 20});
    slider.SetDefaultValue(25);
    slider.SetValue(70);
    slider.PrimaryMultiClick({}, 2);
    EXPECT_EQ(panel.Take(), "slider phase=1 value=25 was=70");
}

TEST(ProgressBar, ShowsItselfOnlyWhileSomethingGoesOn)
{
    ControlPanel panel;
    auto& bar = panel.Add<CProgressBar>("bar", {0, 0, 100, 8});
    bar.SetAutoHide(true);
    bar.SetRange(0, 8);
    const std::pair<double, bool> rows[] = {{0, false}, {1, true},   {7.5, true}, {8, false},
                                            {9, false}, {-1, false}, {3, true}};
    for (const auto& [value, shown] : rows) {
        bar.SetValue(value);
        EXPECT_EQ(bar.IsVisible(), shown) << value;
    }
    bar.SetValue(std::numeric_limits<double>::quiet_NaN());
    bar.SetRange(0, std::numeric_limits<double>::infinity());
    EXPECT_EQ(bar.GetValue(), 3);
    bar.SetValue(8);
    bar.SetAutoHide(false);
    EXPECT_TRUE(bar.IsVisible());
}

} // namespace
