#include "view/window/window_kinds.h"

#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

namespace Kesto {
namespace {

CWindowPlan OfKind(CWindowPlan plan, EWindowKind kind)
{
    plan.kind = kind;
    return plan;
}

} // namespace

CDialog::CDialog(CWindowPlan plan)
    : CWindow(plan.kind == kWin_Alert ? plan : OfKind(plan, kWin_Dialog))
{
}

bool CDialog::HandleCommand(CCommandMessage& message)
{
    if (message.fID != kDefault_Ok && message.fID != kDefault_Cancel)
        return CWindow::HandleCommand(message);
    const CViewHold hold(*this);
    const bool isOk = message.fID == kDefault_Ok;
    if (!isOk)
        ResignBullseyeToParent(true);
    if (!hold.IsOver())
        EndRun(isOk ? 1 : 0);
    return true;
}

CAlert::CAlert(CWindowPlan plan) : CDialog(OfKind(plan, kWin_Alert)) {}

CDocumentWindow::CDocumentWindow(CWindowPlan plan)
    : CWindow(plan.kind == kWin_MDIDocument || plan.kind == kWin_DocumentSeamless
                  ? plan
                  : OfKind(plan, kWin_Document))
{
}

CFloater::CFloater(CWindowPlan plan) : CWindow(OfKind(plan, kWin_Palette)) {}

CToolbar::CToolbar(CWindowPlan plan) : CWindow(OfKind(plan, kWin_Toolbar)) {}

CPopup::CPopup(CWindowPlan plan) : CWindow(OfKind(plan, kWin_Popup)) {}

void CPopup::OnStop()
{
    const CViewHold hold(*this);
    CWindow::OnStop();
    CCommandMessage closed(this, kMessage_PopupClosed);
    if (!hold.IsOver())
        SendToParent(closed);
}

CMDIFrame::CMDIFrame(CWindowPlan plan) : CWindow(OfKind(plan, kWin_MDIFrame)) {}

} // namespace Kesto
