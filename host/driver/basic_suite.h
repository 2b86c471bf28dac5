// The suites that a module asks for by name and version, a row each.
#pragma once

#include "lumograph/suites.h"

namespace Host {

const HostBasicSuite* BasicSuite();

// Changes one of the properties that the host has, for all later questions. False: it has no such.
bool SetHostProperty(uint32_t key, intptr_t value);

// Suites that were acquired and not released, of all names.
int AcquiredSuites();

} // namespace Host
