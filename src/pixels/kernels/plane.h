// One plane of pixels as the kernels' inner loops see it: a first pixel, a row distance in bytes, a
// size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Kesto::Kernels {

template <class T>
struct Plane {
    using Byte = std::conditional_t<std::is_const_v<T>, const std::byte, std::byte>;

    T* fPixels = nullptr;
    std::ptrdiff_t fRowBytes = 0;
    std::int32_t fWidth = 0;
    std::int32_t fHeight = 0;

    T* Row(std::int32_t y) const
    {
        return reinterpret_cast<T*>(reinterpret_cast<Byte*>(fPixels) + y * fRowBytes);
    }

    operator Plane<const T>() const requires(!std::is_const_v<T>)
    {
        return {fPixels, fRowBytes, fWidth, fHeight};
    }
};

} // namespace Kesto::Kernels
