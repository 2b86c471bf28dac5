// CView, the node of the visual tree.
//
// One class, since every control overrides a few operations of each group; a group is a chapter
// here and a source of its own. Life, state, coordinates, regions, invalidation, drawing, mouse,
// trackers, tab stops, binding, scrolling, cursors and tips, children: in this order.
//
// A view's own space has fBounds in it; scrolling moves the bounds, so they need not begin at zero.
// fOrigin is the top left corner of the bounds in the parent's space. All is kept in doubles, in
// units; only a port makes pixels of them, by its scale.
//
// Shown, enabled and active are each the view's own wish and a copy of the parent's effective
// answer, so a change above runs down the tree and no child forgets what it asked for. The bits of
// hover run down too.
//
// Any hook may dispose of any view, its own too: the view leaves the tree, the focus and the mouse
// at once, and its memory lives on until none of its hooks is on the stack.
//
// One thread, that of the user interface.
#pragma once

#include "drawing/regions/region.h"
#include "foundation/base/geometry.h"
#include "foundation/base/text.h"
#include "platform/graphics/cursors.h"
#include "view/input/gesture.h"
#include "view/input/mouse_event.h"
#include "view/messages/messenger.h"
#include "view/tree/paint_event.h"
#include "view/tree/view_options.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace Kesto {

class CContext;
class CPane;
class CSystemPort;
class CViewTracker;

// How far each of the four edges of a rectangle moved.
using CEdgeDeltas = Rect;

struct CSizeLimits {
    Point minimum;
    Point maximum{1e9, 1e9};
};

class CView : public virtual CMessenger {
public:
    // Bits of the state.
    static constexpr std::uint32_t kState_Shown = 1U << 0;
    static constexpr std::uint32_t kState_ParentShown = 1U << 1;
    static constexpr std::uint32_t kState_Enabled = 1U << 2;
    static constexpr std::uint32_t kState_ParentEnabled = 1U << 3;
    static constexpr std::uint32_t kState_Active = 1U << 4;
    static constexpr std::uint32_t kState_Dragged = 1U << 5; // never with kState_Hot
    static constexpr std::uint32_t kState_Hot = 1U << 6;
    static constexpr std::uint32_t kState_WantsTarget = 1U << 7;
    static constexpr std::uint32_t kState_WantsBullseye = 1U << 8;
    static constexpr std::uint32_t kState_IsTabStop = 1U << 9;
    static constexpr std::uint32_t kState_TargetRing = 1U << 10;
    static constexpr std::uint32_t kState_InvalidOnActivate = 1U << 11;
    static constexpr std::uint32_t kState_DrawBuffer = 1U << 12;
    static constexpr std::uint32_t kState_DrawParts = 1U << 13;
    static constexpr std::uint32_t kState_ChunkyScroll = 1U << 14;
    static constexpr std::uint32_t kState_EntireScroll = 1U << 15;
    static constexpr std::uint32_t kState_BigCoordinates = 1U << 16;
    static constexpr std::uint32_t kState_ContextClick = 1U << 17;
    static constexpr std::uint32_t kState_IgnoreMouse = 1U << 18;
    static constexpr std::uint32_t kState_MultiOnMouseUp = 1U << 19;
    static constexpr std::uint32_t kState_NoFocusOnClick = 1U << 20;
    static constexpr std::uint32_t kState_NoTabNavigate = 1U << 21;
    static constexpr std::uint32_t kState_SupressSurrenders = 1U << 22;
    static constexpr std::uint32_t kState_Disposed = 1U << 23;
    static constexpr std::uint32_t kState_Opaque = 1U << 24;
    static constexpr std::uint32_t kState_Transient = 1U << 25;
    static constexpr std::uint32_t kState_NoScaleUIForFont = 1U << 26;

    // ---------------------------------------------------------------- Life (view_life.cpp)

    // Deletes the children, the last one first. No hook of the view may be on the stack; Dispose
    // is the way that needs no care.
    ~CView() override;

