// CWidgetSkin, the bodies of controls, drawn from the colours of the theme.
//
// Shapes are fills on whole units, so that edges are sharp at every scale. A control is drawn in a
// cell: 24 units high for what has a body of 22 and 1 unit of room all round, which focus and
// default rings use, so that no state changes a size. Texts are drawn by their controls, on the
// base line that BaseLine gives for the cell.
//
// All rectangles are units at the port's window origin.
#pragma once

#include "drawing/frames/button_state.h"
#include "drawing/tools/colour_roles.h"
#include "foundation/base/geometry.h"

#include <cstdint>

namespace Kesto {

class CSystemPort;

enum class EArrow : std::uint8_t { kUp, kDown, kLeft, kRight };
enum class EMark : std::uint8_t { kNone, kOn, kMixed };

// What a field or a list has around it.
struct SFieldLook {
    bool enabled = true;
    bool readOnly = false;
    bool hot = false;
    bool focused = false;
    bool invalid = false;
};

class CWidgetSkin {
public:
    static constexpr double kCellHeight = 24.0;
    static constexpr double kSmallCellHeight = 20.0;
    static constexpr double kTextHeight = 16.0;
    static constexpr double kBoxSize = 16.0;   // of the picture of a check box or radio button
    static constexpr double kThumbSize = 14.0; // of a slider
    static constexpr double kGrooveSize = 4.0;

    // Units from the top of a cell to the base line of its text, the same for all font sizes.
    static double BaseLine(double cellHeight);

    // By how many units a pressed button's label moves down.
    static double PressedShift(EButtonState state) { return state == EButtonState::kPress; }

    // The push button's body in a cell. `isDefault` draws the thick ring, in the normal state only;
    // `focused` the thin line within.
    static void DrawPushButton(CSystemPort& port, const Rect& cell, EButtonState state,
                               bool isDefault, bool focused);
    // A body that is on, or is a tool's: flat until it is hot, pressed or on.
    static void DrawToolButton(CSystemPort& port, const Rect& cell, EButtonState state, bool on);
    // A raised frame, sunken while it is pressed or on.
    static void DrawBevelButton(CSystemPort& port, const Rect& cell, EButtonState state, bool on);

    // In a square: 16 units, less for small ones.
    static void DrawCheckBox(CSystemPort& port, const Rect& box, EButtonState state, EMark mark);
    static void DrawRadioButton(CSystemPort& port, const Rect& box, EButtonState state, EMark mark);

    // A line around a control that has the focus.
    static void DrawFocusLine(CSystemPort& port, const Rect& frame);

    static void DrawField(CSystemPort& port, const Rect& cell, const SFieldLook& look);
    // The cell of a popup menu's button, its arrows at the right.
    static void DrawPopup(CSystemPort& port, const Rect& cell, EButtonState state, bool focused);

    // A slider: the groove from end to end, its part from 0 to `filled` (0 to 1) in the accent;
    // and its thumb around a middle.
    static void DrawGroove(CSystemPort& port, const Rect& groove, bool vertical, double filled,
                           bool enabled);
    static void DrawSliderThumb(CSystemPort& port, const Point& middle, EButtonState state);
    // A thumb in the shape of a block across the groove.
    static void DrawSliderBlock(CSystemPort& port, const Point& middle, bool vertical,
                                EButtonState state);
    // A round face, its pointer at an angle: radians from the right, counter-clockwise.
    static void DrawDial(CSystemPort& port, const Rect& frame, double angle, EButtonState state);

    // The sign on what opens or scrolls, around a middle.
    static void DrawArrow(CSystemPort& port, const Point& middle, EArrow arrow, bool enabled);

    static void DrawProgress(CSystemPort& port, const Rect& bar, double filled, bool enabled);

    static void DrawScrollTrack(CSystemPort& port, const Rect& track);
    static void DrawScrollThumb(CSystemPort& port, const Rect& thumb, EButtonState state);

    // A tab above the pane that begins at the bottom of `tab`. The front one opens into it.
    static void DrawTab(CSystemPort& port, const Rect& tab, EButtonState state, bool front);
    static void DrawTabPane(CSystemPort& port, const Rect& pane);

    static void DrawTip(CSystemPort& port, const Rect& frame);

    // The colours that a label has in a state: on a window, and on a button's body.
    static EColourRole LabelRole(EButtonState state);
    static EColourRole ButtonTextRole(EButtonState state);
};

} // namespace Kesto
