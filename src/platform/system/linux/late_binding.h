// Functions of shared libraries that are bound when they are first called. Drawing and windows
// stand on some fifty libraries, which take longer to load than a small picture to open; a host
// that shows neither never loads them.
//
// The build reads from the objects of this layer what they call of these libraries, and makes a row
// and a stub for each function (cmake/late_functions.py). The stub has the function's name and is
// seen within its module alone; it gives way to a function of that name which a program defines
// itself. It jumps to the address in its slot; while that is null, through CallLateFunction, which
// fills it. So callers call Cairo, Pango, XCB and xkbcommon as usual.
#pragma once

#include <atomic>
#include <cstdint>

namespace Platform {

struct LateFunction {
    const char* name;
    const char* library; // as the dynamic linker finds it
};

} // namespace Platform

// What the stubs name, without mangling. The index of a row is that of its slot.
extern "C" {
extern const Platform::LateFunction kLateFunctions[];
extern std::atomic<void*> gLateAddresses[];

// The address of a function, whose library is loaded if need be and then stays until the process
// ends: its threads and its globals may outlive the module that called it. Throws
// std::runtime_error with the dynamic linker's words if there is no such library or function; it
// reaches the stub's caller.
void* BindLateFunction(std::uint32_t index);
}
