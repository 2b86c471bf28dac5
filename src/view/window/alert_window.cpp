#include "view/window/alert_window.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/tools/draw_tools.h"
#include "foundation/localization/localize.h"
#include "platform/windows/clipboard.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/window/alert_button.h"
#include "view/window/alert_shower.h"

#include <algorithm>
#include <array>
#include <optional>

namespace Kesto {
namespace {

// In units. The sign is on a plate, the texts beside it, the buttons in the lower right corner.
constexpr Rect kPlate{16.0, 16.0, 64.0, 64.0};
constexpr double kPlateRadius = 4.0;
constexpr double kSignSize = 32.0;
constexpr double kTextLeft = 80.0;
constexpr double kNoSignTextLeft = 16.0;
constexpr double kMargin = 12.0;
constexpr double kTextMargin = 16.0; // right of the texts, and between them and the buttons
constexpr double kExplanationGap = 8.0;
constexpr double kButtonWidth = 100.0;
constexpr double kButtonGap = 8.0;
constexpr double kLeastWidth = 340.0;
constexpr double kButtonRow = CWidgetSkin::kCellHeight + kMargin + 20.0; // with the room above it

// Texts are as narrow as one of these allows without too many lines.
constexpr std::array kTextWidths = {204.0, 300.0, 420.0};
constexpr double kFewLines = 5.0;
constexpr double kLineHeight = 16.0;
constexpr double kMostLines = 30.0; // the rest is cut off, or the buttons were off the screen

struct CButtonRow {
    AlertButton button;
    const char* label;
};

constexpr std::array kButtons = {
    CButtonRow{AlertButton::kOK, "$$$/Kesto/Alert/OK=OK"},
    CButtonRow{AlertButton::kCancel, "$$$/Kesto/Alert/Cancel=Cancel"},
    CButtonRow{AlertButton::kAbort, "$$$/Kesto/Alert/Abort=Abort"},
    CButtonRow{AlertButton::kRetry, "$$$/Kesto/Alert/Retry=Retry"},
    CButtonRow{AlertButton::kIgnore, "$$$/Kesto/Alert/Ignore=Ignore"},
    CButtonRow{AlertButton::kYes, "$$$/Kesto/Alert/Yes=Yes"},
    CButtonRow{AlertButton::kNo, "$$$/Kesto/Alert/No=No"},
};

CText LabelOf(AlertButton button)
{
    CText label;
    for (const CButtonRow& row : kButtons)
        if (row.button == button)
            label = row.label;
    return Localize(label);
}

// The command ids of the buttons from the first on; Cancel has its own wherever it is.
CObjID IdOf(const std::array<AlertButton, 3>& buttons, std::size_t index)
{
    if (buttons[index] == AlertButton::kCancel)
        return kAlert_Cancel;
    const std::array ids = {kAlert_Ok, kAlert_Other, kAlert_Other2};
    return ids[index];
}

std::optional<EToolPicture> SignOf(AlertIcon icon)
{
    switch (icon) {
    case AlertIcon::kInformation:
        return kTool_InfoNote;
    case AlertIcon::kQuestion:
        return kTool_InfoQuestion;
    case AlertIcon::kWarning:
        return kTool_InfoWarning;
    case AlertIcon::kStop:
        return kTool_InfoStop;
    case AlertIcon::kNone:
        break;
    }
    return std::nullopt;
}

// What closing means: Cancel, or the only button there is.
AlertButton CloseAnswer(const AlertBox& box)
{
    const std::array<AlertButton, 3> buttons = box.Buttons();
    if (std::ranges::find(buttons, AlertButton::kCancel) != buttons.end())
        return AlertButton::kCancel;
    return buttons[1] == AlertButton::kNone ? buttons[0] : AlertButton::kNone;
}

CWindowPlan PlanOf(CExecutable* super, const AlertBox& box)
{
    CWindowPlan plan;
    plan.super = super;
    plan.features = kWin_CanMove + kWin_CanTabStop;
    if (CloseAnswer(box) != AlertButton::kNone)
        plan.features |= kWin_CanClose;
    plan.title = box.title;
    plan.ownerWindow = box.parent;
    plan.size = {kLeastWidth, kPlate.bottom + kButtonRow};
    return plan;
}

// The sign on its plate.
class CAlertSign final : public CPane {
public:
    explicit CAlertSign(EToolPicture sign) : CPane(kPlate), fSign(sign) {}

    void DrawInContext(const CPaintEvent&) override
    {
        CSystemPort& port = *GetPort();
        const Rect& plate = GetBounds();
        port.Paint(RoundRect{plate, kPlateRadius}, ToolColour(kColour_IconGround));
        const double inset = (plate.Width() - kSignSize) / 2.0;
        port.DrawIcon(
            CDrawTools::Get().GetPicture(fSign),
            {plate.left + inset, plate.top + inset, plate.right - inset, plate.bottom - inset});
    }

private:
    EToolPicture fSign;
};

// The message and, below it, the explanation.
class CAlertText final : public CPane {
public:
    static constexpr std::uint32_t kFlags = kText_Left | kText_Top | kText_Wrap;

    CAlertText(const Rect& frame, const AlertBox& box) : CPane(frame), fBox(box) {}

