#include "platform/system/linux/callee.h"

int Unreachable()
{
    return 0;
}
