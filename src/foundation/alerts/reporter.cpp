#include "foundation/alerts/reporter.h"

#include "foundation/alerts/alert.h"

#include <utility>

namespace Kesto {

// An error without a task becomes the task: the alert's large line is never the empty one.
void CReporter::Report(const CException& e)
{
    if (e.IsQuiet())
        return;
    if (!e.IsAlert()) {
        BeepAlert();
        return;
    }
    CText task;
    CText error;
    e.GetTaskText(task);
    e.GetErrorText(error);
    if (task.IsEmpty())
        task = std::exchange(error, CText());
    if (task.IsEmpty())
        task = "$$$/Kesto/Reporter/Default=The operation could not be completed.";
    ShowAlert(AlertButtons::kOK, AlertIcon::kStop, AlertModality::kTask, task, error,
              "$$$/Kesto/Reporter/Title=Error");
}

void CReporter::ReportUnknown()
{
    Report(CException());
}

} // namespace Kesto
