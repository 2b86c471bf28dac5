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

// What the host does in its turns while this lives, which ends before those that were there
// earlier: in one of theirs, another module's dialog may come up. Without any a turn does nothing.
class HostTurn {
public:
    // True: it filled in an event. It must not throw.
    using Take = std::function<bool(HostInputEvent& event)>;

    explicit HostTurn(Take take);
    ~HostTurn();
    HostTurn(const HostTurn&) = delete;
    HostTurn& operator=(const HostTurn&) = delete;

    // What was done in turns before this one.
    bool TakeOuter(HostInputEvent& event) const;

private:
    friend struct TurnCalls;

    Take fTake;
    HostTurn* fOuter;
};

} // namespace Host
