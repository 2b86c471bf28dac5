#include "platform/system/linux/caller.h"

#include "platform/system/linux/callee.h"

#include <array>

double CallWithManyArguments()
{
    return WeightedSum(0, 1, 0, 0, 1, 1, 0, 1, 0, 1, 1, 0, 1, 1, 1, 1);
}

std::string CallWithOpenArguments()
{
    std::array<char, 64> room{};
    Print(room.data(), room.size(), "%d %.2f %s %ld", 7, 0.25, "words", -3L);
    return room.data();
}

int CallMissingLibrary()
{
    return Unreachable();
}
