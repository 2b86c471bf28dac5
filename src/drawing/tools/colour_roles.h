// The colours of the interface, by what they are for. Each has a row in colour_table.cpp.
#pragma once

#include <cstdint>

namespace Kesto {

enum EColourRole : std::uint32_t {
    kColour_Window,         // the ground of windows
    kColour_Panel,          // raised parts of a window, and the front tab
    kColour_Label,          // texts on windows and panels
    kColour_LabelDim,       // units, notes, back tabs
    kColour_LabelDisabled,  // the same, disabled
    kColour_Border,         // edges of buttons, fields, lists, panes
    kColour_BorderHot,      // with the mouse over them
    kColour_BorderDisabled, // disabled
    kColour_Focus,          // what has the keyboard
    kColour_Invalid,        // a field's ring around what can't be
    kColour_Field,          // the ground of fields and lists
    kColour_FieldText,      // and their texts; the caret
    kColour_Placeholder,    // the hint in an empty field
    kColour_FieldDisabled,  // read-only fields too
    kColour_FieldTextDisabled,
    kColour_Stripe, // every other row of a list
    kColour_Sel,    // the ground of what is chosen
    kColour_SelText,
    kColour_SelOff, // chosen, in a window without focus
    kColour_SelOffText,
    kColour_Accent,     // on, here
    kColour_AccentEdge, // its edge
    kColour_AccentHot,  // with the mouse over it
    kColour_AccentPressed,
    kColour_AccentDisabled,
    kColour_AccentMark, // signs on it
    kColour_Button,     // bodies of buttons
    kColour_ButtonHot,
    kColour_ButtonPressed,
    kColour_ButtonDisabled,
    kColour_ButtonInactive, // in a window that is not active
    kColour_ButtonText,
    kColour_DefaultRing, // what Return presses
    kColour_Box,         // check boxes and radio buttons, off
    kColour_BoxEdge,
    kColour_Sign,   // arrows and other signs
    kColour_Groove, // of sliders and progress
    kColour_Track,  // of scroll bars
    kColour_Thumb,
    kColour_ThumbHot,
    kColour_TabFront,
    kColour_TabBack,
    kColour_GroupDark,  // dark side of frames
    kColour_GroupLight, // light side of frames
    kColour_Separator,  // lines between groups
    kColour_Tip,
    kColour_TipText,
    kColour_TipEdge,
    kColour_IconGround, // the plate under a sign of an alert
    kColour_IconNote,
    kColour_IconQuestion,
    kColour_IconStop,
    kColour_IconWarning,
    kColourRoleCount
};

} // namespace Kesto