    // Disposes of the children, the last one first, takes this view out of focus, mouse and parent,
    // sends kMessage_DisposePane up the chain that it had, and deletes it, at once or when its last
    // hook has returned. A second call does nothing. For views made with new.
    virtual void Dispose();
    bool IsDisposed() const { return HasState(kState_Disposed); }
    virtual void DisposeContents(); // of all children

    virtual CView* GetParent() const { return nullptr; }
    virtual bool CanHaveChildren() const { return true; }
    virtual std::size_t CountChildren() const { return fChildren.size(); }
    virtual CPane* GetChild(std::size_t index) const; // null past the end

    // The first in child order, each followed by all below it when the search is deep; null if none
    // is found. A sibling's search goes through the parent's children, this view too.
    CPane* FindChild(CObjID id, bool deep) const;
    CPane* FindSibling(CObjID id, bool deep) const;
    CMessenger* FindSubMessenger(CObjID id) override;

    // ---------------------------------------------------------------- State (view_state.cpp)

    // Empty hooks, called after the effective answer has changed.
    virtual void DidShow() {}
    virtual void DidHide() {}
    virtual void DidEnable() {}
    virtual void DidDisable() {}
    virtual void DidActivate() {}
    virtual void DidDeactivate() {}
    virtual void DidChangeHover() {}

    virtual bool IsVisible() const { return HasAllState(kState_Shown | kState_ParentShown); }
    virtual bool IsShown() const { return HasState(kState_Shown); }
    virtual bool IsParentShown() const { return HasState(kState_ParentShown); }
    virtual void SetParentShown(bool on);
    virtual void SetShown(bool on);
    virtual void Show() { SetShown(true); }
    virtual void Hide() { SetShown(false); }

    virtual bool IsUsable() const { return HasAllState(kState_Enabled | kState_ParentEnabled); }
    virtual bool IsEnabled() const { return HasState(kState_Enabled); }
    virtual bool IsParentEnabled() const { return HasState(kState_ParentEnabled); }
    virtual void SetParentEnabled(bool on);
    virtual void SetEnabled(bool on);
    virtual void Enable() { SetEnabled(true); }
    virtual void Disable() { SetEnabled(false); }

    // Active is what the window is; it has no wish of the view's own.
    virtual bool IsActive() const { return HasState(kState_Active); }
    virtual void SetActive(bool on);
    virtual void Activate() { SetActive(true); }
    virtual void Deactivate() { SetActive(false); }

    // Hover: idle, dragged over or hot, for the view and all below it.
    virtual bool IsIdle() const { return !HasState(kState_Dragged | kState_Hot); }
    virtual void ClearHover();
    virtual bool IsDragged() const { return HasState(kState_Dragged); }
    virtual void SetDragged(bool on);
    virtual bool IsHot() const { return HasState(kState_Hot); }
    virtual void SetHot(bool on);

    // Options, after construction.
    virtual bool IsMouseIgnored() const { return HasState(kState_IgnoreMouse); }
    virtual bool NoFocusOnClick() const { return HasState(kState_NoFocusOnClick); }
    virtual bool NoTabNavigate() const { return HasState(kState_NoTabNavigate); }
    virtual bool SupressSurrenders() const { return HasState(kState_SupressSurrenders); }
    virtual bool NoScaleUIForFont() const { return HasState(kState_NoScaleUIForFont); }
    virtual bool IsDrawBuffer() const { return HasState(kState_DrawBuffer); }
    virtual bool IsOpaque() const { return HasState(kState_Opaque); }
    virtual void SetInvalidOnActivate(bool on) { PutState(kState_InvalidOnActivate, on); }
    virtual void SetDrawBuffer(bool on) { PutState(kState_DrawBuffer, on); }
    virtual void SetDrawParts(bool on) { PutState(kState_DrawParts, on); }
    virtual void SetContextClick(bool on) { PutState(kState_ContextClick, on); }
    virtual void SetIgnoreMouseEvents(bool on) { PutState(kState_IgnoreMouse, on); }
    virtual void SetMultiOnMouseUp(bool on) { PutState(kState_MultiOnMouseUp, on); }
    virtual void SetNoFocusOnClick(bool on) { PutState(kState_NoFocusOnClick, on); }
    virtual void SetNoTabNavigate(bool on) { PutState(kState_NoTabNavigate, on); }
    virtual void SetSupressSurrenders(bool on) { PutState(kState_SupressSurrenders, on); }
    virtual void SetNoScaleUIForFont(bool on) { PutState(kState_NoScaleUIForFont, on); }
    virtual void SetOpaque(bool on) { PutState(kState_Opaque, on); }
    virtual void GetScrollMode(bool& chunky, bool& entire) const;
    virtual void ClearScrollMode() { PutState(kState_ChunkyScroll | kState_EntireScroll, false); }
    virtual void SetChunkyScroll(bool on) { PutState(kState_ChunkyScroll, on); }
    virtual void SetEntireScroll(bool on) { PutState(kState_EntireScroll, on); }

