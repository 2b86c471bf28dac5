#include "controls/buttons/button_builders.h"

#include "controls/base/natural_size.h"
#include "layout/build/layout_owner.h"
#include "view/messages/message_ids.h"

namespace Kesto {
namespace {

constexpr PropertyRow kKind{VexName("button_kind"), kPushButton, "what a click does"};
constexpr PropertyRow kLabel{VexName("button_label"), 0,
                             "what it says; & marks the letter that is its key"};
constexpr PropertyRow kStyle{VexName("button_style"), kButtonStyle_Default, "its look"};
constexpr PropertyRow kStyleClass{VexName("button_style_class"), 0,
                                  "its look, by the name of a registered class"};
constexpr PropertyRow kValue{VexName("button_value"), kOff, "off, on or neutral"};
constexpr PropertyRow kDefault{VexName("default_button"), 0, "Return presses it"};
constexpr PropertyRow kOk{VexName("ok_button"), 0, "Return presses it"};
constexpr PropertyRow kCancel{VexName("cancel_button"), 0, "Escape presses it"};
constexpr PropertyRow kControlFont{VexName("control_font"), kFont_UIMedium,
                                   "of a check box's or radio button's label"};
constexpr PropertyRow kPushFont{VexName("push_button_font"), kFont_UIMedium,
                                "of a push button's label"};
constexpr PropertyRow kRows[] = {kKind,    kLabel, kStyle,  kStyleClass,  kValue,
                                 kDefault, kOk,    kCancel, kControlFont, kPushFont};

constexpr PropertyRow kIcon{VexName("icon"), 0, "a picture of the icon store, by name"};
constexpr PropertyRow kIconOffset{VexName("icon_offset"), 0,
                                  "how far the picture is moved from the middle, both ways"};
constexpr PropertyRow kIconOffsetX{VexName("icon_offset_x"), 0, "to the right"};
constexpr PropertyRow kIconOffsetY{VexName("icon_offset_y"), 0, "down"};
constexpr PropertyRow kIconRows[] = {kIcon, kIconOffset, kIconOffsetX, kIconOffsetY};

EButtonKind ReadKind(const CPropertyReader& reader, EButtonKind fallback)
{
    std::int32_t kind = fallback;
    reader.TryInteger(kKind.key, kind);
    return static_cast<EButtonKind>(kind);
}

EButtonStyle ReadStyle(const CPropertyReader& reader, EButtonStyle fallback)
{
    std::int32_t style = fallback;
    reader.TryInteger(kStyle.key, style);
    return static_cast<EButtonStyle>(style);
}

bool LooksLikePush(EButtonStyle style)
{
    return style == kButtonStyle_Default || style == kButtonStyle_Push;
}

EFontKind ReadFont(const CPropertyReader& reader, EButtonStyle style)
{
    return static_cast<EFontKind>(reader.Integer(LooksLikePush(style) ? kPushFont : kControlFont));
}

// An icon is a name or the number of a resource.
CText ReadIcon(const CPropertyReader& reader)
{
    return reader.Label(kIcon);
}

template <class Button>
std::unique_ptr<CPane> MakeButton(const PaneParameters& parameters)
{
    return std::make_unique<Button>(parameters.frame, parameters.id, parameters.options,
                                    parameters.binding);
}

} // namespace

std::unique_ptr<CButtonGraphic>
CPaneBuilder<CCustomButton>::MakeGraphic(CView* view, const LayoutOwner& owner) const
{
    const CPropertyReader reader = owner.Properties();
    const EButtonStyle style = ReadStyle(reader, DefaultStyle());
    const CText named = reader.Text(kStyleClass);
    const std::string_view look = named.IsEmpty() ? CButtonGraphics::ClassOf(style) : named.View();
    auto graphic = CButtonGraphics::Get().Make(look, view, style, reader.Label(kLabel));
    if (graphic != nullptr)
        graphic->SetFont(ReadFont(reader, style));
    return graphic;
}

Point CPaneBuilder<CCustomButton>::NaturalSize(const LayoutOwner& owner) const
{
    const std::unique_ptr<CButtonGraphic> graphic = MakeGraphic(owner.fCurrentView, owner);
    if (graphic != nullptr)
        return {graphic->GetWidth(), graphic->GetHeight()};
    const CButtonGraphic plain(owner.fCurrentView, kButtonStyle_Push,
                               owner.Properties().Label(kLabel));
    return {plain.GetWidth(), plain.GetHeight()};
}

CView* CPaneBuilder<CCustomButton>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    SetNaturalSize(owner.fLayoutRecord, NaturalSize(owner));
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CCustomButton>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CPane> CPaneBuilder<CCustomButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CCustomButton>(parameters);
}

