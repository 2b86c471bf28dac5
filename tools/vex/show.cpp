#include "vex/show.h"

#include "drawing/ports/wrapper_port.h"
#include "drawing/tools/draw_tools.h"
#include "pictures/bitmap_file.h"
#include "platform/windows/window_paint.h"

#include <algorithm>
#include <string>

namespace Vex {

namespace {

constexpr Kesto::Colour kFrameColour{230, 0, 120};
constexpr Kesto::Colour kMarginColour{0, 160, 60};
constexpr Kesto::Colour kIdColour{0, 70, 190};
constexpr Kesto::Colour kIdGround{255, 255, 210};

void OutlineView(Kesto::CSystemPort& port, const BuiltView& built)
{
    const Kesto::Rect frame = built.view->GetFramePort();
    const Kesto::Rect& margins = built.margins;
    const Kesto::Rect inside{frame.left + margins.left, frame.top + margins.top,
                             frame.right - margins.right, frame.bottom - margins.bottom};
    if (!(inside == frame) && !inside.IsEmpty())
        port.Frame(inside, kMarginColour);
    port.Frame(frame, kFrameColour);
}

// At the foot of the view, where labels are least in the way.
void OutlineId(Kesto::CSystemPort& port, const BuiltView& built)
{
    if (built.view->GetID().IsNone())
        return;
    const Kesto::Rect frame = built.view->GetFramePort();
    const std::string id = built.view->GetID().Name();
    const double top = frame.bottom - port.GetFontMetrics().ascent - port.GetFontMetrics().descent;
    const double width = std::min(port.MeasureText(id), frame.Width() - 2.0);
    const Kesto::Rect plate{frame.left + 1.0, top - 1.0, frame.left + 1.0 + width,
                            frame.bottom - 1.0};
    port.Paint(plate, kIdGround);
    port.DrawTextBox(id, plate, Kesto::kText_Left | Kesto::kText_Ellipsis);
}

void Outline(const CBuiltLayout& layout, Kesto::CSystemPort& port)
{
    port.SetWindowOrigin({});
    port.ResetClip();
    for (const BuiltView& built : layout.Views())
        OutlineView(port, built);
    port.SetFont(Kesto::CDrawTools::Get().GetFont(Kesto::kFont_UIMicro));
    port.SetTextColour(kIdColour);
    for (const BuiltView& built : layout.Views())
        OutlineId(port, built);
}

} // namespace

void Draw(const CBuiltLayout& layout, bool outline)
{
    layout.Root().InvalidateAll();
    layout.Root().UpdateNow();
    if (outline)
        Outline(layout, layout.Root());
}

void WritePicture(const CBuiltLayout& layout, const std::filesystem::path& path, bool outline)
{
    Draw(layout, outline);
    const Kesto::CContext& root = layout.Root();
    const Kesto::PixelPoint size = root.GetClientPixels();
    const Platform::Bitmap& bitmap = root.GetBitmap();
    Host::WriteBitmap(path, {size.x, size.y, bitmap.Bits(), bitmap.RowBytes()});
}

bool WriteOutlinedPhotograph(const CBuiltLayout& layout, const std::filesystem::path& path)
{
    Kesto::CWindow& root = layout.Root();
    Platform::Bitmap picture;
    if (!Platform::PhotographWindow(root.NativeHandle(), picture))
        return false;
    Kesto::CWrapperPort port(picture, {picture.Width(), picture.Height()});
    port.SetScaleFactor(root.GetScale());
    Outline(layout, port);
    Host::WriteBitmap(path,
                      {picture.Width(), picture.Height(), picture.Bits(), picture.RowBytes()});
    return true;
}

} // namespace Vex
