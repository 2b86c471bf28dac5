#include "drawing/frames/border.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

#include <algorithm>

namespace Kesto {
namespace {

enum class EStyle {
    kNone,
    kLine,   // in one colour, on the sides that have an edge
    kBevel,  // one colour on the left and the top, another one on the right and the bottom
    kEtched, // two frames, the second one 1 right and down
    kRing,   // rounded, with room between it and what it surrounds
};

struct SRow {
    std::int32_t kind;
    Rect edges;
    EStyle style;
    EColourRole colour;
    EColourRole second; // of a bevel and an etched frame
};

constexpr Rect kAllRound{1, 1, 1, 1};
constexpr Rect kTwo{2, 2, 2, 2};

constexpr SRow Line(std::int32_t kind, EColourRole colour, const Rect& edges = kAllRound)
{
    return {kind, edges, EStyle::kLine, colour, colour};
}

constexpr SRow kRows[] = {
    {kFrameEmpty, {}, EStyle::kNone, kColour_Border, kColour_Border},
    Line(kFramePrimaryGroup, kColour_Separator),
    Line(kFrameSecondaryGroup, kColour_GroupDark),
    Line(kFrameSolidDark, kColour_GroupDark),
    Line(kFrameSolidGray, kColour_Separator),
    Line(kFrameSolidLight, kColour_GroupLight),
    Line(kFrameActiveBorder, kColour_Border),
    Line(kFrameDimBorder, kColour_BorderDisabled),
    {kFrameOut3D, kTwo, EStyle::kBevel, kColour_GroupLight, kColour_GroupDark},
    {kFrameIn3D, kTwo, EStyle::kBevel, kColour_GroupDark, kColour_GroupLight},
    Line(kFrameScrollerWell, kColour_Border),
    {kFrameEtched, kTwo, EStyle::kEtched, kColour_GroupDark, kColour_GroupLight},
    {kFrameTargetRing, {3, 3, 3, 3}, EStyle::kRing, kColour_Focus, kColour_Focus},
    Line(kFramePlacard, kColour_Separator),
    Line(kDividerLeft, kColour_Separator, {1, 0, 0, 0}),
    Line(kDividerTop, kColour_Separator, {0, 1, 0, 0}),
    Line(kDividerRight, kColour_Separator, {0, 0, 1, 0}),
    Line(kDividerBottom, kColour_Separator, {0, 0, 0, 1}),
    Line(kDividerLeftRight, kColour_Separator, {1, 0, 1, 0}),
    Line(kDividerTopBottom, kColour_Separator, {0, 1, 0, 1}),
    Line(kDividerLeftUIB, kColour_Border, {1, 0, 0, 0}),
    Line(kDividerTopUIB, kColour_Border, {0, 1, 0, 0}),
    Line(kDividerRightUIB, kColour_Border, {0, 0, 1, 0}),
    Line(kDividerBottomUIB, kColour_Border, {0, 0, 0, 1}),
};

const SRow& RowOf(std::int32_t kind)
{
    const auto* const found = std::ranges::find(kRows, kind, &SRow::kind);
    return found != std::end(kRows) ? *found : kRows[0];
}

// The four sides of a frame, left and top in one colour, right and bottom in another.
void DrawSides(CSystemPort& port, const Rect& frame, const Rect& edges, EColourRole leftTop,
               EColourRole rightBottom)
{
    const Colour first = ToolColour(leftTop);
    const Colour second = ToolColour(rightBottom);
    port.Paint(Rect{frame.left, frame.top, frame.left + edges.left, frame.bottom}, first);
    port.Paint(Rect{frame.left, frame.top, frame.right, frame.top + edges.top}, first);
    port.Paint(Rect{frame.right - edges.right, frame.top, frame.right, frame.bottom}, second);
    port.Paint(Rect{frame.left, frame.bottom - edges.bottom, frame.right, frame.bottom}, second);
}

// 2 wide on the outside of the 3 that it takes.
void DrawRing(CSystemPort& port, const Rect& frame, EColourRole colour)
{
    port.Frame(RoundRect{frame, 4.0}, CPen{ToolColour(colour), 2.0});
}

} // namespace

Rect FrameEdges(std::int32_t kind)
{
    return RowOf(kind).edges;
}

Rect CBorder::GetInterior(const Rect& frame) const
{
    const Rect edges = GetEdges();
    const Rect interior{frame.left + edges.left, frame.top + edges.top, frame.right - edges.right,
                        frame.bottom - edges.bottom};
    return interior.IsEmpty() ? Rect{} : interior;
}

void CBorder::Draw(CSystemPort& port, const Rect& frame) const
{
    const SRow& row = RowOf(fKind);
    switch (row.style) {
    case EStyle::kNone:
        break;
    case EStyle::kLine:
    case EStyle::kBevel:
        DrawSides(port, frame, row.edges, row.colour, row.second);
        break;
    case EStyle::kEtched:
        // The light lines come first: where they cross the dark ones, those are on top.
        DrawSides(port, {frame.left + 1, frame.top + 1, frame.right, frame.bottom}, kAllRound,
                  row.second, row.second);
        DrawSides(port, {frame.left, frame.top, frame.right - 1, frame.bottom - 1}, kAllRound,
                  row.colour, row.colour);
        break;
    case EStyle::kRing:
        DrawRing(port, frame, row.colour);
        break;
    }
}

} // namespace Kesto
