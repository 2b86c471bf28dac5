// CContext, the view at the root of a tree, and the port that the tree is drawn on.
//
// It keeps what is invalid, in pixels, until UpdateNow draws that. By itself it is an off-screen
// root: give it a size, put views in, draw, and look at the bitmap. A window derives from it and
// adds the native side by overriding the operations that say so.
#pragma once

#include "drawing/ports/window_port.h"
#include "view/tree/view.h"

#include <memory>
#include <vector>

namespace Kesto {

class CNonPollingTracker;
class CViewTracker;

class CContext : public CView, public CWindowPort {
public:
    // Not active; a window becomes that by itself. Throws CSystemError when there can be no bitmap
    // of the size, in units, at scale 1.
    explicit CContext(const Point& size = {}, CObjID id = {},
                      std::uint32_t options = kView_NoOptions, std::uint32_t binding = kBind_Fixed);
    ~CContext() override;

    CView* GetParent() const override { return nullptr; }
    Point GetPortOffset() const override { return {}; }
    CContext* GetContext() const override { return fContext; }
    bool IsOpaque() const override { return true; }
    void DrawBackground() override;

    // The size of the tree in units; the port's bitmap follows, at its scale. Children follow by
    // their bindings. Changing the scale keeps the size in units, tells all views and makes
    // everything invalid.
    virtual void SetContextSize(const Point& size);
    virtual void ChangeScale(double scale);

    // What has to be drawn, in pixels of the port. A window tells its native side too.
    virtual void AddInvalid(const CDeviceRegion& pixels);
    virtual void RemoveInvalid(const CDeviceRegion& pixels);
    const CDeviceRegion& GetInvalid() const { return fInvalid; }
    // Draws it, once: what becomes invalid meanwhile waits for the next time, and so does
    // everything while a paint is under way. A window presents what was drawn.
    virtual void UpdateNow();
    virtual void PixelsDrawn(const CDeviceRegion&) {}
    virtual void PixelsScrolled(const CDeviceRegion& pixels) { PixelsDrawn(pixels); }
    // Whether pixels on the port may be moved instead of drawn anew.
    virtual bool CanScrollPixels() const { return !IsDrawingInBuffer(); }

    // Where views draw at this moment: a port, and which pixel of the context its corner is.
    struct CDrawTarget {
        CSystemPort* port;
        PixelPoint corner;
    };
    const CDrawTarget& GetDrawTarget() const { return fTarget; }
    bool IsDrawingInBuffer() const { return fTarget.port != this; }
    // The clip of the draw target, in pixels of the context.
    void SetDrawClip(CDeviceRegion pixels);

    // Has views draw on another port for a scope.
    class CBuffering {
    public:
        CBuffering(CContext& context, CSystemPort& port, const PixelPoint& corner);
        ~CBuffering();
        CBuffering(const CBuffering&) = delete;
        CBuffering& operator=(const CBuffering&) = delete;

    private:
        CContext& fContext;
        CDrawTarget fBefore;
    };

    // Hands a mouse event, its place in the port filled in, to the views: moves to the one that is
    // there, presses too, releases to the one that was pressed, the wheel to the one that is there
    // and up from it until one uses it. True: a view was there for it.
    virtual bool DispatchMouse(const CMouseEvent& event);
    // Seconds from a press to the next in which that is one more click. A window asks the system.
    virtual double GetDoubleClickTime() const { return 0.5; }
    // The tracker at work, or null. It has all mouse events; keys are to reach no view meanwhile.
    // A window also has the system send it the mouse, and tells the tracker when that ends.
    CViewTracker* GetTracker() const { return fTracker; }
    virtual void SetTracker(CViewTracker* tracker) { fTracker = tracker; }
    // Breaks it off, as Escape does; false if there is none.
    bool BreakOffTracker();
    // Breaks it off if it is for this view or one below.
    void ForgetTrackerOf(const CView& view);
    // Starts one that the context keeps until it is over.
    void KeepTracker(std::unique_ptr<CNonPollingTracker> tracker);

    // Shows a cursor, or the arrow for null. The base has nowhere to.
    virtual void ShowPortCursor(const Platform::Cursor*) {}
    // Opens a pane's tip in place of the one that is open; closes that for null.
    virtual void ShowTipOf(CPane*) {}

    // Panes that have registered, by the bits of CPane::SetClient, in the order in which they came.
    virtual void AddClient(CPane& pane, std::uint32_t client);
    virtual void RemoveClient(CPane& pane);
    std::vector<CPane*> GetClients(std::uint32_t client) const;
    // Gives the idle ones that are visible their turn.
    void RunIdlePanes();

private:
    struct CClient {
        CPane* pane;
        std::uint32_t client;
    };

    void FitBitmap();
    void DriveTracker(const CMouseEvent& event);
    template <class Step>
    void StepTracker(Step step);

    CDeviceRegion fInvalid;
    CDrawTarget fTarget;
    std::vector<CClient> fClients;
    CViewTracker* fTracker = nullptr; // not owned
    std::unique_ptr<CNonPollingTracker> fKeptTracker;
    bool fIsPainting = false;
};

} // namespace Kesto
