#include "dialogs/preview/preview_pane.h"

#include "drawing/ports/picture_choice.h"
#include "drawing/ports/system_port.h"
#include "foundation/localization/localize.h"

namespace Project {

using namespace Kesto;

namespace {

CText Localized(const char* key)
{
    CText text(key);
    return Localize(text);
}

CText MemoryMessage()
{
    return CText::Join({Localized("$$$/OrlenPlugin/Shared/Insufficient=Insufficient").View(), " ",
                        Localized("$$$/OrlenPlugin/Shared/free=free").View(), " ",
                        Localized("$$$/OrlenPlugin/Shared/memory=memory.").View()});
}

} // namespace

void PPreviewPane::DrawInContext(const CPaintEvent&)
{
    if (noMemory) {
        DrawMemoryMessage();
        return;
    }
    if (isDirty)
        MakePicture();
    if (!picture)
        return;
    const auto width = static_cast<double>(picture->GetWidth());
    const auto height = static_cast<double>(picture->GetHeight());
    const Rect place = PictureToLocal(blockRect);
    // A pixel of the picture is one of the device, whatever the scale.
    const double pixel = 1.0 / CView::GetScale();
    GetPort()->DrawPixmap(
        *picture, {0.0, 0.0, width, height},
        {place.left, place.top, place.left + width * pixel, place.top + height * pixel});
}

void PPreviewPane::DrawMemoryMessage()
{
    CSystemPort& port = *GetPort();
    port.Paint(GetBounds(), kWhite);
    port.SetTextColour(kBlack);
    port.DrawTextBox(MemoryMessage().View(), GetBounds(), kText_Centred | kText_Wrap);
}

// The border, and the handle in its corner while there is more than is seen.
void PPreviewPane::DrawFrame()
{
    CZoomPane::DrawFrame();
    const Point way = GetScrollWay();
    if (noMemory || (way.x <= 0.0 && way.y <= 0.0))
        return;
    const Point size = ChoosePicture(dial, CView::GetScale()).size;
    const Rect inside = GetInterior();
    GetPort()->DrawPicture(dial, Point{inside.right - size.x, inside.bottom - size.y});
}

} // namespace Project
