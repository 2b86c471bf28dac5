// CResourceName, what a resource is asked for by: a number or a name.
#pragma once

#include "foundation/base/text.h"

#include <cstdint>
#include <string>

namespace Kesto {

class CResourceName {
public:
    CResourceName(std::int32_t id) : fText(std::to_string(id)), fIsNumber(true) {}
    template <TextLike T>
    CResourceName(const T& name) : fText(std::string_view(name)), fIsNumber(false)
    {
    }

    // The name, or the number in decimal.
    const std::string& Text() const { return fText; }
    bool IsNumber() const { return fIsNumber; }

private:
    std::string fText;
    bool fIsNumber;
};

} // namespace Kesto
