#include "vex/inspector.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace Vex {
namespace {

constexpr Kesto::Colour kFrameColour{230, 0, 120};
constexpr std::int32_t kTextHeight = 13; // pixels

// The flags that hold, by the words for them.
std::string StateOf(const Kesto::CView& view)
{
    const std::pair<bool, const char*> states[] = {
        {!view.IsVisible(), "hidden"},
        {!view.IsUsable(), "disabled"},
        {view.IsBullseye(), "has the focus"},
        {view.IsTarget() && !view.IsBullseye(), "has the focus within"},
        {view.CanTabStopNow(), "a tab stop"},
    };
    std::string words;
    for (const auto& [holds, word] : states)
        if (holds)
            words.append(words.empty() ? "" : ", ").append(word);
    return words.empty() ? "visible and enabled" : words;
}

} // namespace

std::string WordsOf(const CBuiltLayout& layout, const Kesto::CView& view)
{
    const Kesto::Rect frame = view.GetFrame();
    const Kesto::PixelRect pixels = view.GetGlobalRect();
    const auto built = std::ranges::find(layout.Views(), &view, &BuiltView::view);
    std::ostringstream words;
    words << (built != layout.Views().end() ? built->className : "made by its window") << '\n';
    if (!view.GetID().IsNone())
        words << view.GetID().Name() << '\n';
    words << "at " << frame.left << ", " << frame.top << "  size " << frame.Width() << " x "
          << frame.Height() << "\npixels " << pixels.right - pixels.left << " x "
          << pixels.bottom - pixels.top << '\n'
          << StateOf(view);
    return words.str();
}

void CInspector::Toggle(const CBuiltLayout& layout)
{
    fIsOn = !fIsOn;
    Forget();
    layout.Root().InvalidateAll();
}

void CInspector::Forget()
{
    fShown.clear();
    fTip.Hide();
}

void CInspector::Follow(const CBuiltLayout& layout)
{
    Kesto::CView* const view = Kesto::CView::MouseView();
    Kesto::CWindow& window = layout.Root();
    if (!fIsOn || view == nullptr || view->GetContext() != &window)
        return;
    const std::string words = WordsOf(layout, *view);
    if (words == fShown)
        return;
    fShown = words;
    window.InvalidateAll();
    window.UpdateNow();
    Outline(window, *view);
    Platform::TipLook look;
    look.font.pixels = kTextHeight;
    fTip.Show(window.NativeHandle(), view->GetGlobalRect(), words, look);
}

// Over what has been painted; the next paint takes it away. It lies around the view, since a child
// of the system's covers its own pixels.
void CInspector::Outline(Kesto::CWindow& window, const Kesto::CView& view) const
{
    window.SetWindowOrigin({});
    window.ResetClip();
    const Kesto::Rect frame = view.GetFramePort();
    const double pixel = 1.0 / window.GetScale();
    const Kesto::Rect all = window.GetBounds();
    const Kesto::Rect around{
        std::max(frame.left - pixel, all.left), std::max(frame.top - pixel, all.top),
        std::min(frame.right + pixel, all.right), std::min(frame.bottom + pixel, all.bottom)};
    window.Frame(around, kFrameColour);
    const Kesto::PixelPoint size = window.GetClientPixels();
    window.PixelsDrawn(Kesto::CDeviceRegion({0, 0, size.x, size.y}));
}

} // namespace Vex
