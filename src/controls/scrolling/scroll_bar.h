// CScrollBar, a track with a thumb between two buttons.
//
// Each change by the user is sent up as a CScrollMessage with the change and an EScrollPart. The
// bar takes no focus and asks nobody for it: contents can be scrolled past a field that is invalid.
#pragma once

#include "controls/base/drawn_control.h"
#include "controls/base/value_range.h"
#include "controls/scrolling/scroll_track.h"
#include "layout/build/pane_builder.h"
#include "layout/vocabulary/control_options.h"

namespace Kesto {

// What of a bar was used.
enum EScrollPart : std::uint32_t {
    kScrollPart_None = 0,
    kScrollPart_ButtonBack = 1,
    kScrollPart_PageBack = 2,
    kScrollPart_Thumb = 3,
    kScrollPart_PageForward = 4,
    kScrollPart_ButtonForward = 5,
    kScrollPart_Wheel = 6,
};

class CScrollBar : public CDrawnControl {
public:
    static constexpr double kWidth = 15.0;
    static constexpr double kSmallWidth = 11.0;

    explicit CScrollBar(const Rect& frame = {}, CObjID id = {},
                        std::uint32_t options = kView_NoOptions,
                        std::uint32_t binding = kBind_Fixed);

    // The longer side's, unless told otherwise.
    bool IsVertical() const;
    void SetOrientation(EControlOrientation orientation);

    double GetValue() const { return fValue; }
    const SValueRange& GetRange() const { return fRange; }
    double GetPage() const { return fPage; }

    // Quietly. Pinned to the range; NaN changes nothing.
    void SetValue(double value);
    // Ends that are no finite numbers change nothing. The page is in the range's units.
    void SetRange(double first, double last, double page);
    // How far a button and a press beside the thumb go. 0: a line of text, and nearly a page.
    void SetIncrements(double button, double page);

    EScrollPart PartAt(const Point& local) const;
    Rect PartRect(EScrollPart part) const; // empty when the bar has none now

    // One use of a part but the thumb, as a click does it; sends what changes.
    void UsePart(EScrollPart part);
    // Goes to a value and sends the change.
    void ScrollToValue(double value, EScrollPart part);
    // Where the thumb would begin for a place of the mouse along the bar, as a value.
    double ValueOfThumb(double along) const;
    // From the view's corner along the bar.
    double Along(const Point& local) const;
    double ThumbBegin() const;

    void SetPressedPart(EScrollPart part);

    void DrawInContext(const CPaintEvent& event) override;
    void MouseOver(const CMouseEvent& event) override;
    void MouseExit() override;
    bool MouseWheel(const CMouseEvent& event) override;
    void PrimaryClick(const CMouseEvent& event) override;

private:
    double Length() const;
    double ButtonLength() const;
    SScrollTrack Track() const;
    EButtonState StateOf(EScrollPart part) const;
    Rect Stretch(double from, double to) const;
    void DrawArrow(CSystemPort& port, EScrollPart part) const;

    SValueRange fRange{0.0, 0.0};
    double fValue = 0.0;
    double fPage = 0.0;
    double fButtonIncrement = 0.0;
    double fPageIncrement = 0.0;
    EControlOrientation fOrientation = kControlOrient_Default;
    EScrollPart fHotPart = kScrollPart_None;
    EScrollPart fPressedPart = kScrollPart_None;
};

template <>
class CPaneBuilder<CScrollBar> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
