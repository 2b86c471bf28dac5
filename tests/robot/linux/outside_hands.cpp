#include "robot/outside_hands.h"

#include "support/virtual_display.h"

#include <cstdlib>

struct OutsideHands::Display : VirtualDisplay {};

OutsideHands::OutsideHands() : fDisplay(std::make_unique<Display>()) {}

OutsideHands::~OutsideHands() = default;

bool OutsideHands::AreThere() const
{
    return fDisplay->IsThere();
}

double OutsideHands::Patience()
{
    return 0.1;
}

bool OutsideHands::CanPlay(const std::string&)
{
    return true;
}

bool OutsideHands::Do(const std::vector<std::string>& words) const
{
    std::string command = "xdotool";
    for (const std::string& word : words)
        command += " '" + word + '\'';
    return std::system(command.c_str()) == 0;
}
