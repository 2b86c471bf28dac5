#include "foundation/alerts/alert.h"

#include "foundation/base/process_services.h"
#include "foundation/localization/localize.h"

#include <array>
#include <utility>

namespace Kesto {
namespace {

constexpr std::uint32_t kExclamationSound = 0x30;
constexpr std::uint32_t kSetForeground = 0x10000;
constexpr std::uint32_t kSecondButton = 0x100;
constexpr std::uint32_t kThirdButton = 0x200;

// A set of buttons, and the flags of the message box that has them.
struct ButtonRow {
    std::uint32_t flags;
    std::array<AlertButton, 3> buttons;
};

using enum AlertButton;
constexpr ButtonRow kOnlyOK = {0, {AlertButton::kOK, kNone, kNone}};
constexpr ButtonRow kOKCancel = {1, {AlertButton::kOK, kCancel, kNone}};
constexpr ButtonRow kAbortRetryIgnore = {2, {kAbort, kRetry, kIgnore}};
constexpr ButtonRow kYesNoCancel = {3, {kYes, kNo, kCancel}};
constexpr ButtonRow kYesNo = {4, {kYes, kNo, kNone}};
constexpr ButtonRow kRetryCancel = {5, {kRetry, kCancel, kNone}};

// By AlertButtons.
constexpr std::array kButtonRows = {kOnlyOK,      kOKCancel,    kYesNo,
                                    kYesNoCancel, kRetryCancel, kAbortRetryIgnore,
                                    kYesNoCancel, kYesNo,       kYesNoCancel};
// By AlertIcon and AlertModality.
constexpr std::array<std::uint32_t, 5> kIconFlags = {0, 0x40, 0x20, 0x30, 0x10};
constexpr std::array<std::uint32_t, 3> kModalityFlags = {0, 0x2000, 0x1000};

// The entry of `table` at an enumerator; the first for a number outside of it.
template <class Table, class Index>
const auto& EntryAt(const Table& table, Index index)
{
    const auto i = static_cast<std::size_t>(index);
    return table[i < table.size() ? i : 0];
}

std::uint32_t ButtonFlags(const ButtonRow& row, AlertButton defaultButton)
{
    if (defaultButton == kNone)
        return row.flags;
    return row.flags | (defaultButton == row.buttons[1]   ? kSecondButton
                        : defaultButton == row.buttons[2] ? kThirdButton
                                                          : 0);
}

AlertButton ButtonFrom(Platform::BoxAnswer answer)
{
    using Platform::BoxAnswer;
    switch (answer) {
    case BoxAnswer::kOK:
        return AlertButton::kOK;
    case BoxAnswer::kCancel:
        return AlertButton::kCancel;
    case BoxAnswer::kAbort:
        return AlertButton::kAbort;
    case BoxAnswer::kRetry:
        return AlertButton::kRetry;
    case BoxAnswer::kIgnore:
        return AlertButton::kIgnore;
    case BoxAnswer::kYes:
        return AlertButton::kYes;
    case BoxAnswer::kNo:
        return AlertButton::kNo;
    case BoxAnswer::kNone:
        break;
    }
    return AlertButton::kNone;
}

CAlertHook* gYoungest = nullptr;

AlertButton ShowWith(CAlertHook* hook, const AlertBox& box)
{
    if (hook != nullptr)
        return hook->Show(box);
    return ButtonFrom(
        Platform::ShowMessageBox(box.Flags(), box.title.View(), box.Text().View(), box.parent));
}

void BeepWith(CAlertHook* hook)
{
    if (hook != nullptr)
        hook->Beep();
    else
        Platform::PlayAlertSound(kExclamationSound);
}

} // namespace

std::array<AlertButton, 3> AlertBox::Buttons() const
{
    return EntryAt(kButtonRows, buttons).buttons;
}

std::uint32_t AlertBox::Flags() const
{
    return ButtonFlags(EntryAt(kButtonRows, buttons), defaultButton) | EntryAt(kIconFlags, icon) |
           EntryAt(kModalityFlags, modality) | kSetForeground;
}

CText AlertBox::Text() const
{
    return explanation.IsEmpty() ? message
                                 : CText::Join({message.View(), "\n\n", explanation.View()});
}

AlertButton ShowAlert(AlertButtons buttons, AlertIcon icon, AlertModality modality, CText message,
                      CText explanation, CText title, AlertButton defaultButton,
                      Platform::NativeWindow parent)
{
    const AlertBox box{
        .buttons = buttons,
        .icon = icon,
        .modality = modality,
        .message = Localize(message),
        .explanation = Localize(explanation),
        .title = Localize(title),
        .defaultButton = defaultButton,
        .parent = parent != nullptr ? parent : CProcessServices::Current().AlertParent(),
    };
    return ShowWith(gYoungest, box);
}

void BeepAlert()
{
    BeepWith(gYoungest);
}

CAlertHook::CAlertHook(Place place)
{
    CAlertHook** link = &gYoungest;
    while (place == Place::kLast && *link != nullptr)
        link = &(*link)->fOlder;
    fOlder = std::exchange(*link, this);
}

CAlertHook::~CAlertHook()
{
    CAlertHook** link = &gYoungest;
    while (*link != this)
        link = &(*link)->fOlder;
    *link = fOlder;
}

AlertButton CAlertHook::Show(const AlertBox& box)
{
    return ShowWith(fOlder, box);
}

void CAlertHook::Beep()
{
    BeepWith(fOlder);
}

} // namespace Kesto
