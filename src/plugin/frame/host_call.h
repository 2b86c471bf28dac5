// One call of the host, as an entry received it.
#pragma once

#include <cstdint>

namespace Kesto {

struct HostCall {
    int16_t selector;
    void* record; // of the kind that the entry's group and selector say, or null
    intptr_t* data;
};

} // namespace Kesto
