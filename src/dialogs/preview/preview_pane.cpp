#include "dialogs/preview/preview_pane.h"

#include "controls/base/natural_size.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/plugin_dialog/plugin_dialog.h"
#include "dialogs/preview/preview_globals.h"
#include "dialogs/preview/preview_panner.h"
#include "dialogs/preview/zoom_panel.h"
#include "images/icons/resource_name.h"
#include "layout/build/layout_owner.h"
#include "view/messages/message.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

#include <algorithm>

namespace Project {

using namespace Kesto;

namespace {

constexpr char kDialPicture[] = "Dial.png";

// As on creation: a frame without a size becomes the first one.
Rect FirstFrame(const Rect& frame)
{
    if (!frame.IsEmpty())
        return frame;
    constexpr double kSide = PPreviewPane::kFirstSide;
    return {frame.left, frame.top, frame.left + kSide, frame.top + kSide};
}

} // namespace

PPreviewPane::PPreviewPane(const Rect& frame, CObjID id, std::uint32_t options,
                           std::uint32_t binding)
    : CMessenger(nullptr, id), CZoomPane(FirstFrame(frame), id, options, binding)
{
    dial.LoadPicture(CResourceName(kDialPicture));
    SetImageScale(1.0 / std::max<int16_t>(gSourceScale, 1));
}

PPreviewPane::~PPreviewPane()
{
    gSourceScale = 1;
    gPreviewRunning = false;
}

void PPreviewPane::SetFilter(PPreviewFilter* shown)
{
    filter = shown;
    Changed(true);
}

void PPreviewPane::StartPreview()
{
    if (gFilterRecord == nullptr)
        return;
    showsPreview = true;
    SetClient(GetClient() | kClient_Idle);
    SetPictureSize(gFilterRecord->documentWidth, gFilterRecord->documentHeight);
    Changed(true);
}

// Whatever ran is out of date, and what has failed may succeed now.
void PPreviewPane::Changed(bool source)
{
    ++changes;
    sourceDirty = sourceDirty || source;
    resultDirty = true;
    sourceFailed = userCancelled = noMemory = gHostGaveUp = false;
}

void PPreviewPane::SettingsChanged()
{
    Changed(false);
    LayOut(); // the filter may look farther now
}

void PPreviewPane::GetVisibleSource(int32_t centerX, int32_t centerY, int32_t width, int32_t height,
                                    PixelRect& out) const
{
    const HostFilterRecord* const record = gFilterRecord;
    if (record == nullptr)
        out = {};
    else if (gPreviewRunning)
        out = FromHostRect(record->targetRect);
    else
        out = ClampToDocument(centerX, centerY, width, height,
                              {record->documentWidth, record->documentHeight}, factors.source);
}

// ------------------------------------------------------------------------------------------- Zoom

void PPreviewPane::ZoomIn(int)
{
    StepIn();
}

void PPreviewPane::ZoomOut(int)
{
    StepOut();
}

void PPreviewPane::ImageScaleChanged()
{
    scaleChanged = true;
    factors = FactorsOf(GetImageScale());
    Changed(true);
    LayOut();
    InvalidateAll();
    TellScale();
}

void PPreviewPane::TellScale()
{
    if (listener != nullptr)
        listener->PreviewZoomed(GetImageScale());
    CView* const root = GetContext();
    auto* const panel = root != nullptr
                            ? dynamic_cast<CZoomPanel*>(root->FindChild(kDialog_ZoomPanel, true))
                            : nullptr;
    if (panel != nullptr)
        panel->ShowScale(GetImageScale());
    if (dialog != nullptr)
        dialog->ComposeTitle();
}

// ------------------------------------------------------------------------------------------ Mouse

void PPreviewPane::OnMouseDown(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    if (listener != nullptr && listener->PreviewClicked(event))
        return;
    // The listener may have closed the dialog, and the pane with it.
    if (hold.IsOver())
        return;
    const bool control = (event.fModifiers & CMessage::kModifier_Control) != 0;
    const bool alt = (event.fModifiers & CMessage::kModifier_Alt) != 0;
    if (isZoomable && control && alt && CanZoomOut())
        ZoomOut(0);
    else if (isZoomable && control && !alt && CanZoomIn())
        ZoomIn(1);
    else if (isZoomable && alt && !control)
        ZoomOut(0);
    else
        RunTracker(std::make_unique<CPreviewPanner>(*this, event));
}

void PPreviewPane::OnMouseMove(const CMouseEvent& event)
{
    const PixelPoint point = event.fPoint;
    if (point == lastPoint)
        return;
    lastPoint = point;
    if (listener != nullptr)
        listener->PreviewMoved(event);
}

void PPreviewPane::BeginDrag()
{
    draggingPreview = true;
    ++changes;
    isDirty = true;
    InvalidateAll();
}

void PPreviewPane::EndDrag()
{
    draggingPreview = false;
    Changed(false);
    isDirty = true;
    InvalidateAll();
}

// ----------------------------------------------------------------------------------------- Layout

void PPreviewPane::DidResize()
{
    const CViewHold hold(*this);
    CZoomPane::DidResize();
    if (!hold.IsOver())
        LayOut();
}

void PPreviewPane::ScrollChanged(const Rect& image, const Point& position, const Point& imageSize,
                                 const Point& size)
{
    const CViewHold hold(*this);
    CZoomPane::ScrollChanged(image, position, imageSize, size);
    if (!hold.IsOver())
        LayOut();
}

// What is visible now. As long as it lies within the blocks, with what the filter looks at, nothing
// has to be fetched.
void PPreviewPane::LayOut()
{
    if (gFilterRecord == nullptr || !showsPreview)
        return;
    const DocumentSize document{gFilterRecord->documentWidth, gFilterRecord->documentHeight};
    const PixelPoint display = GetDisplaySize();
    const Point center = GetPictureCenter();
    const auto pixels = [this](int32_t shown) {
        return (shown * factors.source + factors.dest - 1) / factors.dest + factors.source;
    };
    GetVisibleSource(static_cast<int32_t>(center.x), static_cast<int32_t>(center.y),
                     pixels(display.x), pixels(display.y), visibleRect);
    const int32_t reach = filter != nullptr ? std::max(filter->PreviewReach(), 0) : 0;
    const PixelRect needed = GrownInDocument(visibleRect, reach, document, factors.source);
    if (Intersect(needed, blockRect) != needed || scaleChanged)
        Changed(true);
}

} // namespace Project

Kesto::CView* Kesto::CPaneBuilder<Project::PPreviewPane>::AdjustLayout(CView* parent,
                                                                       LayoutOwner& owner)
{
    constexpr double kSide = Project::PPreviewPane::kFirstSide;
    SetNaturalSize(owner.fLayoutRecord, {kSide, kSide});
    return CPaneBuilder<CZoomPane>::AdjustLayout(parent, owner);
}

std::unique_ptr<Kesto::CPane>
Kesto::CPaneBuilder<Project::PPreviewPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<Project::PPreviewPane>(parameters.frame, parameters.id,
                                                   parameters.options, parameters.binding);
}