    // Whether the view asks to be on the focus path, and at its end. Each of the three implies
    // those before it. What it may be now depends on shown and enabled too.
    virtual bool WantsTarget() const { return HasState(kState_WantsTarget); }
    virtual bool WantsBullseye() const { return HasState(kState_WantsBullseye); }
    virtual bool IsTabStop() const { return HasState(kState_IsTabStop); }
    virtual bool CanTabStopNow() const { return IsTabStop() && CanTarget(); }
    virtual bool DrawsTargetRing() const { return HasState(kState_TargetRing); }
    virtual void SetTargetOptions(bool target, bool bullseye, bool tabStop);

    // Tells the messenger what it may be now; taking an ability away moves the focus up by force.
    virtual void UpdateMessengerState();

    std::uint32_t State() const { return fState; }

    // ---------------------------------------------------------------- Messages (view_messages.cpp)

    // As in CMessenger, in a hold of the view. A key: Tab, with Shift backwards, goes to the next
    // stop.
    bool SendCommand(CCommandMessage& message) override;
    bool SendValue(CValueMessage& message) override;
    bool SendKey(CKeyboardMessage& message) override;
    bool SendMenu(CMenuMessage& message) override;
    bool SendOther(CMessage& message) override;
    bool HandleKey(CKeyboardMessage& message) override;
    void SetCanTarget(bool on) override;
    void SetCanBullseye(bool on) override;
    bool BecomeBullseye(bool force) override;
    bool BecomeBullseyeAndNotify(bool force) override;
    void SetTarget(bool on) override;
    void SetBullseye(bool on) override;
    bool ResignTarget(bool force) override;
    bool TargetChild(CMessenger* child, bool force) override;
    void UpdateChain() override;
    void Broadcast(void* argument, bool flag) override;
    void DidBecomeBullseye() override;
    void DidLoseBullseye() override;

    // Called on the view that Tab led to; a field selects its text. Empty.
    virtual void SelectContents() {}

    // ---------------------------------------------------------------- Tab stops (view_tabs.cpp)

    // Stops are in pre-order: a view, then its children. Those that can't have the focus now are
    // passed over. Null if there is none.
    virtual CView* FirstTabStop(); // this view or below
    virtual CView* LastTabStop();
    virtual CView* FirstTabStopOrSelf(); // below it, or else this view if it is a stop

    // The stop after or before a child of this view, or with null after or before the view
    // itself, round the whole tree. Never the one that the search started from.
    virtual CView* NextTabStop(CView* after, bool forward);

    // Goes to the next stop from this view, or from a child of it, unless whoever has the focus
    // refuses. False: there is no other.
    virtual bool TabToNext(bool forward);
    virtual bool TabFromChild(CView& child, bool forward);
    virtual void TabOrderRebuilt() {} // hook

    // ------------------------------------------------------- Coordinates (view_coordinates.cpp)

