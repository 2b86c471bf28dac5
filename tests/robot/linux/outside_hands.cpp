#include "robot/outside_hands.h"

#include "support/virtual_display.h"

#include <cstdlib>

// Two monitors side by side, as the script for those wants them. The first one has the output,
// which would else be a monitor of its own.
struct OutsideHands::Display : VirtualDisplay {
    Display() : VirtualDisplay("1600x600x24")
    {
        fHasMonitors =
            std::system("xrandr --setmonitor '*left' 800/211x600/158+0+0 screen >/dev/null") == 0 &&
            std::system("xrandr --setmonitor right 800/211x600/158+800+0 none") == 0;
    }

    bool fHasMonitors;
};

OutsideHands::OutsideHands() : fDisplay(std::make_unique<Display>()) {}

OutsideHands::~OutsideHands() = default;

bool OutsideHands::AreThere() const
{
    return fDisplay->IsThere() && fDisplay->fHasMonitors;
}

double OutsideHands::Patience()
{
    return 0.1;
}

bool OutsideHands::Do(const std::vector<std::string>& words) const
{
    std::string command = "xdotool";
    for (const std::string& word : words)
        command += " '" + word + '\'';
    return std::system(command.c_str()) == 0;
}
