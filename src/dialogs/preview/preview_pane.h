// PPreviewPane, which shows inside a filter's dialog what the settings do to the user's picture.
//
// The pane keeps the visible part of the document, and a margin around it, in buffers at the size
// in which it is shown: what came through the filter record (BlockLoop), and what the filter made
// of it. In idle turns it brings up to date what has become dirty: `sourceDirty` is set by zooms
// and by moves beyond the margin, `resultDirty` by these and by every change of settings. A run
// that failed waits until one of them changes. Panning within the margin asks nothing of the host.
//
// The host's fetch can reach the event pump, and with it a change of settings, another zoom or the
// end of the dialog: the run ends at the next block then, and the pane outlives it.
#pragma once

#include "dialogs/plugin_dialog/preview_parts.h"
#include "dialogs/preview/block_loop.h"
#include "dialogs/preview/preview_buffer.h"
#include "dialogs/preview/preview_filter.h"
#include "dialogs/preview/zoom_pane.h"
#include "images/pictures/dual_picture.h"
#include "pixels/pixmaps/display_pixmap.h"
#include "plugin/suites/host_suites.h"

#include <optional>

namespace Project {

// Hears of the mouse on a preview and of its zoom, before the preview acts.
class PPreviewListener {
public:
    // True: the click is dealt with.
    virtual bool PreviewClicked(const Kesto::CMouseEvent&) { return false; }
    virtual void PreviewMoved(const Kesto::CMouseEvent&) {}
    virtual void PreviewZoomed(double /*scale*/) {}

protected:
    ~PPreviewListener() = default;
};

class PPreviewPane : public Kesto::CZoomPane, public PPreview {
public:
    // 72 by 72 pixels without a frame, at a scale of 1 / gSourceScale.
    static constexpr double kFirstSide = 72.0;

    explicit PPreviewPane(const Kesto::Rect& frame = {}, Kesto::CObjID id = {},
                          std::uint32_t options = Kesto::kView_NoOptions,
                          std::uint32_t binding = Kesto::kBind_Fixed);
    ~PPreviewPane() override;

    // The dialog and its filter outlive the pane; so does the listener, or it takes itself off.
    void SetDialog(PDialog& owner) override { dialog = &owner; }
    void SetFilter(PPreviewFilter* shown);
    void SetListener(PPreviewListener* hears) { listener = hears; }
    void StartPreview() override;

    // The scale of the picture, not of the port.
    double GetScale() const override { return GetImageScale(); }
    void SetScale(double scale) override { SetImageScale(scale); }
    // The flag is of no use here.
    void ZoomIn(int flag) override;
    void ZoomOut(int flag) override;

    // The part of the document to show: `width` x `height` of its pixels around the centre, moved
    // and cut to fit it, in multiples of the source factor.
    void GetVisibleSource(int32_t centerX, int32_t centerY, int32_t width, int32_t height,
                          PixelRect& out) const;

    // Brings the blocks of blockRect into the buffers. Returns 0, or -1 when the user cancelled; a
    // failure shows in the fields below. The record's requests are as before.
    int FetchPreview();

    // Repaints from the buffers.
    void ShowResult();

    // The settings have changed: the filter runs again in the next idle turn.
    void SettingsChanged();

    // A press or a move of the mouse on the image.
    void OnMouseDown(const Kesto::CMouseEvent& event);
    void OnMouseMove(const Kesto::CMouseEvent& event);

    // While the image is dragged no filter runs, and the source is shown.
    void BeginDrag();
    void EndDrag();

    // Takes the host's suites, once; those that it hasn't got are null.
    void OpenSuites();

    // One idle turn: what is dirty is brought up to date.
    void Idle() override;

    void PrimaryClick(const Kesto::CMouseEvent& event) override { OnMouseDown(event); }
    void MouseOver(const Kesto::CMouseEvent& event) override { OnMouseMove(event); }
    void DidResize() override;
    void ScrollChanged(const Kesto::Rect& image, const Kesto::Point& position,
                       const Kesto::Point& imageSize, const Kesto::Point& size) override;
    void DrawInContext(const Kesto::CPaintEvent& event) override;
    void DrawFrame() override;

    PDialog* dialog = nullptr;
    bool isZoomable = true;
    bool showsPreview = false; // started
    bool isDirty = true;       // the picture on the screen isn't that of the buffers
    bool sourceDirty = true;
    bool resultDirty = true;
    bool scaleChanged = false;
    bool draggingPreview = false;
    bool planesOnly = false;
    bool useInRect = true;
    bool sourceFailed = false;  // the last run ended with a code that has no field of its own
    bool userCancelled = false; // or with -128
    bool noMemory = false;      // there is no memory for buffers or blocks
    int32_t padding = kHostFillNone;
    HostRect16 offset{};
    PixelRect visibleRect{}; // of the document, at the last layout
    PixelRect blockRect{};   // of the document, in the buffers
    const HostBufferSuite* bufferSuite = nullptr;
    const void* colorSpaceSuite = nullptr;

protected:
    void ImageScaleChanged() override;

    // Asked at each block: true ends the run. The dialog's end does, and whatever has changed since
    // the run began.
    virtual bool AskProgress();

private:
    void Changed(bool source);
    void LayOut();
    bool PrepareBuffers();
    void FreeBuffers();
    void RunFilter();
    void MakePicture();
    const PreviewBuffer& ShownBuffer() const;
    void DrawMemoryMessage();
    void TellScale();

    PPreviewFilter* filter = nullptr;
    PPreviewListener* listener = nullptr;
    Kesto::CDualPicture dial;                  // the corner handle
    Kesto::PixelPoint lastPoint{-1000, -1000}; // where no mouse can be
    bool hasSuites = false;
    bool hasResult = false; // the result buffer is the filter's work on the source buffer
    bool isRunning = false;
    uint32_t changes = 0; // counts what ends a run
    uint32_t runStamp = 0;
    PreviewFactors factors;
    int32_t planes = 0; // in the buffers
    int32_t depth = 0;
    Kesto::CHostSuites suites;
    PreviewBuffer sourceBuffer;
    PreviewBuffer resultBuffer;
    PreviewBuffer transparencyBuffer;
    PreviewBuffer layerMaskBuffer;
    PreviewBuffer maskBuffer;                     // of the selection
    std::optional<Kesto::CDisplayPixmap> picture; // of what is shown, over white
};

} // namespace Project

template <>
class Kesto::CPaneBuilder<Project::PPreviewPane> : public CPaneBuilder<CZoomPane> {
public:
    using CPaneBuilder<CZoomPane>::CPaneBuilder;

    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};
