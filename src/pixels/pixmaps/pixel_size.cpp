#include "pixels/pixmaps/pixel_size.h"

#include <limits>
#include <stdexcept>

namespace Kesto {

std::int32_t ToInt32(std::int64_t value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (value < Limits::min() || value > Limits::max())
        throw std::length_error("A pixmap's size or place does not fit in 32 bits");
    return static_cast<std::int32_t>(value);
}

} // namespace Kesto
