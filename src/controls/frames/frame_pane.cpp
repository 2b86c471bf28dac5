#include "controls/frames/frame_pane.h"

#include "drawing/ports/system_port.h"
#include "layout/build/layout_owner.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr PropertyRow kStyle{VexName("frame_style"), kFrameEmpty, "the frame around it"};

// A side falls to its axis, and an axis to the whole.
constexpr PropertyRow kSizes[] = {
    {VexName("frame_size"), 0, "the least room for the frame, all round"},
    {VexName("frame_size_x"), 0, "left and right"},
    {VexName("frame_size_y"), 0, "top and bottom"},
    {VexName("frame_size_left"), 0, ""},
    {VexName("frame_size_top"), 0, ""},
    {VexName("frame_size_right"), 0, ""},
    {VexName("frame_size_bottom"), 0, ""},
};

double SizeOf(const LayoutOwner& owner, const VexName& side, const VexName& axis)
{
    const CPropertyReader reader = owner.Properties();
    std::int32_t size = 0;
    for (const VexName& key : {side, axis, kSizes[0].key})
        if (reader.TryInteger(key, size))
            break;
    return size;
}

Rect SizesOf(const LayoutOwner& owner)
{
    const VexName& x = kSizes[1].key;
    const VexName& y = kSizes[2].key;
    return {SizeOf(owner, kSizes[3].key, x), SizeOf(owner, kSizes[4].key, y),
            SizeOf(owner, kSizes[5].key, x), SizeOf(owner, kSizes[6].key, y)};
}

void SetIfNotGiven(double& number, double value)
{
    if (!ViewLayoutRecord::IsGiven(number))
        number = value;
}

} // namespace

CFramePane::CFramePane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding,
                       std::int32_t kind)
    : CPane(frame, id, options, binding), fBorder(kind)
{
}

void CFramePane::SetFrameKind(std::int32_t kind)
{
    fBorder = CBorder(kind);
    InvalidateAll(false);
}

void CFramePane::DrawFrame()
{
    fBorder.Draw(*GetPort(), GetBounds());
}

PaneWord CPaneBuilder<CFramePane>::Options() const
{
    return {.required = kView_Target};
}

const PropertyRow& CPaneBuilder<CFramePane>::StyleRow() const
{
    return kStyle;
}

std::int32_t CPaneBuilder<CFramePane>::ReadFrameKind(const LayoutOwner& owner) const
{
    return owner.Properties().Integer(StyleRow());
}

Rect CPaneBuilder<CFramePane>::ReadEdges(const LayoutOwner& owner) const
{
    const Rect frame = FrameEdges(ReadFrameKind(owner));
    const Rect sizes = SizesOf(owner);
    return {std::max(frame.left, sizes.left), std::max(frame.top, sizes.top),
            std::max(frame.right, sizes.right), std::max(frame.bottom, sizes.bottom)};
}

// A margin that the text gives for both sides or all round counts for the frame as well: only where
// it gives none do the children keep off the frame by themselves.
CView* CPaneBuilder<CFramePane>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    const Rect edges = ReadEdges(owner);
    ViewLayoutRecord& record = owner.fLayoutRecord;
    SetIfNotGiven(record.width, edges.left + edges.right);
    SetIfNotGiven(record.height, edges.top + edges.bottom);
    if (!ViewLayoutRecord::IsGiven(record.margin)) {
        if (!ViewLayoutRecord::IsGiven(record.marginWidth)) {
            SetIfNotGiven(record.marginLeft, edges.left);
            SetIfNotGiven(record.marginRight, edges.right);
        }
        if (!ViewLayoutRecord::IsGiven(record.marginHeight)) {
            SetIfNotGiven(record.marginTop, edges.top);
            SetIfNotGiven(record.marginBottom, edges.bottom);
        }
    }
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

void CPaneBuilder<CFramePane>::AppendRows(std::vector<PropertyRows>& rows) const
{
    CPaneBuilder<CPane>::AppendRows(rows);
    rows.push_back({&StyleRow(), 1});
    rows.push_back(kSizes);
}

std::unique_ptr<CPane> CPaneBuilder<CFramePane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CFramePane>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

void CPaneBuilder<CFramePane>::ReadKeys(CPane& pane, LayoutOwner& owner) const
{
    CPaneBuilder<CPane>::ReadKeys(pane, owner);
    static_cast<CFramePane&>(pane).SetFrameKind(ReadFrameKind(owner));
}

} // namespace Kesto
