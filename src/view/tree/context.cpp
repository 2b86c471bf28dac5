#include "view/tree/context.h"

#include "drawing/tools/draw_tools.h"
#include "view/messages/message_ids.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"
#include "view/tree/view_tracker.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

// Above so many rectangles what is invalid becomes the rectangle around it: many small ones cost
// more to keep than to draw.
constexpr std::size_t kMostInvalidRects = 64;

} // namespace

CContext::CContext(const Point& size, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CView({0.0, 0.0, size.x, size.y}, id, options, binding), fTarget{this, {}}
{
    fContext = this;
    PutState(kState_ParentShown | kState_ParentEnabled, true);
    CView::UpdateMessengerState();
    if (CView::IsVisible())
        fInvalid = CDeviceRegion(ToDevice(fBounds, GetScaleFactor()));
}

CContext::~CContext()
{
    EndLife();
}

// Before painting, and not whenever the size changes: a window has several sizes before it is
// shown, and pixels that nobody draws cost more than all its views.
void CContext::FitBitmap()
{
    const PixelRect pixels = ToDevice(fBounds, GetScaleFactor());
    SetClientPixels(
        {std::max(pixels.right - pixels.left, 1), std::max(pixels.bottom - pixels.top, 1)});
}

void CContext::SetContextSize(const Point& size)
{
    if (size.x == fBounds.Width() && size.y == fBounds.Height())
        return;
    const CViewHold hold(*this);
    MoveEdges({0.0, 0.0, size.x - fBounds.Width(), size.y - fBounds.Height()});
    if (!hold.IsOver())
        InvalidateAll();
}

void CContext::ChangeScale(double scale)
{
    SetScaleFactor(scale);
    DoScaleChanged(true);
}

void CContext::DrawBackground()
{
    if (CSystemPort* const port = GetPort())
        port->Paint(fBounds, ToolColour(kColour_Window));
}

void CContext::AddInvalid(const CDeviceRegion& pixels)
{
    const PixelRect around = pixels.GetBounds();
    if (pixels.IsEmpty() || fInvalid.Contains(around))
        return;
    fInvalid.Union(pixels);
    if (fInvalid.GetRects().size() > kMostInvalidRects)
        fInvalid = CDeviceRegion(fInvalid.GetBounds());
}

void CContext::RemoveInvalid(const CDeviceRegion& pixels)
{
    fInvalid.Subtract(pixels);
}

void CContext::UpdateNow()
{
    if (fIsPainting || fInvalid.IsEmpty() || !IsVisible())
        return;
    struct Painting {
        explicit Painting(bool& is) : flag(is) { flag = true; }
        ~Painting() { flag = false; }
        bool& flag;
    };
    const CViewHold hold(*this);
    const Painting painting(fIsPainting);
    FitBitmap();
    // Taken first, so that what drawing invalidates is painted the next time.
    CPaintEvent event{std::exchange(fInvalid, {})};
    const PixelPoint size = GetClientPixels();
    event.fUpdate.Intersect(PixelRect{0, 0, size.x, size.y});
    Draw(event);
    SetDrawClip(event.fUpdate);
    SetPortOrigin();
    if (fTracker != nullptr)
        fTracker->DrawFeedback(*this);
    ResetClip();
    if (!hold.IsOver())
        PixelsDrawn(event.fUpdate);
}

void CContext::SetDrawClip(CDeviceRegion pixels)
{
    pixels.Move(-fTarget.corner.x, -fTarget.corner.y);
    fTarget.port->SetDeviceClip(pixels);
}

CContext::CBuffering::CBuffering(CContext& context, CSystemPort& port, const PixelPoint& corner)
    : fContext(context), fBefore(std::exchange(context.fTarget, {&port, corner}))
{
}

CContext::CBuffering::~CBuffering()
{
    fContext.fTarget = fBefore;
}

// The tracker can't be freed by what its hooks do: it is kept here for the step.
template <class Step>
void CContext::StepTracker(Step step)
{
    std::unique_ptr<CNonPollingTracker> kept = std::move(fKeptTracker);
    step(*fTracker);
    if (kept != nullptr && !kept->IsOver())
        fKeptTracker = std::move(kept);
}

bool CContext::BreakOffTracker()
{
    if (fTracker == nullptr)
        return false;
    const CViewHold hold(*this);
    StepTracker([](CViewTracker& tracker) { tracker.BreakOff(); });
    return true;
}

void CContext::ForgetTrackerOf(const CView& view)
{
    if (fTracker == nullptr)
        return;
    for (const CView* of = fTracker->View(); of != nullptr; of = of->GetParent())
        if (of == &view) {
            BreakOffTracker();
            return;
        }
}

void CContext::KeepTracker(std::unique_ptr<CNonPollingTracker> tracker)
{
    const CViewHold hold(*this);
    BreakOffTracker();
    tracker->Start();
    if (!tracker->IsOver())
        fKeptTracker = std::move(tracker);
}

// A tracker that polls looks for the mouse itself, and gets nothing here.
void CContext::DriveTracker(const CMouseEvent& event)
{
    if (fTracker != fKeptTracker.get())
        return;
    if (event.fID == kMessage_MouseMoved && !event.IsWheel())
        StepTracker([&](CViewTracker& tracker) { tracker.Track(event); });
    else if (event.fID == kMessage_MouseUp && event.fButton == fTracker->Button())
        StepTracker([&](CViewTracker& tracker) { tracker.Release(event); });
}

bool CContext::DispatchMouse(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    if (fTracker != nullptr) {
        DriveTracker(event);
        return true;
    }
    CView* const at = ChildAtPoint(PortToLocal(event.fPortPoint));
    if (event.IsWheel())
        return at->SendWheel(event);
    if (event.fID == kMessage_MouseMoved) {
        MouseMoved(event);
        return true;
    }
    if (event.fID == kMessage_MouseDown) {
        at->MouseDown(event);
        return true;
    }
    // A release belongs to the view that was pressed, wherever the mouse is now.
    CView* const pressed = LastMouseDownView();
    (pressed != nullptr && pressed->GetContext() == this ? pressed : at)->MouseUp(event);
    return true;
}

void CContext::AddClient(CPane& pane, std::uint32_t client)
{
    fClients.push_back({&pane, client});
}

void CContext::RemoveClient(CPane& pane)
{
    std::erase_if(fClients, [&](const CClient& one) { return one.pane == &pane; });
}

std::vector<CPane*> CContext::GetClients(std::uint32_t client) const
{
    std::vector<CPane*> panes;
    for (const CClient& one : fClients)
        if ((one.client & client) != 0)
            panes.push_back(one.pane);
    return panes;
}

void CContext::RunIdlePanes()
{
    const CViewHold hold(*this);
    for (CPane* const pane : GetClients(CPane::kClient_Idle)) {
        const bool isStill = std::any_of(fClients.begin(), fClients.end(),
                                         [&](const CClient& one) { return one.pane == pane; });
        if (!isStill || !pane->IsVisible())
            continue;
        const CViewHold paneHold(*pane);
        pane->Idle();
        if (hold.IsOver())
            return;
    }
}

} // namespace Kesto
