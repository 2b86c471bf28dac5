// What a window shows: which part of it waits to be painted, and how pixels get there.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

#include <span>
#include <vector>

namespace Platform {

// Adds to what waits to be painted; pixels of the content. kPaint comes when nothing more urgent
// waits.
void InvalidateWindow(NativeWindow window, std::span<const PixelRect> rects);
void InvalidateWindow(NativeWindow window);

// Takes away from it.
void ValidateWindow(NativeWindow window, std::span<const PixelRect> rects);

// Has it painted now, if anything waits.
void UpdateWindowNow(NativeWindow window);

// The answer to kPaint: for as long as it lives the window is being painted, and from the start
// nothing waits any more.
class PaintScope {
public:
    explicit PaintScope(NativeWindow window);
    ~PaintScope();
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    // What waited: rectangles that don't overlap, in pixels of the content, cut to it.
    std::span<const PixelRect> Rects() const { return fRects; }

private:
    NativeWindow fWindow;
    std::vector<PixelRect> fRects;
    std::intptr_t fNative = 0; // what the system paints on
};

// Shows these rectangles of a 32-bit bitmap in the same places of the content, where no child
// control lies. Within a PaintScope and outside of one.
void PresentBitmap(NativeWindow window, const Bitmap& bitmap, std::span<const PixelRect> rects);

// A picture of the content with its child controls, as it was presented last. False if there is
// none, or no memory for one.
bool PhotographWindow(NativeWindow window, Bitmap& picture);

} // namespace Platform
