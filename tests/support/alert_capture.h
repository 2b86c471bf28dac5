// Answers the alerts of a test in the user's place, and keeps them.
#pragma once

#include "foundation/alerts/alert.h"

#include <string>
#include <vector>

class AlertCapture final : public Kesto::CAlertHook {
public:
    explicit AlertCapture(Kesto::AlertButton answer = Kesto::AlertButton::kOK) : fAnswer(answer) {}

    Kesto::AlertButton Show(const Kesto::AlertBox& box) override
    {
        boxes.push_back(box);
        texts.emplace_back(box.Text().View());
        return fAnswer;
    }
    void Beep() override { ++beeps; }

    std::vector<Kesto::AlertBox> boxes;
    std::vector<std::string> texts; // of the boxes
    int beeps = 0;

private:
    Kesto::AlertButton fAnswer;
};
