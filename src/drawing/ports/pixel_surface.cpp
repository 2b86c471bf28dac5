#include "drawing/ports/pixel_surface.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>

namespace Kesto {
namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;

std::int32_t Width(const PixelRect& rect)
{
    return rect.right - rect.left;
}

// T[alpha][value] of the blend table for eight channels of 16 bits.
__m128i Weigh(__m128i values, __m128i alphas)
{
    const __m128i product = _mm_add_epi16(_mm_mullo_epi16(values, alphas), _mm_set1_epi16(128));
    return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
}

// 255 - alpha in all four channels of two pixels of 16 bits a channel.
__m128i Transparency(__m128i pixels)
{
    const __m128i alphas = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pixels, 0xFF), 0xFF);
    return _mm_sub_epi16(_mm_set1_epi16(255), alphas);
}

__m128i Over(__m128i source, __m128i dest)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i low =
        Weigh(_mm_unpacklo_epi8(dest, zero), Transparency(_mm_unpacklo_epi8(source, zero)));
    const __m128i high =
        Weigh(_mm_unpackhi_epi8(dest, zero), Transparency(_mm_unpackhi_epi8(source, zero)));
    return _mm_adds_epu8(source, _mm_packus_epi16(low, high));
}

__m128i LoadPixel(std::uint32_t pixel)
{
    return _mm_cvtsi32_si128(static_cast<int>(pixel));
}

std::uint32_t StorePixel(__m128i pixel)
{
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(pixel));
}

bool IsOpaque(std::uint32_t pixel)
{
    return pixel >> 24 == 255;
}

std::uint32_t Over(std::uint32_t source, std::uint32_t dest)
{
    return StorePixel(Over(LoadPixel(source), LoadPixel(dest)));
}

void FillRow(std::uint32_t* row, std::int32_t count, std::uint32_t pixel)
{
    const __m128i four = _mm_set1_epi32(static_cast<int>(pixel));
    std::int32_t x = 0;
    for (; x + 4 <= count; x += 4)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row + x), four);
    for (; x < count; ++x)
        row[x] = pixel;
}

void FillRowByPixel(const CPixelSurface& surface, const PixelRect& rect, std::int32_t y,
                    const CPixelBrush& brush)
{
    std::uint32_t* const row = surface.At(0, y);
    for (std::int32_t x = rect.left; x < rect.right; ++x) {
        const std::uint32_t pixel = brush.PixelAt(x, y);
        row[x] =
            brush.transfer == kTransfer_Xor ? row[x] ^ (pixel & kColourBits) : Over(pixel, row[x]);
    }
}

} // namespace

std::uint32_t CPixelBrush::PixelAt(std::int32_t x, std::int32_t y) const
{
    const std::uint32_t column = static_cast<std::uint32_t>(x - origin.x) & 7;
    const std::uint32_t row = static_cast<std::uint32_t>(y - origin.y) & 7;
    return (pattern >> (63 - 8 * row - column) & 1) != 0 ? pixel : second;
}

CPixelSurface SurfaceOf(const Platform::Bitmap& bitmap)
{
    if (bitmap.Bits() == nullptr || bitmap.PixelBits() != 32)
        return {};
    return {bitmap.Bits(), bitmap.RowBytes(), {bitmap.Width(), bitmap.Height()}};
}

CPixelBrush SolidPixels(Colour colour)
{
    CPixelBrush brush;
    brush.pixel = Platform::PremultipliedPixel(colour);
    return brush;
}

void FillPixels(const CPixelSurface& surface, const PixelRect& rect, const CPixelBrush& brush)
{
    const bool plain = brush.pattern == CBrush::kSolid && brush.transfer == kTransfer_Copy &&
                       IsOpaque(brush.pixel);
    for (std::int32_t y = rect.top; y < rect.bottom; ++y) {
        if (plain)
            FillRow(surface.At(rect.left, y), Width(rect), brush.pixel);
        else
            FillRowByPixel(surface, rect, y, brush);
    }
}

void BlendRow(const std::uint32_t* source, std::uint32_t* dest, std::int32_t count)
{
    std::int32_t x = 0;
    for (; x + 4 <= count; x += 4) {
        const __m128i upper = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + x));
        __m128i* const place = reinterpret_cast<__m128i*>(dest + x);
        // Most of a picture is either not there or opaque.
        if (_mm_movemask_epi8(_mm_cmpeq_epi32(upper, _mm_setzero_si128())) == 0xFFFF)
            continue;
        const __m128i opaque = _mm_cmpeq_epi8(upper, _mm_set1_epi8(-1));
        if ((_mm_movemask_epi8(opaque) & 0x8888) == 0x8888)
            _mm_storeu_si128(place, upper);
        else
            _mm_storeu_si128(place, Over(upper, _mm_loadu_si128(place)));
    }
    for (; x < count; ++x)
        dest[x] = Over(source[x], dest[x]);
}

void CopyPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                const PixelPoint& at)
{
    const std::size_t bytes = static_cast<std::size_t>(Width(rect)) * sizeof(std::uint32_t);
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        std::memcpy(dest.At(at.x, at.y + y - rect.top), source.At(rect.left, y), bytes);
}

void BlendPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                 const PixelPoint& at)
{
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        BlendRow(source.At(rect.left, y), dest.At(at.x, at.y + y - rect.top), Width(rect));
}

void MovePixels(const CPixelSurface& surface, const PixelRect& rect, const PixelPoint& at)
{
    const std::size_t bytes = static_cast<std::size_t>(Width(rect)) * sizeof(std::uint32_t);
    const std::int32_t rows = rect.bottom - rect.top;
    const bool up = at.y <= rect.top; // then from the top, so that no row is overwritten too early
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = up ? i : rows - 1 - i;
        std::memmove(surface.At(at.x, at.y + row), surface.At(rect.left, rect.top + row), bytes);
    }
}

} // namespace Kesto
