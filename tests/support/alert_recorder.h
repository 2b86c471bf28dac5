// Stands in for the user at message boxes.
#pragma once

#include "foundation/alert.h"

#include <string>
#include <vector>

namespace Testing {

// Catches all alerts while it lives, so that no message box ever waits for somebody.
class AlertRecorder : public Kesto::CAlertHook {
public:
    std::vector<std::string> texts;
    int beeps = 0;

    Kesto::AlertButton Show(const Kesto::AlertBox& box) override
    {
        texts.emplace_back(box.text.View());
        return Kesto::AlertButton::kOK;
    }
    void Beep() override { ++beeps; }
};

} // namespace Testing
