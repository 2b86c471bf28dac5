#include "controls/text/static_text.h"

#include "controls/base/label_text.h"
#include "controls/base/mnemonic.h"
#include "controls/base/natural_size.h"
#include "controls/text/scrub_tracker.h"
#include "controls/text/trimmed_text.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"
#include "view/tree/context.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr PropertyRow kText{VexName("text"), 0, "what it says"};
constexpr PropertyRow kFont{VexName("text_font"), kFont_UI, "its font"};
constexpr PropertyRow kAlign{VexName("text_align"), kAlign_Default,
                             "how it lies in its frame, both ways"};
constexpr PropertyRow kAlignX{VexName("text_align_x"), kAlign_Default, "from left to right"};
constexpr PropertyRow kAlignY{VexName("text_align_y"), kAlign_Default, "from top to bottom"};
constexpr PropertyRow kTrim{VexName("text_trim"), kTrim_End,
                            "where a text that is too long is cut"};
constexpr PropertyRow kOptions{VexName("static_options"), kStatic_NoOptions, "a sum of options"};
constexpr PropertyRow kWrap{VexName("static_wrap"), 0, "breaks lines between words"};
constexpr PropertyRow kGroupTitle{VexName("static_group_title"), 0, "is the title of a group"};
constexpr PropertyRow kWidth{VexName("text_width"), 0, "where its lines are broken, in units"};
constexpr PropertyRow kLines{VexName("text_lines"), 0, "the least number of lines"};
constexpr PropertyRow kCharacters{VexName("text_characters"), 0,
                                  "the least width, in characters of average width"};
constexpr PropertyRow kScrub{VexName("scrub_id"), 0, "the field that a drag on it changes"};
constexpr PropertyRow kHotkey{VexName("hotkey_id"), 0,
                              "what its key leads to, the letter behind & in its text"};
constexpr PropertyRow kRows[] = {kText, kFont,       kAlign, kAlignX, kAlignY,     kTrim,  kOptions,
                                 kWrap, kGroupTitle, kWidth, kLines,  kCharacters, kScrub, kHotkey};

constexpr std::string_view kAverage = "abcdefghijklmnopqrstuvwxyz";

double LineHeight(const CSystemPort& port)
{
    return port.GetFontMetrics().lineHeight;
}

std::uint32_t HorizontalFlag(std::int32_t align)
{
    return align == kAlign_Center  ? kText_Centred
           : align == kAlign_Right ? kText_Right
                                   : kText_Left;
}

// The part of the bounds that so many units of text take up.
double TopOf(const Rect& bounds, double height, std::int32_t align)
{
    const double room = bounds.Height() - height;
    if (align == kAlign_Top)
        return bounds.top;
    return bounds.top + (align == kAlign_Bottom ? room : std::floor(room / 2));
}

std::uint32_t ReadStaticOptions(const CPropertyReader& reader)
{
    auto options = static_cast<std::uint32_t>(reader.Integer(kOptions));
    for (const auto& [row, bit] :
         {std::pair{kWrap, std::uint32_t{kStatic_Wrap}}, {kGroupTitle, kStatic_GroupTitle}}) {
        bool flag = false;
        if (reader.TryFlag(row.key, flag))
            options = flag ? options | bit : options & ~bit;
    }
    return options;
}

StaticTextStyle ReadStyle(const LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    StaticTextStyle style;
    style.font = static_cast<EFontKind>(reader.Integer(kFont));
    style.options = ReadStaticOptions(reader);
    style.alignX = style.alignY = reader.Integer(kAlign);
    reader.TryInteger(kAlignX.key, style.alignX);
    reader.TryInteger(kAlignY.key, style.alignY);
    style.trim = reader.Integer(kTrim);
    return style;
}

} // namespace

void CStaticText::SetText(const CText& text)
{
    if (text == fText)
        return;
    fText = text;
    InvalidateAll();
}

void CStaticText::SetStyle(const StaticTextStyle& style)
{
    fStyle = style;
    InvalidateAll();
}

void CStaticText::SetHotkeyId(CObjID id)
{
    fHotkeyId = id;
    SetClient(id.IsNone() ? 0 : kClient_Keys);
    InvalidateAll();
}

