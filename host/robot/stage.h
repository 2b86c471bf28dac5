// A stage: the windows that a robot's script is played on. They are reached through the turns of a
// host; what they look like is asked for directly.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace Host {

class Stage {
public:
    // The description of an open window, by its native handle; null if there is none any more. Only
    // in a turn.
    virtual nlohmann::ordered_json Describe(void* window) = 0;

protected:
    ~Stage() = default;
};

} // namespace Host
