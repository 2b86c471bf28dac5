// Which window the user works with.
#pragma once

#include "platform/message_queue.h"

namespace Platform {

// True when a window of this process is in front of those of all others. A system without a screen has no others.
bool IsProcessForeground();

} // namespace Platform
