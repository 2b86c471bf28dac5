#include "drawing/ports/pixel_surface.h"

#include "pixels/kernels/kernel_table.h"
#include "platform/graphics/blend.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstring>

namespace Kesto {
namespace {

constexpr std::uint32_t kColourBits = 0x00FFFFFF;
constexpr std::int32_t kNarrow = 128; // pixels of a row

bool IsOpaque(std::uint32_t pixel)
{
    return pixel >> 24 == 255;
}

// A row of less than four pixels has no vector; of others all stores but the first and the last,
// which overlap their neighbours, are aligned: those that straddle two cache lines take twice as
// long.
void FillNarrowRow(std::uint32_t* row, std::int32_t count, std::uint32_t pixel)
{
    std::uint32_t* const end = row + count;
    if (count < 4) {
        std::fill(row, end, pixel);
        return;
    }
    const __m128i four = _mm_set1_epi32(static_cast<int>(pixel));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(row), four);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(end - 4), four);
    row += 4 - reinterpret_cast<std::uintptr_t>(row) / sizeof(std::uint32_t) % 4;
    for (; row + 4 <= end; row += 4)
        _mm_store_si128(reinterpret_cast<__m128i*>(row), four);
}

// Asks for rows before they are wanted: each lies in another memory page than the one above, where
// the processor doesn't look by itself. It does so along wide rows.
class CRowsAhead {
public:
    // Asks for the first rows of a rectangle.
    [[gnu::always_inline]] CRowsAhead(const CPixelSurface& surface, const PixelRect& rect)
        : fSurface(surface), fRect(rect), fNarrow(rect.Width() <= kNarrow)
    {
        const std::int32_t end = std::min(rect.top + kRows, rect.bottom);
        for (std::int32_t y = rect.top; fNarrow && y < end; ++y)
            FetchRow(y);
    }
    // Row y comes now.
    [[gnu::always_inline]] void Fetch(std::int32_t y) const
    {
        if (fNarrow && y + kRows < fRect.bottom)
            FetchRow(y + kRows);
    }

private:
    static constexpr std::int32_t kRows = 16;

    // Inlined always: a function that only fetches has no effect for the compiler, which drops it.
    [[gnu::always_inline]] void FetchRow(std::int32_t y) const
    {
        constexpr std::int32_t kLine = 16;
        const std::uint32_t* const end = fSurface.At(fRect.right, y);
        for (const std::uint32_t* at = fSurface.At(fRect.left, y); at < end; at += kLine)
            _mm_prefetch(reinterpret_cast<const char*>(at), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(end - 1), _MM_HINT_T0);
    }

    CPixelSurface fSurface;
    PixelRect fRect;
    bool fNarrow;
};

// Takes copies: the compiler would have to read others anew after each vector that is stored.
void FillNarrow(CPixelSurface surface, PixelRect rect, std::uint32_t pixel)
{
    const CRowsAhead ahead(surface, rect);
    for (std::int32_t y = rect.top; y < rect.bottom; ++y) {
        ahead.Fetch(y);
        FillNarrowRow(surface.At(rect.left, y), rect.Width(), pixel);
    }
}

void FillWide(const CPixelSurface& surface, const PixelRect& rect, std::uint32_t pixel)
{
    const auto fill = Kernels::ActiveKernels().fill;
    const std::size_t bytes = static_cast<std::size_t>(rect.Width()) * sizeof pixel;
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        fill(pixel, reinterpret_cast<std::uint8_t*>(surface.At(rect.left, y)), bytes);
}

void FillRowByPixel(const CPixelSurface& surface, const PixelRect& rect, std::int32_t y,
                    const CPixelBrush& brush)
{
    std::uint32_t* const row = surface.At(0, y);
    for (std::int32_t x = rect.left; x < rect.right; ++x) {
        const std::uint32_t pixel = brush.PixelAt(x, y);
        row[x] = brush.transfer == kTransfer_Xor ? row[x] ^ (pixel & kColourBits)
                                                 : Platform::PixelOver(pixel, row[x]);
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
    if (plain)
        return rect.Width() <= kNarrow ? FillNarrow(surface, rect, brush.pixel)
                                       : FillWide(surface, rect, brush.pixel);
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        FillRowByPixel(surface, rect, y, brush);
}

void CopyPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                const PixelPoint& at)
{
    const std::size_t bytes = static_cast<std::size_t>(rect.Width()) * sizeof(std::uint32_t);
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        std::memcpy(dest.At(at.x, at.y + y - rect.top), source.At(rect.left, y), bytes);
}

void BlendPixels(const CPixelSurface& source, const PixelRect& rect, const CPixelSurface& dest,
                 const PixelPoint& at)
{
    const auto lay = Kernels::ActiveKernels().layOver;
    const CRowsAhead ahead(dest, {at.x, at.y, at.x + rect.Width(), at.y + rect.bottom - rect.top});
    for (std::int32_t y = rect.top; y < rect.bottom; ++y) {
        const std::int32_t row = at.y + y - rect.top;
        ahead.Fetch(row);
        lay(source.At(rect.left, y), dest.At(at.x, row), static_cast<std::size_t>(rect.Width()));
    }
}

void MovePixels(const CPixelSurface& surface, const PixelRect& rect, const PixelPoint& at)
{
    const std::size_t bytes = static_cast<std::size_t>(rect.Width()) * sizeof(std::uint32_t);
    const std::int32_t rows = rect.bottom - rect.top;
    const bool up = at.y <= rect.top; // then from the top, so that no row is overwritten too early
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = up ? i : rows - 1 - i;
        std::memmove(surface.At(at.x, at.y + row), surface.At(rect.left, rect.top + row), bytes);
    }
}

} // namespace Kesto
