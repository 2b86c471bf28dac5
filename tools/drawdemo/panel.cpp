#include "drawdemo/panel.h"

#include "drawing/frames/border.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/tools/draw_tools.h"

#include <array>
#include <cstddef>

using namespace Kesto;

namespace {

constexpr double kColumn = 52.0; // of samples of shapes
constexpr double kLine = 40.0;

// A heading at the left, its samples below.
void Heading(CSystemPort& port, const char* text, double x, double y)
{
    port.SetTextColour(ToolColour(kColour_LabelDim));
    port.SetFont(CDrawTools::Get().GetFont(kFont_UISmall));
    port.DrawTextLine(text, {x, y + 12});
    port.SetFont(CDrawTools::Get().GetFont(kFont_UI));
    port.SetTextColour(ToolColour(kColour_Label));
}

// Fill, stroke, both, and inverted over stripes.
template <class Shape>
void DrawFamily(CSystemPort& port, double y, const Shape& shapeAt)
{
    const CPen pen = CDrawTools::Get().GetPen(kColour_Sign, 2);
    const CBrush brush = CDrawTools::Get().GetBrush(kColour_Accent);
    const auto at = [&](int column) { return shapeAt(12 + kColumn * column, y); };
    port.Paint(at(0), brush);
    port.Frame(at(1), pen);
    port.PaintAndFrame(at(2), pen, brush);
    for (double x = 0; x < 44; x += 8)
        port.Paint(Rect{12 + 3 * kColumn + x, y, 16 + 3 * kColumn + x, y + 32},
                   ToolColour(kColour_SelOff));
    port.Invert(at(3));
}

void DrawShapes(CSystemPort& port)
{
    Heading(port, "fill, stroke, both, inverted", 12, 20);
    DrawFamily(port, 40, [](double x, double y) { return Rect{x, y, x + 44, y + 32}; });
    DrawFamily(port, 40 + kLine, [](double x, double y) { return Oval{{x, y, x + 44, y + 32}}; });
    DrawFamily(port, 40 + 2 * kLine, [](double x, double y) {
        return RoundRect{{x, y, x + 44, y + 32}, 8};
    });
    DrawFamily(port, 40 + 3 * kLine, [](double x, double y) {
        CBRVRegion region(Rect{x, y, x + 30, y + 22});
        region.Union(Rect{x + 14, y + 10, x + 44, y + 32});
        return region.Subtract(Rect{x + 18, y + 13, x + 26, y + 19});
    });
}

void DrawLines(CSystemPort& port)
{
    Heading(port, "lines, patterns", 12, 200);
    const CPen thin = CDrawTools::Get().GetPen(kColour_Label);
    port.SetPen(thin);
    for (int i = 0; i <= 8; ++i)
        port.DrawLine({12, 220}, {52, 220 + 4.0 * i});
    const std::array<Point, 5> steps{{{60, 252}, {60, 236}, {76, 236}, {76, 220}, {96, 220}}};
    port.DrawPolyline(steps);
    port.SetPen(CDrawTools::Get().GetPen(kColour_Accent, 3));
    const std::array<Point, 4> zigzag{{{104, 248}, {116, 222}, {128, 248}, {144, 222}}};
    port.DrawPolyline(zigzag);
    const std::array<Point, 5> star{{{176, 220}, {186, 252}, {158, 232}, {194, 232}, {166, 252}}};
    port.FillPolygon(star, ToolColour(kColour_Focus));
    port.Paint(Rect{202, 220, 216, 252},
               CBrush{ToolColour(kColour_Label), ToolColour(kColour_Window), CBrush::kChecks});
}

void DrawTexts(CSystemPort& port)
{
    Heading(port, "text in a frame", 232, 20);
    constexpr std::uint32_t kAcross[] = {kText_Left, kText_Centred, kText_Right};
    constexpr std::uint32_t kDown[] = {kText_Top, kText_Centred, kText_Bottom};
    for (std::size_t y = 0; y < 3; ++y)
        for (std::size_t x = 0; x < 3; ++x) {
            const double left = 232 + 46.0 * static_cast<double>(x);
            const double top = 40 + 32.0 * static_cast<double>(y);
            const Rect frame{left, top, left + 44, top + 30};
            port.Frame(frame, ToolColour(kColour_Separator));
            port.DrawTextBox("&Text", frame, kAcross[x] | kDown[y] | kText_Mnemonic);
        }
    const Rect wrapped{232, 140, 368, 190};
    port.Frame(wrapped, ToolColour(kColour_Separator));
    port.DrawTextBox("A text of several words is broken between them, and stays inside.", wrapped,
                     kText_Left | kText_Top | kText_Wrap);
    const Rect cut{232, 196, 368, 212};
    port.Frame(cut, ToolColour(kColour_Separator));
    port.DrawTextBox("What is too long ends in three points", cut, kText_Left | kText_Ellipsis);
    double x = 232;
    for (const EFontKind kind : {kFont_UILarge, kFont_UI, kFont_UISmall, kFont_UIMicro}) {
        port.SetFont(CDrawTools::Get().GetFont(kind));
        port.DrawTextLine("Baseline", {x, 240});
        x += port.MeasureText("Baseline") + 4;
    }
}

void DrawPictures(CSystemPort& port)
{
    Heading(port, "pictures", 384, 20);
    const CDrawTools& tools = CDrawTools::Get();
    double x = 384;
    for (const EToolPicture picture :
         {kTool_InfoNote, kTool_InfoQuestion, kTool_InfoStop, kTool_InfoWarning}) {
        port.Paint(RoundRect{{x, 40, x + 40, 80}, 4}, ToolColour(kColour_IconGround));
        port.DrawIcon(tools.GetPicture(picture), {x, 40, x + 40, 80});
        x += 42;
    }
    const CDualPicture& dial = tools.GetPicture(kTool_InfoWarning);
    port.DrawPicture(dial, Rect{384, 86, 400, 102});
    port.DrawPicture(dial, Rect{404, 86, 436, 118});
    port.DrawPicture(dial, Rect{440, 86, 504, 118});
    CDualPicture faded = dial;
    faded.Fade(0.4);
    port.DrawPicture(faded, Rect{512, 86, 544, 118});
}

void DrawFrames(CSystemPort& port)
{
    Heading(port, "frames", 384, 124);
    int place = 0;
    for (const std::int32_t kind : {kFramePrimaryGroup, kFrameSecondaryGroup, kFrameSolidDark,
                                    kFrameSolidLight, kFrameActiveBorder, kFrameDimBorder,
                                    kFrameOut3D, kFrameIn3D, kFrameEtched, kFrameTargetRing}) {
        const double x = 384 + 33.0 * (place % 5);
        const double y = 144 + 25.0 * (place / 5);
        CBorder(kind).Draw(port, {x, y, x + 28, y + 20});
        ++place;
    }
}

void DrawButtons(CSystemPort& port)
{
    Heading(port, "controls", 12, 260);
    constexpr const char* kNames[] = {"Normal",   "Pressed",  "Hot",
                                      "Disabled", "Inactive", "Disactive"};
    for (std::uint32_t i = 0; i < kButtonStateCount; ++i) {
        const auto state = static_cast<EButtonState>(i);
        const double x = 12 + 78.0 * i;
        const Rect cell{x, 280, x + 74, 304};
        CWidgetSkin::DrawPushButton(port, cell, state, false, false);
        port.SetTextColour(ToolColour(CWidgetSkin::ButtonTextRole(state)));
        Rect label = cell;
        label.top += CWidgetSkin::PressedShift(state);
        label.bottom += CWidgetSkin::PressedShift(state);
        port.DrawTextBox(kNames[i], label, kText_Ellipsis);
        int column = 0;
        for (const EMark mark : {EMark::kNone, EMark::kOn, EMark::kMixed}) {
            const double left = x + 24.0 * column++;
            CWidgetSkin::DrawCheckBox(port, {left, 308, left + 16, 324}, state, mark);
            CWidgetSkin::DrawRadioButton(port, {left, 328, left + 16, 344}, state, mark);
        }
    }
    const Rect both{480, 280, 554, 304};
    CWidgetSkin::DrawPushButton(port, both, EButtonState::kNormal, true, true);
    port.SetTextColour(ToolColour(kColour_ButtonText));
    port.DrawTextBox("Default", both, kText_Ellipsis);
}

void DrawFields(CSystemPort& port)
{
    const std::array<SFieldLook, 4> looks{
        {{}, {.focused = true}, {.invalid = true}, {.enabled = false}}};
    double x = 12;
    for (const SFieldLook& look : looks) {
        CWidgetSkin::DrawField(port, {x, 352, x + 56, 376}, look);
        port.SetTextColour(
            ToolColour(look.enabled ? kColour_FieldText : kColour_FieldTextDisabled));
        port.DrawTextBox("12.5", {x + 5, 352, x + 51, 376}, kText_Left);
        x += 62;
    }
    CWidgetSkin::DrawPopup(port, {264, 352, 364, 376}, EButtonState::kNormal, false);
    port.SetTextColour(ToolColour(kColour_ButtonText));
    port.DrawTextBox("Bicubic", {273, 352, 340, 376}, kText_Left);
    CWidgetSkin::DrawGroove(port, {376, 362, 466, 366}, false, 0.4, true);
    CWidgetSkin::DrawSliderThumb(port, {376 + 36, 364}, EButtonState::kNormal);
    CWidgetSkin::DrawProgress(port, {376, 380, 466, 388}, 0.6, true);
    CWidgetSkin::DrawTabPane(port, {476, 370, 552, 392});
    CWidgetSkin::DrawTab(port, {476, 344, 514, 370}, EButtonState::kNormal, true);
    CWidgetSkin::DrawTab(port, {516, 344, 552, 370}, EButtonState::kNormal, false);
    CWidgetSkin::DrawScrollTrack(port, {12, 380, 364, 395});
    CWidgetSkin::DrawScrollThumb(port, {60, 383.5, 160, 391.5}, EButtonState::kNormal);
}

} // namespace

void DrawPanel(CSystemPort& port, const char* title)
{
    port.Paint(Rect{0, 0, kPanelWidth, kPanelHeight}, ToolColour(kColour_Window));
    CFont bold = CDrawTools::Get().GetFont(kFont_UI);
    bold.bold = true;
    port.SetFont(bold);
    port.SetTextColour(ToolColour(kColour_Label));
    port.DrawTextBox(title, {12, 2, kPanelWidth, 22}, kText_Left);
    DrawShapes(port);
    DrawLines(port);
    DrawTexts(port);
    DrawPictures(port);
    DrawFrames(port);
    DrawButtons(port);
    DrawFields(port);
}
