// What modules register while a window of theirs is up, and the turns that the host takes then.
#pragma once

#include "lumograph/view_info.h"

#include <functional>
#include <vector>

namespace Host {

const HostUIHooksSuite4* UIHooksSuite();

struct ViewInfoHook {
    HostViewInfoCallback callback;
    int32_t projectIndex;
    bool operator==(const ViewInfoHook&) const = default;
};

// Those that are registered now, the newest last.
const std::vector<ViewInfoHook>& ViewInfoHooks();

// What the host does in a turn, until another is set; true: it filled in an event. Without one a
// turn does nothing. It must not throw.
void SetTurn(std::function<bool(HostInputEvent& event)> turn);

} // namespace Host
