// CAlertShower, which shows alerts as windows of our own once there are windows at all.
//
// A service, made with the first window. Younger hooks come first; without a process to be a child
// of, an alert goes on to the system's message box.
#pragma once

#include "foundation/alerts/alert.h"

namespace Kesto {

class CAlertShower : public CAlertHook {
public:
    CAlertShower() : CAlertHook(Place::kLast) {}

    AlertButton Show(const AlertBox& box) override;
};

} // namespace Kesto