    // Four spaces: the view's own, its parent's, the port's (units, the context's corner at zero)
    // and the screen's (pixels). Whole points and rectangles are rounded half away from zero. A
    // rectangle or region that goes to or from the screen moves its top left corner and keeps its
    // size in numbers.
    virtual Point GetPortOffset() const; // where the view's own zero lies in the port
    Point LocalToParent(const Point& local) const;
    PixelPoint LocalToParent(const PixelPoint& local) const;
    Rect LocalToParent(const Rect& local) const;
    PixelRect LocalToParent(const PixelRect& local) const;
    CBRVRegion LocalToParent(const CBRVRegion& local) const;
    Point ParentToLocal(const Point& parent) const;
    PixelPoint ParentToLocal(const PixelPoint& parent) const;
    Rect ParentToLocal(const Rect& parent) const;
    PixelRect ParentToLocal(const PixelRect& parent) const;
    CBRVRegion ParentToLocal(const CBRVRegion& parent) const;
    Point LocalToPort(const Point& local) const;
    PixelPoint LocalToPort(const PixelPoint& local) const;
    Rect LocalToPort(const Rect& local) const;
    PixelRect LocalToPort(const PixelRect& local) const;
    CBRVRegion LocalToPort(const CBRVRegion& local) const;
    Point PortToLocal(const Point& port) const;
    PixelPoint PortToLocal(const PixelPoint& port) const;
    Rect PortToLocal(const Rect& port) const;
    PixelRect PortToLocal(const PixelRect& port) const;
    CBRVRegion PortToLocal(const CBRVRegion& port) const;
    Point LocalToGlobal(const Point& local) const;
    PixelPoint LocalToGlobal(const PixelPoint& local) const;
    Rect LocalToGlobal(const Rect& local) const;
    PixelRect LocalToGlobal(const PixelRect& local) const;
    CBRVRegion LocalToGlobal(const CBRVRegion& local) const;
    Point GlobalToLocal(const Point& global) const;
    PixelPoint GlobalToLocal(const PixelPoint& global) const;
    Rect GlobalToLocal(const Rect& global) const;
    PixelRect GlobalToLocal(const PixelRect& global) const;
    CBRVRegion GlobalToLocal(const CBRVRegion& global) const;

    const Point& GetOrigin() const { return fOrigin; }
    Point GetOriginPoint() const { return {fBounds.left, fBounds.top}; } // the same corner, local
    const Rect& GetBounds() const { return fBounds; }
    Rect GetFrame() const { return LocalToParent(fBounds); }   // in the parent
    Rect GetFramePort() const { return LocalToPort(fBounds); } // in the port
    PixelRect GetDeviceRect() const;         // pixels of the port, by the port's one rule
    virtual PixelRect GetGlobalRect() const; // the same on the screen
    double GetScale() const;                 // of the context's port; 1 without one

    virtual CContext* GetContext() const { return fContext; }
    // What the view is to draw on now: the context, or a buffer that it will copy. Null without a
    // context.
    CSystemPort* GetPort() const;

    // ---------------------------------------------------------------- Regions (view_regions.cpp)

    // The view's area, in its own space and in the port's. The base's is its bounds.
    virtual CBRVRegion GetLocalRegion() const;
    CBRVRegion GetOwnRegion() const;
    // Where it draws and takes the mouse, in its own space: within the local region.
    virtual CBRVRegion GetClipRegion() const;
    // What can be seen of it: without what parents cut off and siblings in front of it or of a
    // parent cover. In the port's space and in its own. Empty when it isn't visible.
    CBRVRegion GetVisibleRegion() const;
    CBRVRegion GetVisibleLocalRegion() const;
    // Takes the visible children in front of `before`, all with null, out of a region of this
    // view's space.
    void ExcludeChildren(CBRVRegion& region, const CPane* before) const;

    // Whether it wants to draw through the buffer, and isn't doing so already.
    virtual bool NeedsBuffer() const;

    // --------------------------------------------------- Invalidation (view_invalidation.cpp)

