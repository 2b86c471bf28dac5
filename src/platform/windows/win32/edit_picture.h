// A field of the system in our colours.
//
// The system's field draws its selection in colours of the system's own, and its text in another
// weight than ours. So it is made to draw coverage, white on black, and with a selection a second
// time in one colour only, which tells where the selection is; the picture is put together of
// these.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/windows/edit_control.h"

#include <windows.h>

#include <functional>

namespace Platform {

// Draws the field on a device in the given colours of text and ground.
using EditDrawer = std::function<void(HDC device, COLORREF text, COLORREF ground)>;

// Makes the picture of a field of that size in the bitmap's place. False, with the system's code in
// LastError, where there is none.
bool MakeEditPicture(Bitmap& picture, PixelPoint size, const EditLook& look, bool hasSelection,
                     const EditDrawer& draw);

} // namespace Platform