// A label is never where keys begin or pass.
bool CStaticText::HandleKey(CKeyboardMessage& message)
{
    CContext* const context = GetContext();
    if (fHotkeyId.IsNone() || context == nullptr || !IsMnemonicOf(fText.View(), message))
        return false;
    CPane* const field = context->FindChild(fHotkeyId, true);
    if (field != nullptr && field->BecomeBullseye(false))
        field->SelectContents();
    return true;
}

void CStaticText::PrimaryClick(const CMouseEvent& event)
{
    if (!fScrubId.IsNone() && IsActive())
        RunTracker(std::make_unique<CScrubTracker>(*this, fScrubId, event));
}

void CStaticText::SetScrubId(CObjID id)
{
    fScrubId = id;
    if (!id.IsNone())
        SetCursor(Platform::Cursor(Platform::CursorShape::kSizeLeftRight), true);
}

Point CStaticText::SizeOf(const CSystemPort& port, std::string_view text, double width, bool marked)
{
    const std::uint32_t flags =
        kText_Left | (width > 0 ? kText_Wrap : 0U) | (marked ? kText_HideMnemonic : 0U);
    const Point box = port.MeasureTextBox(text, width, flags);
    return {std::ceil(box.x), std::max(box.y, LineHeight(port))};
}

// A single line is on the base line that all controls of a row share; several keep together as
// the font has them.
void CStaticText::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    port.SetFont(CDrawTools::Get().GetFont(fStyle.font));
    port.SetTextColour(ToolColour(IsUsable() ? kColour_Label : kColour_LabelDisabled));
    const Rect& bounds = GetBounds();
    const bool wraps = (fStyle.options & kStatic_Wrap) != 0;
    const std::uint32_t marks = fHotkeyId.IsNone() ? 0U : MnemonicFlag(*this);
    if (!wraps)
        FitFont(port, fText.View(), bounds.Width(), marks);
    const Point size = SizeOf(port, fText.View(), wraps ? bounds.Width() : 0.0, marks != 0);
    const double top = TopOf(bounds, size.y, fStyle.alignY);
    const std::uint32_t horizontal = HorizontalFlag(fStyle.alignX);
    if (size.y > LineHeight(port) || marks != 0) {
        port.DrawTextBox(fText.View(), {bounds.left, top, bounds.right, top + size.y},
                         horizontal | kText_Top | marks | (wraps ? kText_Wrap : kText_Centred));
        return;
    }
    const CText line = TrimmedText(port, fText, bounds.Width(), fStyle.trim);
    const double room = bounds.Width() - port.MeasureText(line.View());
    const double left = horizontal == kText_Left    ? 0.0
                        : horizontal == kText_Right ? room
                                                    : room / 2;
    port.DrawTextLine(line.View(),
                      {bounds.left + std::floor(left), top + port.GetFontMetrics().baseLine});
}

CView* CPaneBuilder<CStaticText>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const CPropertyReader reader = owner.Properties();
    CSystemPort& port =
        MeasuringPort(owner.fCurrentView, static_cast<EFontKind>(reader.Integer(kFont)));
    const bool wraps = (ReadStaticOptions(reader) & kStatic_Wrap) != 0;
    const double width = wraps ? reader.Integer(kWidth) : 0.0;
    const bool marked = !reader.Id(kHotkey).IsNone();
    const CText text = reader.Label(kText);
    Point size = CStaticText::SizeOf(port, text.View(), width, marked);
    // A text in one line must fit at every scale, and fonts don't grow evenly.
    if (width == 0.0)
        size.x = WidestAtScales(port, [&](const CSystemPort& at) {
            return CStaticText::SizeOf(at, text.View(), width, marked).x;
        });
    size.x = std::max({size.x, static_cast<double>(reader.Integer(kWidth)),
                       std::ceil(reader.Integer(kCharacters) * port.MeasureText(kAverage) /
                                 static_cast<double>(kAverage.size()))});
    size.y = std::max(size.y, reader.Integer(kLines) * LineHeight(port));
    SetNaturalSize(owner.fLayoutRecord, size);
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CStaticText>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CStaticText>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CStaticText>(parameters.frame, parameters.id, parameters.options,
                                         parameters.binding);
}

void CPaneBuilder<CStaticText>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    auto& label = static_cast<CStaticText&>(pane);
    label.SetText(owner.Properties().Label(kText));
    label.SetStyle(ReadStyle(owner));
    label.SetScrubId(owner.Properties().Id(kScrub));
    label.SetHotkeyId(owner.Properties().Id(kHotkey));
}

} // namespace Kesto
