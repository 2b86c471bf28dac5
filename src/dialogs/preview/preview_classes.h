// The classes of previews that a layout text can name.
#pragma once

namespace Project {

// Has "CScalePane", "CZoomPane", "CZoomPanel", "PPreviewPane" and "PPreviewScroller" known to the
// generator beside the classes of the toolkit, for the life of the process. A second call does
// nothing.
void RegisterPreviewClasses();

} // namespace Project