    // What is invalid is drawn at the next paint, or at once with `now`. Rectangles and regions
    // are in the view's space and are cut to it and to its parents; an invisible view does nothing.
    virtual void Invalidate(const Rect& rect, bool now = false);
    virtual void Invalidate(const CBRVRegion& region, bool now = false);
    virtual void InvalidateAll(bool now = false);     // all of it, whatever covers it
    virtual void InvalidateVisible(bool now = false); // what can be seen of it
    virtual void InvalidateClip(bool now = false);    // where it draws
    virtual void InvalidateRect(const Rect& inParent, bool now = false);
    virtual void Validate(const Rect& rect);
    virtual void Validate(const CBRVRegion& region);
    virtual void ValidateAll();
    virtual void ValidateVisible();
    virtual void ValidateRect(const Rect& inParent);
    virtual void Update(); // draws what is invalid in the whole context

    // The scale of the port or of the user interface has changed: tells the children, then
    // UIScaleChanged. The outermost call invalidates, if asked to.
    virtual void DoScaleChanged(bool invalidate);
    virtual void UIScaleChanged() {} // hook

    // ---------------------------------------------------------------- Drawing (view_drawing.cpp)

    // Draws what lies in the event's area: the children and, around them, the view; with
    // kView_DrawParts the view, then its children over it, the first one last. Where siblings
    // overlap the earlier one is in front.
    virtual void Draw(const CPaintEvent& event);

    // Hooks. The port has its origin at the view's zero, its clip at the event's area and its tools
    // reset; what lies under a view that isn't opaque has been drawn. The base draws the
    // background of an opaque view.
    virtual void DrawInContext(const CPaintEvent& event);
    virtual void DrawBackground() {} // the ground of an opaque view; for those within it too
    virtual void DrawFrame() {}      // after DrawInContext
    virtual void DrawFocusRing();    // after that, when it has the focus and draws a ring
    virtual void DrawHighlight() {}  // while something is dragged over it

    // Draws the children alone.
    void DrawAllChildren(const CPaintEvent& event);
    // Paints the ground of the nearest opaque view above, at this view's place.
    void EraseBackground();

    // ---------------------------------------------------------------- Mouse (view_mouse.cpp)

    // The deepest visible view that takes the mouse at a point of this view's space; this one if no
    // child does.
    virtual CView* ChildAtPoint(const Point& local);

    // Leads a move down to the view under the mouse, which becomes the mouse view. For each step
    // down MouseMovedChild of the upper view is called, which hands the move on.
    virtual void MouseMoved(const CMouseEvent& event);
    virtual void MouseMovedChild(CView& child, const CMouseEvent& event);

    // Hooks of the mouse view and of those above it. Empty.
    virtual void MouseEnter(const CMouseEvent&) {}
    virtual void MouseExit() {}
    virtual void MouseOver(const CMouseEvent&) {}
    virtual void MouseEnterChild(CView&) {} // the mouse is over a view somewhere below
    virtual void MouseExit2(CView&) {}      // and has left it

    // A press on this view, after the walk: asks for the focus, then counts clicks, then hooks. A
    // disabled view does nothing.
    virtual void MouseDown(const CMouseEvent& event);
    virtual void MouseUp(const CMouseEvent& event);
    // Hook, of a turn of the wheel: true when it was used. SendWheel asks this view and then those
    // above it.
    virtual bool MouseWheel(const CMouseEvent&) { return false; }
    bool SendWheel(const CMouseEvent& event);

    // The steps of a press: counting, and the hook of the button. TrackClick runs the tracker that
    // the view has for the button, if any.
    virtual void ClickOnSelf(const CMouseEvent& event);
    virtual void DoClick(const CMouseEvent& event);
    virtual bool DoubleClick(const CMouseEvent& event, int count);
    virtual bool TrackClick(const CMouseEvent& event);

