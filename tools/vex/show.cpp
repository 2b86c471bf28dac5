#include "vex/show.h"

#include "drawing/tools/draw_tools.h"
#include "pictures/picture_files.h"

#include <algorithm>
#include <string>
#include <vector>

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

void Outline(const CBuiltLayout& layout)
{
    Kesto::CContext& port = layout.Root();
    port.SetWindowOrigin({});
    port.ResetClip();
    for (const BuiltView& built : layout.Views())
        OutlineView(port, built);
    port.SetFont(Kesto::CDrawTools::Get().GetFont(Kesto::kFont_UIMicro));
    port.SetTextColour(kIdColour);
    for (const BuiltView& built : layout.Views())
        OutlineId(port, built);
}

// Red, green and blue side by side, row by row, of an opaque bitmap.
void Write(Host::PictureSink& sink, const Platform::Bitmap& bitmap, Kesto::PixelPoint size)
{
    Host::PictureInfo info;
    info.width = size.x;
    info.height = size.y;
    sink.Begin(info);
    std::vector<std::uint8_t> row(info.RowBytes());
    for (std::int32_t y = 0; y < size.y; ++y) {
        const std::uint8_t* const pixels = bitmap.Bits() + y * bitmap.RowBytes();
        for (std::int32_t x = 0; x < size.x; ++x)
            for (std::int32_t channel = 0; channel < 3; ++channel)
                row[static_cast<std::size_t>(x * 3 + channel)] = pixels[x * 4 + 2 - channel];
        sink.PutRows(row.data(), row.size(), 1);
    }
    sink.Finish();
}

} // namespace

void Draw(const CBuiltLayout& layout, bool outline)
{
    layout.Root().InvalidateAll();
    layout.Root().UpdateNow();
    if (outline)
        Outline(layout);
}

void WritePicture(const CBuiltLayout& layout, const std::filesystem::path& path, bool outline)
{
    Draw(layout, outline);
    const Kesto::CContext& root = layout.Root();
    const auto sink = Host::CreatePicture(path, {});
    Write(*sink, root.GetBitmap(), root.GetClientPixels());
}

} // namespace Vex