    void DrawInContext(const CPaintEvent&) override
    {
        CSystemPort& port = *GetPort();
        Rect frame = GetBounds();
        port.SetFont(CDrawTools::Get().GetFont(kFont_UI));
        port.SetTextColour(ToolColour(kColour_Label));
        port.DrawTextBox(fBox.message.View(), frame, kFlags);
        frame.top +=
            port.MeasureTextBox(fBox.message.View(), frame.Width(), kFlags).y + kExplanationGap;
        if (!fBox.explanation.IsEmpty())
            port.DrawTextBox(fBox.explanation.View(), frame, kFlags);
    }

private:
    const AlertBox& fBox; // the window's
};

} // namespace

CMessageAlert::CMessageAlert(CExecutable* super, const AlertBox& box)
    : CAlert(PlanOf(super, box)), fBox(box)
{
    SetModal(true);
    const double textLeft = SignOf(box.icon) ? kTextLeft : kNoSignTextLeft;
    const Point text = MeasureText();
    const std::array<AlertButton, 3> buttons = box.Buttons();
    const auto count = static_cast<double>(
        std::ranges::count_if(buttons, [](AlertButton one) { return one != AlertButton::kNone; }));
    const double row = count * (kButtonWidth + kButtonGap) - kButtonGap + 2.0 * kMargin;
    SetContextSize({std::max({kLeastWidth, textLeft + text.x + kTextMargin, row}),
                    std::max(kPlate.bottom, kPlate.top + text.y) + kButtonRow});
}

// The size of both texts at the narrowest width that gives them few lines. Control and C copy those
// that are too long whole.
Point CMessageAlert::MeasureText()
{
    SetFont(CDrawTools::Get().GetFont(kFont_UI));
    Point size;
    for (const double width : kTextWidths) {
        const Point message = MeasureTextBox(fBox.message.View(), width, CAlertText::kFlags);
        size = {width, message.y};
        if (!fBox.explanation.IsEmpty())
            size.y += kExplanationGap +
                      MeasureTextBox(fBox.explanation.View(), width, CAlertText::kFlags).y;
        if (size.y <= kFewLines * kLineHeight)
            break;
    }
    size.y = std::min(size.y, kMostLines * kLineHeight);
    return size;
}

// The texts' middle is the plate's, unless they are higher than it.
void CMessageAlert::CreateViews()
{
    const std::optional<EToolPicture> sign = SignOf(fBox.icon);
    if (sign)
        AppendChild(std::make_unique<CAlertSign>(*sign));
    const double left = sign ? kTextLeft : kNoSignTextLeft;
    const Point size = MeasureText();
    const double top = kPlate.top + std::max((kPlate.Height() - size.y) / 2.0, 0.0);
    AppendChild(std::make_unique<CAlertText>(
        Rect{left, top, GetBounds().right - kTextMargin, top + size.y}, fBox));
    MakeButtons();
}

void CMessageAlert::MakeButtons()
{
    const std::array<AlertButton, 3> buttons = fBox.Buttons();
    const auto end = std::ranges::find(buttons, AlertButton::kNone);
    const auto count = static_cast<std::size_t>(end - buttons.begin());
    // Some button is always the default, or Return would do nothing.
    const bool hasDefault = std::find(buttons.begin(), end, fBox.defaultButton) != end;
    const AlertButton defaultButton = hasDefault ? fBox.defaultButton : buttons[0];
    const double top = GetBounds().bottom - kMargin - CWidgetSkin::kCellHeight;
    double left = GetBounds().right - kMargin + kButtonGap -
                  static_cast<double>(count) * (kButtonWidth + kButtonGap);
    for (std::size_t i = 0; i < count; ++i, left += kButtonWidth + kButtonGap) {
        const Rect frame{left, top, left + kButtonWidth, top + CWidgetSkin::kCellHeight};
        const bool isDefault = buttons[i] == defaultButton;
        CAlertButton* const button =
            AppendChild(std::make_unique<CAlertButton>(frame, IdOf(buttons, i), LabelOf(buttons[i]),
                                                       isDefault, buttons[i] == CloseAnswer(fBox)));
        if (isDefault)
            fFirst = button;
    }
}

void CMessageAlert::AfterShow()
{
    if (fFirst != nullptr)
        fFirst->BecomeBullseye(false);
}

AlertButton CMessageAlert::Ask()
{
    const auto pressed = static_cast<AlertButton>(Run());
    if (pressed != AlertButton::kNone)
        return pressed;
    const AlertButton close = CloseAnswer(fBox);
    if (close != AlertButton::kNone)
        return close;
    return fBox.buttons == AlertButtons::kAbortRetryIgnore ? AlertButton::kAbort : AlertButton::kNo;
}

bool CMessageAlert::HandleCommand(CCommandMessage& message)
{
    const std::array<AlertButton, 3> buttons = fBox.Buttons();
    for (std::size_t i = 0; i < buttons.size() && buttons[i] != AlertButton::kNone; ++i)
        if (message.fID == IdOf(buttons, i)) {
            EndRun(static_cast<std::int32_t>(buttons[i]));
            return true;
        }
    return CAlert::HandleCommand(message);
}

bool CMessageAlert::HandleKey(CKeyboardMessage& message)
{
    const bool copies = message.fID == kMessage_KeyDown && message.fKeyCode == 'C' &&
                        (message.fModifiers & CMessage::kModifier_Control) != 0;
    if (!copies)
        return CAlert::HandleKey(message);
    Platform::SetClipboardText(CopyText());
    return true;
}

std::string CMessageAlert::CopyText() const
{
    std::string text;
    for (const CText& part : {fBox.title, fBox.message, fBox.explanation})
        if (!part.IsEmpty())
            text.append(text.empty() ? "" : "\n\n").append(part.View());
    return text;
}

AlertButton CAlertShower::Show(const AlertBox& box)
{
    CProcess* const process = CProcess::Current();
    if (process == nullptr || !process->HasUser())
        return CAlertHook::Show(box);
    CMessageAlert alert(process, box);
    return alert.Ask();
}

} // namespace Kesto