    // Hooks, for each button: a click; a click beyond the first of a series, true when it is dealt
    // with; the release. The context button's are the primary's with kView_ContextClick.
    virtual void PrimaryClick(const CMouseEvent&) {}
    virtual void ContextClick(const CMouseEvent&);
    virtual void TertiaryClick(const CMouseEvent&) {}
    virtual void BackwardClick(const CMouseEvent&) {}
    virtual void ForwardClick(const CMouseEvent&) {}
    virtual bool PrimaryMultiClick(const CMouseEvent&, int) { return false; }
    virtual bool ContextMultiClick(const CMouseEvent& event, int count);
    virtual bool TertiaryMultiClick(const CMouseEvent&, int) { return false; }
    virtual bool BackwardMultiClick(const CMouseEvent&, int) { return false; }
    virtual bool ForwardMultiClick(const CMouseEvent&, int) { return false; }
    virtual void PrimaryUp(const CMouseEvent&) {}
    virtual void ContextUp(const CMouseEvent& event);
    virtual void TertiaryUp(const CMouseEvent&) {}
    virtual void BackwardUp(const CMouseEvent&) {}
    virtual void ForwardUp(const CMouseEvent&) {}

    // The view under the mouse, and that of the last press; null for none.
    static CView* MouseView();
    static CView* LastMouseDownView();
    // The mouse is over no view of ours now.
    static void LeaveMouseView();

    // Dragging of foreign things. Empty hooks.
    virtual void Idle() {} // of a registered pane, when nothing more urgent is to be done
    virtual void DragEntered(const CMouseEvent&) {}
    virtual void DragMoved(const CMouseEvent&) {}
    virtual void DragExited() {}
    virtual void DragHover(const CMouseEvent&) {}
    virtual bool WantsDrag() const { return false; }
    virtual bool WantsDragHere(const Point&) const { return false; }
    virtual bool DropHere(const CMouseEvent&) { return false; }

    // ---------------------------------------------------------------- Trackers (view_trackers.cpp)

    // Has a tracker of this view follow the mouse: one that polls until it is over, another from
    // now on. False: there is no context, or no process that could pump.
    bool RunTracker(std::unique_ptr<CViewTracker> tracker);

    // The records of gestures and trackers, the latest first. They are destroyed with the view.
    using TrackerMaker = std::function<std::unique_ptr<CViewTracker>(const CMouseEvent& press)>;
    void AddTracker(CObjID button, TrackerMaker maker);
    void AddGesture(float deltaX, float deltaY); // a swipe
    void AddRotateGesture(float angle);
    void AddMagnifyGesture(float factor);
    void ClearTrackers() { fTrackers.reset(); }
    // The first record that matches, or null; CGesture::Matches says what the codes are.
    CGesture* GetTrackerForCodes(std::uint32_t kind, std::uint32_t detail) const;

    // ---------------------------------------------------------------- Binding (view_binding.cpp)

    std::uint32_t GetBinding() const { return fBinding; }
    virtual void SetBinding(std::uint32_t binding) { fBinding = binding; }

    // The parent's edges moved: follows them as the binding says. ParentResized is called for each
    // child, in order.
    virtual void ParentResized(const CEdgeDeltas& delta);
    virtual void Place(const CEdgeDeltas& delta);
    // Tells each child how far the image's edges have moved since it was `oldImage`.
    void ResizeChildren(const Rect& oldImage);
    // The view's own edges moved in the parent: changes bounds, image and children.
    virtual void BoundsChanged(const CEdgeDeltas& delta);
    virtual void DidResize() {} // hook: after its bounds, image or place have changed

    // What centred bindings centre in: the parent's image, in its space.
    Rect GetBindingFrame() const;

    // Moves and sizes, in the parent's space. What was covered and what is covered now become
    // invalid.
    virtual void SetFrame(const Rect& frame);
    virtual void MoveBy(double dx, double dy);
    virtual void MoveBoundsBy(double dx, double dy); // its own space, under its children
    virtual void SetSize(double width, double height);
    virtual CSizeLimits GetSizeLimits() const { return {}; }
    virtual Rect GetAdorn() const { return {}; } // what decorations take from each side

    const Rect& GetImage() const { return fImage; }
    const Rect& GetScrollLimits() const { return fScrollLimits; }
    Point GetImageOrigin() const; // the scroll position: 0, 0 at the top left
    Rect GetImageFrame() const { return LocalToParent(fImage); }

    // ---------------------------------------------------------------- Scrolling
    // (view_scrolling.cpp)

