// The small window that tells what the thing under the mouse is for.
#pragma once

#include "platform/graphics/colour.h"
#include "platform/graphics/fonts.h"
#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

#include <memory>
#include <string_view>

namespace Platform {

struct TipLook {
    FontSpec font;
    Colour text;
    Colour ground{255, 255, 225, 255};
    Colour edge;
    std::int32_t margin = 3; // between edge and text, in pixels
};

class TipWindow {
public:
    TipWindow();
    ~TipWindow();
    TipWindow(const TipWindow&) = delete;
    TipWindow& operator=(const TipWindow&) = delete;

    // Shows the text, whose line feeds end lines, near a place of the screen that it leaves free:
    // below it, or above where the monitor ends. Without effect if the system has no window left.
    void Show(NativeWindow owner, const PixelRect& place, std::string_view text,
              const TipLook& look);
    void Hide();
    bool IsShown() const;

private:
    class Window;
    std::unique_ptr<Window> fWindow;
};

} // namespace Platform
