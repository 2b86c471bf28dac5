#include "view/window/size_box.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/process/tracker.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

#include <algorithm>

namespace Kesto {
namespace {

// Follows the mouse with the window's bottom right corner. Broken off, it wants the size that the
// window had.
class CLiveResizer : public CTracker {
public:
    CLiveResizer(CWindow& window, const CMouseEvent& press, bool isLive)
        : CTracker(kMouseButton_Primary), fWindow(window),
          fStart(press.fPoint), fSize{window.GetBounds().Width(), window.GetBounds().Height()},
          fWanted(fSize), fIsLive(isLive)
    {
    }

    bool Track(const CMouseEvent& event) override
    {
        const double scale = fWindow.GetScaleFactor();
        const CSizeLimits limits = fWindow.GetSizeLimits();
        fWanted = {std::clamp(fSize.x + (event.fPoint.x - fStart.x) / scale, limits.minimum.x,
                              std::max(limits.maximum.x, limits.minimum.x)),
                   std::clamp(fSize.y + (event.fPoint.y - fStart.y) / scale, limits.minimum.y,
                              std::max(limits.maximum.y, limits.minimum.y))};
        if (fIsLive)
            fWindow.SizeWindow(fWanted);
        return true;
    }

    void Release(const CMouseEvent& event) override
    {
        fIsReleased = true;
        CTracker::Release(event);
    }

    const Point& Wanted() const { return fIsReleased ? fWanted : fSize; }

private:
    CWindow& fWindow;
    Platform::PixelPoint fStart;
    Point fSize;
    Point fWanted;
    bool fIsLive;
    bool fIsReleased = false;
};

Rect CornerOf(const Point& size)
{
    return {size.x - CSizeBox::kSide, size.y - CSizeBox::kSide, size.x, size.y};
}

// The box's lower right half, with the box's top right corner at the origin.
CBRVRegion MakeTriangle()
{
    CBRVRegion triangle;
    for (double row = 0.0; row < CSizeBox::kSide; row += 1.0)
        triangle.Union(Rect{-row - 1.0, row, 0.0, row + 1.0});
    return triangle;
}

} // namespace

CSizeBox::CSizeBox(const Point& windowSize, bool isLive)
    : CPane(CornerOf(windowSize), kWindow_SizeBox, kView_NoFocusOnClick | kView_SupressSurrenders,
            kBind_FixedBottomRight),
      fIsLive(isLive)
{
    SetCursor(Platform::Cursor(Platform::CursorShape::kSizeFalling), true);
}

CBRVRegion CSizeBox::GetClipRegion() const
{
    static const CBRVRegion triangle = MakeTriangle();
    const Rect& box = GetBounds();
    CBRVRegion placed = triangle;
    placed.Move(box.right, box.top);
    return placed;
}

void CSizeBox::DrawInContext(const CPaintEvent&)
{
    const CDualPicture& grip = CDrawTools::Get().GetPicture(kTool_SizeBox);
    const Rect& box = GetBounds();
    GetPort()->DrawPicture(grip, Point{box.right - grip.GetWidth(), box.bottom - grip.GetHeight()});
}

void CSizeBox::PrimaryClick(const CMouseEvent& event)
{
    auto* const window = dynamic_cast<CWindow*>(GetContext());
    CProcess* const process = CProcess::Current();
    if (window == nullptr || process == nullptr)
        return;
    const CViewHold hold(*this);
    const CViewHold windowHold(*window);
    CCommandMessage begins(this, kMessage_SizeBoxBegin);
    SendToParent(begins);
    CLiveResizer resizer(*window, event, fIsLive);
    resizer.Run(*process);
    if (hold.IsOver() || windowHold.IsOver())
        return;
    // A resizer that isn't live has only noted the size, and one that was broken off puts it back.
    window->SizeWindow(resizer.Wanted());
    CCommandMessage ends(this, kMessage_SizeBoxEnd);
    SendToParent(ends);
}

} // namespace Kesto