// An id that the text gives wins over those that the three keys mean.
void CPaneBuilder<CCustomButton>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& button = static_cast<CCustomButton&>(pane);
    const EButtonStyle style = ReadStyle(reader, DefaultStyle());
    button.SetKind(ReadKind(reader, DefaultKind()));
    button.SetLabel(reader.Label(kLabel));
    button.SetFont(ReadFont(reader, style));
    button.SetValue(static_cast<EButtonValue>(reader.Integer(kValue)));
    const bool isDefault = reader.Flag(kDefault) || reader.Flag(kOk);
    const bool isCancel = reader.Flag(kCancel);
    button.SetDefault(isDefault);
    button.SetCancel(isCancel);
    if (button.GetID() == CObjID() && (isDefault || isCancel))
        button.SetID(isCancel ? kDefault_Cancel : kDefault_Ok);
}

std::unique_ptr<CPane> CPaneBuilder<CButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CButton>(parameters);
}

void CPaneBuilder<CButton>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    auto& button = static_cast<CButton&>(pane);
    button.SetGraphic(MakeGraphic(&button, owner));
    CPaneBuilder<CCustomButton>::ReadKeys(pane, owner);
}

void CPaneBuilder<CIconButton>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CButton>::AppendRows(rows);
    rows.push_back(kIconRows);
}

std::unique_ptr<CPane> CPaneBuilder<CIconButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CIconButton>(parameters);
}

void CPaneBuilder<CIconButton>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CButton>::ReadKeys(pane, owner);
    const CPropertyReader reader = owner.Properties();
    auto& button = static_cast<CIconButton&>(pane);
    std::int32_t x = reader.Integer(kIconOffset);
    std::int32_t y = x;
    reader.TryInteger(kIconOffsetX.key, x);
    reader.TryInteger(kIconOffsetY.key, y);
    button.SetIcon(ReadIcon(reader));
    button.SetIconOffset({static_cast<double>(x), static_cast<double>(y)});
}

Point CPaneBuilder<CIconButton>::NaturalSize(const LayoutOwner& owner) const
{
    CIconButton button;
    button.SetGraphic(MakeGraphic(nullptr, owner));
    button.SetIcon(ReadIcon(owner.Properties()));
    return button.GetNaturalSize();
}

std::unique_ptr<CPane>
CPaneBuilder<CIconButtonDropDown>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CIconButtonDropDown>(parameters);
}

Point CPaneBuilder<CIconButtonDropDown>::NaturalSize(const LayoutOwner& owner) const
{
    const Point icon = CPaneBuilder<CIconButton>::NaturalSize(owner);
    return {icon.x + CIconButtonDropDown::kArrowWidth, icon.y};
}

std::unique_ptr<CPane> CPaneBuilder<CToolButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CToolButton>(parameters);
}

EButtonStyle CPaneBuilder<CSystemButton>::DefaultStyle() const
{
    switch (DefaultKind()) {
    case kCheckButton:
        return kButtonStyle_Check;
    case kRadioButton:
        return kButtonStyle_Radio;
    default:
        return kButtonStyle_Push;
    }
}

std::unique_ptr<CPane> CPaneBuilder<CSystemButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CSystemButton>(parameters);
}

std::unique_ptr<CPane> CPaneBuilder<CPushButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CPushButton>(parameters);
}

std::unique_ptr<CPane> CPaneBuilder<CCheckButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CCheckButton>(parameters);
}

std::unique_ptr<CPane> CPaneBuilder<CRadioButton>::MakePane(const PaneParameters& parameters) const
{
    return MakeButton<CRadioButton>(parameters);
}

} // namespace Kesto