    bool IsXScrollable() const { return (fBinding & kBind_XScrollable) != 0; }
    bool IsYScrollable() const { return (fBinding & kBind_YScrollable) != 0; }
    bool HasBigCoordinates() const { return HasState(kState_BigCoordinates); }
    bool HasSmallCoordinates() const { return !HasBigCoordinates(); }

    // The extent of the contents on the axes that scroll; the place is pulled back into it.
    virtual void SetImageExtent(double width, double height);
    // The nearest scroll position that there is; the nearest move to one; the nearest place of a
    // rectangle of the image within the bounds.
    Point PinImagePoint(const Point& position) const;
    Point PinImageOffset(const Point& offset) const;
    Rect PinInBounds(const Rect& rect) const;

    // Moves the contents by so much without asking whether that is in the limits: pixels are moved
    // where they can be, and the rest becomes invalid. Moves below 1e-7 are none. With `notify`
    // ScrollChanged is called; with `now` the rest is drawn at once.
    virtual void ScrollBy(double dx, double dy, bool notify, bool now);
    // To the nearest position.
    virtual void ScrollTo(const Point& position);
    virtual void ScrollToImage(const Point& image); // that point of the image to the top left
    // With a rectangle of its space: into the middle; by the least move that shows it, its top left
    // first; the move that this would be.
    virtual void CenterRectInView(const Rect& rect);
    virtual void RevealRect(const Rect& rect);
    Point MoveToRevealRect(const Rect& rect) const;
    // RevealRect here and in every view above that scrolls.
    virtual void ScrollRevealInBounds(const Rect& rect);
    // Hook, with the image, the position and the sizes of image and view.
    virtual void ScrollChanged(const Rect&, const Point&, const Point&, const Point&) {}

    // ---------------------------------------------------------------- Port (view_port.cpp)

    // Hooks. The view has moved in the port because something above has: what it keeps there, a
    // native control, follows. PortOffsetChild tells all below it.
    virtual void PortOffset() {}
    void PortOffsetChild();
    // The view has entered a context or left it.
    virtual void ContextDidChange() {}
    virtual void UpdateContext(CContext* context);

    // Sets the port's origin to the view's zero; adds the view's region to the port's clip.
    void SetPortOrigin();
    void AddClip();

    // An unset cursor or tip is the parent's. Active are those of a view that can be used.
    virtual void SetCursor(const Platform::Cursor& cursor, bool active);
    virtual void SetTip(const CText& text, bool active);
    bool HasCursor(bool active) const
    {
        return (active ? fActiveCursor : fInactiveCursor) != nullptr;
    }
    bool HasTip(bool active) const { return (active ? fActiveTip : fInactiveTip) != nullptr; }
    virtual const Platform::Cursor* GetCursor() const; // null: the arrow
    virtual CText GetTip() const;
    virtual CText GetTipLine(const Point& local) const; // of several tips in one view
    virtual CText GetTipValue() const { return {}; }    // the value that a tip tells beside
    virtual CView* GetTipChild(const Point& local) { return ChildAtPoint(local); }
    virtual ETipPlacement GetTipPlacement() const { return fTipPlacement; }
    void SetTipPlacement(ETipPlacement placement) { fTipPlacement = placement; }

    // A move within the mouse view: chooses the cursor, and shows it in the window.
    virtual void AdjustCursor(const CMouseEvent& event);
    virtual void ShowCursor();
    virtual void SetCursorInContext(const Platform::Cursor* cursor);

    // ---------------------------------------------------------------- Children (view_children.cpp)

    // Put a child in and attach it; the view owns it from then on. Past the end is the end; null
    // does nothing. RemoveChild detaches it and hands it over; for what is no child of this view it
    // does nothing and returns null, and so it does when a hook has disposed of the child.
    // AppendChild and PrependChild return the child.
    virtual void InsertChild(std::size_t index, std::unique_ptr<CPane> child);
    virtual std::unique_ptr<CPane> RemoveChild(CPane* child);
    template <class Pane>
    Pane* AppendChild(std::unique_ptr<Pane> child)
    {
        return InsertAt(CountChildren(), std::move(child));
    }
    template <class Pane>
    Pane* PrependChild(std::unique_ptr<Pane> child)
    {
        return InsertAt(0, std::move(child));
    }

