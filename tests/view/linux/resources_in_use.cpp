#include "view/resources_in_use.h"

#include <malloc.h>

// The sanitizers have a heap of their own.
extern "C" [[gnu::weak]] std::size_t __sanitizer_get_current_allocated_bytes();

ResourcesInUse CountResources()
{
    return {__sanitizer_get_current_allocated_bytes != nullptr
                ? __sanitizer_get_current_allocated_bytes()
                : mallinfo2().uordblks};
}
