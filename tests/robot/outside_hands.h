// Another program's hands on a display that nobody sees: xdotool's.
#pragma once

#include <memory>
#include <string>
#include <vector>

// On Linux it brings a display of its own; a Windows program has to be started on one.
class OutsideHands {
public:
    OutsideHands();
    ~OutsideHands();

    bool AreThere() const;

    // Seconds for what they do to come through the display.
    static double Patience();

    // Runs xdotool with these arguments and returns when it has ended. False if it can't be run.
    bool Do(const std::vector<std::string>& words) const;

private:
    struct Display;
    std::unique_ptr<Display> fDisplay;
};
