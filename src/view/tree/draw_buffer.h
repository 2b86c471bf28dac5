// CDrawBuffer, the picture that views with kView_DrawBuffer draw into before they appear. One for
// the process; it grows and never shrinks.
#pragma once

#include "drawing/ports/image.h"
#include "foundation/base/service.h"

#include <cstdint>
#include <optional>

namespace Kesto {

class CDrawBuffer {
public:
    // At least so many pixels each way, and never fewer than this, so that small controls share one
    // size. What is in them is undefined. Throws CSystemError when there can be no such picture.
    static constexpr std::int32_t kSmallest = 128;
    CImage* Take(std::int32_t width, std::int32_t height);

private:
    std::optional<CImage> fImage;
};

} // namespace Kesto
