// A failure that carries a code of the host. A handler turns it back into the code; its text is for
// those who show it.
#pragma once

#include "foundation/errors/exceptions.h"

#include <cstdint>

namespace Kesto {

class CLumographError : public CException {
public:
    explicit CLumographError(int16_t code) : fCode(code) {}

    int16_t Code() const { return fCode; }

    // The text for the code, as a key with its default; a code that isn't in the table has a text
    // for all others.
    void GetErrorText(CText& out) const override;
    bool LeavesHandlers() const override { return true; }

private:
    int16_t fCode;
};

} // namespace Kesto
