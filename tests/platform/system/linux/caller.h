// The calls of the test of late binding; they lie in an archive, from which the stubs are made.
#pragma once

#include <string>

// A number that no wrong argument gives.
double CallWithManyArguments();

std::string CallWithOpenArguments();

int CallMissingLibrary();
