#include "plugin/suites/host_properties.h"

namespace Kesto {

std::optional<intptr_t> CHostProperties::Read(uint32_t key) const
{
    if (fSuite == nullptr || fSuite->GetProperty == nullptr)
        return std::nullopt;
    constexpr int32_t kIndex = 0;
    intptr_t value = 0;
    void* handle = nullptr;
    if (fSuite->GetProperty(kLumographSignature, key, kIndex, &value, &handle) != kHostNoError)
        return std::nullopt;
    return value;
}

} // namespace Kesto
