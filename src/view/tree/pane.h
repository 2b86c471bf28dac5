// CPane, a view that is a child of another.
#pragma once

#include "drawing/frames/border.h"
#include "view/tree/view.h"

namespace Kesto {

class CPane : public CView {
public:
    // What SetClient registers for, in the context. A pane that is none of its views yet registers
    // when it comes there.
    static constexpr std::uint32_t kClient_Idle = 1U << 0;  // turns of Idle
    static constexpr std::uint32_t kClient_Keys = 1U << 1;  // keys that nobody below took
    static constexpr std::uint32_t kClient_Wheel = 1U << 2; // turns of the wheel anywhere

    // The frame is in the space of the parent to be.
    explicit CPane(const Rect& frame = {}, CObjID id = {}, std::uint32_t options = kView_NoOptions,
                   std::uint32_t binding = kBind_Fixed);
    ~CPane() override;

    CView* GetParent() const override { return fParent; }
    Point GetPortOffset() const override;
    void UpdateContext(CContext* context) override;

    // Called by InsertChild and RemoveChild, when the list of children has changed. Attaching takes
    // over context and state of the parent and applies the binding once, so that what is centred
    // centres; detaching is the reverse, and takes the focus away first.
    virtual void AttachToParent(CView& parent);
    virtual void DetachFromParent();

    // The border lies within the bounds; its edges are 0 without one. What it leaves is the
    // interior; the frame region is the rest.
    void SetBorder(std::unique_ptr<CBorder> border) { fBorder = std::move(border); }
    void SetFrameBorder(std::unique_ptr<CBorder> border, bool invalidate);
    const CBorder* GetBorder() const { return fBorder.get(); }
    std::int32_t GetBorderType() const; // an EFrameKind or EDividerKind
    Rect GetInsets() const;
    Rect GetInterior() const;
    CBRVRegion GetInteriorRegion() const { return CBRVRegion(GetInterior()); }
    CBRVRegion GetFrameRegion() const;
    CBRVRegion GetContentRegion() const; // what of the interior may be drawn in
    void DrawFrame() override;
    void InvalidateFrame(bool now = false) { Invalidate(GetFrameRegion(), now); }
    void InvalidateInterior(bool now = false) { Invalidate(GetInterior(), now); }
    void ValidateFrame() { Validate(GetFrameRegion()); }
    void ValidateInterior() { Validate(GetInterior()); }

    // Opens the pane's tip, and closes whichever is open, in the context.
    void ShowTip();
    void HideTip();

    // Registers for the bits that are set, and no others.
    void SetClient(std::uint32_t client);
    std::uint32_t GetClient() const { return fClient; }

    // True when no view above is a tab stop: this one isn't part of a larger control.
    bool IsTopmostTabStop() const;

    // Gives the focus up, by force, if this or something below has it.
    void ResetFocus();

private:
    void TakeParentState(const CView& parent);
    void DropParentState();
    void TellChildren();

    CView* fParent = nullptr; // not owned
    std::uint32_t fClient = 0;
    std::unique_ptr<CBorder> fBorder;
};

} // namespace Kesto
