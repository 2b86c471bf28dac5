// The one function that the module exports besides its entries: hosts find the property list
// through it.
#include "platform/system/resources.h"

extern "C" [[gnu::visibility("default")]] const void* ModuleResource(const char* type,
                                                                     const char* name, size_t* size)
{
    if (type == nullptr || name == nullptr)
        return nullptr;
    const auto bytes = Platform::FindModuleResource(type, name);
    if (size != nullptr)
        *size = bytes ? bytes->size() : 0;
    return bytes ? bytes->data() : nullptr;
}
