// The ids of the toolkit's own messages and of messengers that everybody knows.
//
// The texts' case is part of the id: some families are written small, and stay so.
#pragma once

#include "view/messages/object_id.h"

namespace Kesto {

// Keys. The dead ones wait for the character that they go with; the Sys ones come with Alt held.
inline const CObjID kMessage_KeyDown{"Kesto/Message/KeyDown"};
inline const CObjID kMessage_KeyUp{"Kesto/Message/KeyUp"};
inline const CObjID kMessage_KeyChar{"Kesto/Message/KeyChar"};
inline const CObjID kMessage_KeyDeadChar{"Kesto/Message/KeyDeadChar"};
inline const CObjID kMessage_SysKeyDown{"Kesto/Message/SysKeyDown"};
inline const CObjID kMessage_SysKeyUp{"Kesto/Message/SysKeyUp"};
inline const CObjID kMessage_SysKeyChar{"Kesto/Message/SysKeyChar"};
inline const CObjID kMessage_SysKeyDeadChar{"Kesto/Message/SysKeyDeadChar"};

// The mouse.
inline const CObjID kMessage_MouseDown{"Kesto/Message/MouseDown"};
inline const CObjID kMessage_MouseUp{"Kesto/Message/MouseUp"};
inline const CObjID kMessage_MouseMoved{"Kesto/Message/MouseMoved"};

// Mouse buttons, by what they do.
inline const CObjID kMouseButton_Primary{"Kesto/MouseButton/Primary"};
inline const CObjID kMouseButton_Context{"Kesto/MouseButton/Context"};
inline const CObjID kMouseButton_Tertiary{"Kesto/MouseButton/Tertiary"};
inline const CObjID kMouseButton_Backward{"Kesto/MouseButton/Backward"};
inline const CObjID kMouseButton_Forward{"Kesto/MouseButton/Forward"};

// Windows and panes.
inline const CObjID kMessage_WindowMove{"Kesto/Message/WindowMove"};
inline const CObjID kMessage_WindowResize{"Kesto/Message/WindowResize"};
inline const CObjID kMessage_PopupClosed{"Kesto/Message/PopupClosed"};
inline const CObjID kMessage_DisposePane{"Kesto/Message/DisposePane"};
inline const CObjID kMessage_SizeBoxBegin{"kesto/message/sizeBoxBegin"};
inline const CObjID kMessage_SizeBoxEnd{"kesto/message/sizeBoxEnd"};

// Children of windows and of controls that are made of several.
inline const CObjID kWindow_CloseBox{"Kesto/Window/CloseBox"};
inline const CObjID kWindow_SizeBox{"Kesto/Window/SizeBox"};
inline const CObjID kScrollerPart_HorizontalBar{"Kesto/Scroller/HorizontalBar"};
inline const CObjID kScrollerPart_VerticalBar{"Kesto/Scroller/VerticalBar"};
inline const CObjID kScrollerPart_SizeBox{"Kesto/Scroller/SizeBox"};
inline const CObjID kAlert_Ok{"Kesto/Alert/Ok"};
inline const CObjID kAlert_Cancel{"Kesto/Alert/Cancel"};
inline const CObjID kAlert_Other{"Kesto/Alert/Other"};
inline const CObjID kAlert_Other2{"Kesto/Alert/Other2"};
inline const CObjID kAlert_Prompt{"Kesto/Alert/Prompt"};
inline const CObjID kAlert_DNSA{"Kesto/Alert/DNSA"}; // "do not show again"
inline const CObjID kDefault_Ok{"kesto/default/ok"};
inline const CObjID kDefault_Cancel{"kesto/default/cancel"};
inline const CObjID kEditSlider_Edit{"kesto/editSlider/edit"};
inline const CObjID kEditSlider_Slider{"kesto/editSlider/slider"};
inline const CObjID kEditSlider_Text{"kesto/editSlider/text"};
inline const CObjID kPopupSlider_Popup{"kesto/popupSlider/popup"};
inline const CObjID kEditPopupSlider_Edit{"kesto/editPopupSlider/edit"};
inline const CObjID kEditPopupSlider_Popup{"kesto/editPopupSlider/popup"};
inline const CObjID kSliderPopup_Slider{"kesto/sliderPopup/slider"};
inline const CObjID kComboBox_Edit{"Kesto/ComboBox/Edit"};
inline const CObjID kComboBox_Popdown{"Kesto/ComboBox/Popdown"};
inline const CObjID kComboPopdown_Scroller{"Kesto/ComboPopdown/Scroller"};
inline const CObjID kComboPopdown_Sheet{"Kesto/ComboPopdown/Sheet"};
inline const CObjID kSheet_EditField{"Kesto/Sheet/EditField"};
inline const CObjID kMDIFrame_MDIPane{"Kesto/MDIFrame/MDIPane"};
inline const CObjID kZoomPanel_DecButton{"Kesto/ZoomPanel/DecButton"};
inline const CObjID kZoomPanel_IncButton{"Kesto/ZoomPanel/IncButton"};
inline const CObjID kZoomProgressCombo_Progress{"Kesto/ZoomProgressCombo/Progress"};
inline const CObjID kZoomProgressCombo_Zoom{"Kesto/ZoomProgressCombo/Zoom"};
inline const CObjID kToolSet_Default{"kesto/tool/set/default"};

} // namespace Kesto