    // The generator's notices: before and after the views of a layout are made. Hooks.
    virtual void ComputeLimits() {}
    virtual void FinishLayout() {}
    virtual bool NeedsLayout() const { return false; }
    virtual void BeginLayout() {}
    virtual void EndLayout() {}

protected:
    CView(const Rect& bounds, CObjID id, std::uint32_t options, std::uint32_t binding);

    bool HasState(std::uint32_t bits) const { return (fState & bits) != 0; }
    bool HasAllState(std::uint32_t bits) const { return (fState & bits) == bits; }
    void PutState(std::uint32_t bits, bool on) { fState = on ? fState | bits : fState & ~bits; }

    // For the destructors of CPane and CContext: what Dispose does, short of deleting.
    void EndLife();
    // Changes the edges in the parent's space, quietly.
    void MoveEdges(const CEdgeDeltas& delta);

    CContext* fContext = nullptr; // not owned
    Point fOrigin;
    Rect fBounds;

private:
    friend class CChildWalk;
    friend class CPane;
    friend class CViewHold;

    static constexpr std::size_t kNoIndex = static_cast<std::size_t>(-1);

    // How the children lie: one after the other along an axis, or otherwise.
    enum class ERun : std::uint8_t { kUnknown, kDown, kAcross, kNone };

    void TearDown();
    Point ParentOffset() const; // from the view's own zero to the parent's
    void ChangeShown(std::uint32_t bit, bool on);
    void ChangeEnabled(std::uint32_t bit, bool on);
    void PutHover(std::uint32_t bits);
    void LeaveMouse();
    bool IsAncestorOf(const CView* view) const;
    CView* FirstStopFrom(std::size_t index);
    CView* LastStopBefore(std::size_t index);
    std::size_t IndexOf(const CView* child) const;
    bool TakeTab();
    static bool AskToSurrender();
    CView* ChildUnder(const Point& local) const;
    std::span<CPane* const> ChildrenNear(const Rect& local) const;
    std::span<CPane* const> ChildrenNear(const CDeviceRegion& area) const;
    bool AsksForFocus();
    void TellParents(void (CView::*hook)(CView&));
    void AddRecord(std::unique_ptr<CGesture> record);
    CDeviceRegion DeviceClip() const;
    CDeviceRegion CutToView(const CBRVRegion& local) const;
    CDeviceRegion TakePart(const CPane& child, const Point& offset, CDeviceRegion& area) const;
    CDeviceRegion DrawChildrenBefore(const CPaintEvent& event);
    void DrawChildrenAfter(const CPaintEvent& event);
    void DrawUnbuffered(const CPaintEvent& event);
    void DrawBuffered(const CPaintEvent& event);
    void DrawSelf(CDeviceRegion area);
    void PinImage();
    void ScrollSeen(double dx, double dy);
    void InvalidateScrollEdges(double dx, double dy);

    template <class Pane>
    Pane* InsertAt(std::size_t index, std::unique_ptr<Pane> child)
    {
        Pane* const pane = child.get();
        InsertChild(index, std::move(child));
        return pane;
    }

    Rect fScrollLimits;
    Rect fImage;
    std::vector<CPane*> fChildren; // owned
    std::uint32_t fState;
    std::uint32_t fBinding;
    int fHolds = 0;                     // hooks on the stack
    unsigned fChildrenStamp = 0;        // changes with the list
    mutable ERun fRun = ERun::kUnknown; // until it is asked for, after each change of a frame
    std::unique_ptr<CGesture> fTrackers;
    std::unique_ptr<Platform::Cursor> fActiveCursor; // null: the parent's
    std::unique_ptr<Platform::Cursor> fInactiveCursor;
    std::unique_ptr<CText> fActiveTip;
    std::unique_ptr<CText> fInactiveTip;
    ETipPlacement fTipPlacement = kTip_PlaceDefault;
};

} // namespace Kesto
