// The suites that a module asks for by name and version, a row each.
#pragma once

#include "lumograph/suites.h"

namespace Host {

const HostBasicSuite* BasicSuite();

// Suites that were acquired and not released, of all names.
int AcquiredSuites();

} // namespace Host
