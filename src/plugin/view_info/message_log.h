// Tells a host of the messages that climb to windows.
#pragma once

#include "lumograph/window_requests.h"

namespace Kesto {

// From now on to this log, which must outlive that; null for none.
void StartMessageLog(const HostMessageLog* log);

} // namespace Kesto
