#include "plugin/filter/filter.h"

#include "foundation/base/geometry.h"
#include "plugin/frame/lumograph_error.h"

namespace Project {

bool PFilter::SplitMemory(int32_t total, int32_t& first, int32_t& second)
{
    first = static_cast<int32_t>(Kesto::RoundHalfAway(total * 0.8));
    second = total - first;
    return true;
}

bool PFilter::Forward(int16_t selector)
{
    int16_t code = kHostNoError;
    DoPluginMain(selector, GetFilterRecord(), pluginData, &code);
    if (code != kHostNoError)
        throw Kesto::CLumographError(code);
    return true;
}

} // namespace Project
