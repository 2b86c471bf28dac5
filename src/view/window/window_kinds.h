// The windows of fixed kinds. Each gives a plan its kind, and features where the kind has its own.
#pragma once

#include "view/window/window.h"

namespace Kesto {

// A dialog; Run shows it and returns when it has been closed: 1 by OK, 0 by Cancel or the close
// box, unless a class says otherwise. OK and the close box ask whoever has the focus, Cancel
// doesn't.
class CDialog : public CWindow {
public:
    explicit CDialog(CWindowPlan plan);
    bool HandleCommand(CCommandMessage& message) override;
};

// A dialog that tells or asks something.
class CAlert : public CDialog {
public:
    explicit CAlert(CWindowPlan plan);
};

class CDocumentWindow : public CWindow {
public:
    explicit CDocumentWindow(CWindowPlan plan);
};

// A palette above the other windows, which stays inactive.
class CFloater : public CWindow {
public:
    explicit CFloater(CWindowPlan plan);
};

class CToolbar : public CWindow {
public:
    explicit CToolbar(CWindowPlan plan);
};

// Open until something else is clicked; sends kMessage_PopupClosed up when it closes.
class CPopup : public CWindow {
public:
    explicit CPopup(CWindowPlan plan);
    void OnStop() override;
};

// The frame of many documents.
class CMDIFrame : public CWindow {
public:
    explicit CMDIFrame(CWindowPlan plan);
};

} // namespace Kesto
