// What a number field says about a text that it had to correct.
#include "controls/fields/edit_number.h"
#include "foundation/alerts/alert.h"
#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"
#include "view/process/process.h"
#include "view/tree/view_hold.h"

namespace Kesto {

struct CEditNumber::Alert {
    std::uint32_t option; // that turns it off
    const char* title;
    const char* message;
};

// For as long as an alert is up, what its pump delivers commits nothing and starts no other one.
class CEditNumber::CAlertIsUp {
public:
    explicit CAlertIsUp(CEditNumber& field)
        : fField(field), fSuppressed(field.HasTextOption(kText_NoCommit))
    {
        fField.PutTextFlag(kText_AlertIsUp | kText_NoCommit, true);
    }
    ~CAlertIsUp()
    {
        fField.PutTextFlag(kText_AlertIsUp, false);
        fField.PutTextFlag(kText_NoCommit, fSuppressed);
    }
    CAlertIsUp(const CAlertIsUp&) = delete;
    CAlertIsUp& operator=(const CAlertIsUp&) = delete;

private:
    CEditNumber& fField; // in a hold
    bool fSuppressed;
};

bool CEditNumber::ShowRangeAlert()
{
    return ShowFieldAlert({kEdit_NoRangeAlert, "$$$/Kesto/Alert/OutOfRange/Title=Out of Range",
                           "$$$/Kesto/Alert/OutOfRange/Message=A value between ^0 and ^1 "
                           "is^rrequired. Closest value inserted."});
}

bool CEditNumber::ShowInvalidAlert()
{
    return ShowFieldAlert({kEdit_NoInvalidValueAlert,
                           "$$$/Kesto/Alert/InvalidNumericEntry/Title=Invalid Numeric Entry",
                           "$$$/Kesto/Alert/InvalidNumericEntry/Message=Invalid numeric entry. A "
                           "value between ^0 and ^1 is required.  Previous value inserted."});
}

// The alert runs the event pump, so the field may be asked again, or be destroyed, before the
// alert is answered.
// The title is the process's, if it has one.
bool CEditNumber::ShowFieldAlert(const Alert& alert)
{
    if (HasTextOption(alert.option | kText_AlertIsUp) || !IsForeground() || !IsVisible() ||
        !IsUsable() || !IsActive())
        return false;
    CText message = alert.message;
    Localize(message);
    ReplaceArgument(message, 0, ValueToText(fRules.minimum));
    ReplaceArgument(message, 1, ValueToText(fRules.maximum));
    CProcess* const process = CProcess::Current();
    const CText title = process != nullptr ? process->GetAlertTitle() : CText();
    const CViewHold hold(*this);
    const CAlertIsUp isUp(*this);
    ShowAlert(AlertButtons::kOK, AlertIcon::kWarning, AlertModality::kTask, message, {},
              title.IsEmpty() ? CText(alert.title) : title);
    return true;
}

} // namespace Kesto
