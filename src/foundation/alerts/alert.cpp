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

// The message box that a set of buttons asks for, and which of them are its second and third.
struct ButtonRow {
    std::uint32_t flags;
    AlertButton second;
    AlertButton third;
};

constexpr ButtonRow kOK = {0, AlertButton::kNone, AlertButton::kNone};
constexpr ButtonRow kOKCancel = {1, AlertButton::kCancel, AlertButton::kNone};
constexpr ButtonRow kAbortRetryIgnore = {2, AlertButton::kRetry, AlertButton::kIgnore};
constexpr ButtonRow kYesNoCancel = {3, AlertButton::kNo, AlertButton::kCancel};
constexpr ButtonRow kYesNo = {4, AlertButton::kNo, AlertButton::kNone};
constexpr ButtonRow kRetryCancel = {5, AlertButton::kCancel, AlertButton::kNone};

// By AlertButtons.
constexpr std::array kButtonRows = {kOK,          kOKCancel,    kYesNo,
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

std::uint32_t ButtonFlags(AlertButtons buttons, AlertButton defaultButton)
{
    const ButtonRow& row = EntryAt(kButtonRows, buttons);
    if (defaultButton == AlertButton::kNone)
        return row.flags;
    return row.flags | (defaultButton == row.second  ? kSecondButton
                        : defaultButton == row.third ? kThirdButton
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

CAlertHook* gHook = nullptr;

} // namespace

AlertButton ShowAlert(AlertButtons buttons, AlertIcon icon, AlertModality modality, CText message,
                      CText explanation, CText title, AlertButton defaultButton,
                      Platform::NativeWindow parent)
{
    AlertBox box;
    box.flags = ButtonFlags(buttons, defaultButton) | EntryAt(kIconFlags, icon) |
                EntryAt(kModalityFlags, modality) | kSetForeground;
    box.text = Localize(message);
    if (!Localize(explanation).IsEmpty())
        box.text = CText::Join({message.View(), "\n\n", explanation.View()});
    box.title = Localize(title);
    box.parent = parent != nullptr ? parent : CProcessServices::Current().AlertParent();
    if (gHook != nullptr)
        return gHook->Show(box);
    return ButtonFrom(
        Platform::ShowMessageBox(box.flags, box.title.View(), box.text.View(), box.parent));
}

void BeepAlert()
{
    if (gHook != nullptr)
        gHook->Beep();
    else
        Platform::PlayAlertSound(kExclamationSound);
}

CAlertHook::CAlertHook() : fFormer(std::exchange(gHook, this)) {}

CAlertHook::~CAlertHook()
{
    gHook = fFormer;
}

} // namespace Kesto
