#include "dialogs/preview/preview_classes.h"

#include "controls/registered_classes.h"
#include "dialogs/preview/preview_pane.h"
#include "dialogs/preview/preview_scroller.h"
#include "dialogs/preview/zoom_panel.h"

namespace Project {

using namespace Kesto;

void RegisterPreviewClasses()
{
    RegisterViewClasses(); // those below take the places of its placeholders
    static const CPaneBuilder<CScalePane> scalePane("CScalePane");
    static const CPaneBuilder<CZoomPane> zoomPane("CZoomPane");
    static const CPaneBuilder<CZoomPanel> zoomPanel("CZoomPanel");
    static const CPaneBuilder<PPreviewPane> previewPane("PPreviewPane");
    static const CPaneBuilder<PPreviewScroller> previewScroller("PPreviewScroller");
}

} // namespace Project
