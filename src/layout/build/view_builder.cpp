#include "layout/build/view_builder.h"

#include "layout/build/builder_registry.h"

namespace Kesto {

namespace {

// What a side of a margin, an outset or a cushion isn't told falls to the wider key.
constexpr PropertyRow kPlacementRows[] = {
    {VexName("placement"), 0, "how the children lie: place_column, place_row, place_offscreen"},
    {VexName("horizontal"), 0, "how the view lies in its parent: align_left, align_fill, ..."},
    {VexName("vertical"), 0, "the same from top to bottom: align_top, align_fill, ..."},
    {VexName("child_horizontal"), 0, "the horizontal of children that give none"},
    {VexName("child_vertical"), 0, "the vertical of children that give none"},
    {VexName("width"), 0, "the least width"},
    {VexName("height"), 0, "the least height"},
    {VexName("max_height"), 0, "the largest height, if above 0"},
    {VexName("left"), 0, "written by the solver"},
    {VexName("top"), 0, "written by the solver"},
    {VexName("right"), 0, "kept for builders"},
    {VexName("bottom"), 0, "kept for builders"},
    {VexName("left_offset"), 0, "moves the view when all is placed"},
    {VexName("top_offset"), 0, "moves the view when all is placed"},
    {VexName("margin"), 0, "free room within the view, all round"},
    {VexName("margin_width"), 0, "left and right"},
    {VexName("margin_height"), 0, "top and bottom"},
    {VexName("margin_left"), 0, ""},
    {VexName("margin_top"), 0, ""},
    {VexName("margin_right"), 0, ""},
    {VexName("margin_bottom"), 0, ""},
    {VexName("outset"), 0, "how far the view shows beyond its frame; eaten by the parent's margin"},
    {VexName("outset_width"), 0, "left and right; also width_outset"},
    {VexName("width_outset"), 0, ""},
    {VexName("outset_height"), 0, "top and bottom; also height_outset"},
    {VexName("height_outset"), 0, ""},
    {VexName("outset_left"), 0, "also left_outset"},
    {VexName("left_outset"), 0, ""},
    {VexName("outset_top"), 0, "also top_outset"},
    {VexName("top_outset"), 0, ""},
    {VexName("outset_right"), 0, "also right_outset"},
    {VexName("right_outset"), 0, ""},
    {VexName("outset_bottom"), 0, "also bottom_outset"},
    {VexName("bottom_outset"), 0, ""},
    {VexName("cushion"), 0, "added to a width and height that are given, on each side"},
    {VexName("cushion_x"), 0, "left and right"},
    {VexName("cushion_y"), 0, "top and bottom"},
    {VexName("cushion_left"), 0, ""},
    {VexName("cushion_top"), 0, ""},
    {VexName("cushion_right"), 0, ""},
    {VexName("cushion_bottom"), 0, ""},
    {VexName("spacing"), 0, "between the children; the variable gSpace if not given"},
    {VexName("inset"), 0, "indents the view in a column, when it is aligned to the left"},
    {VexName("top_inset"), 0, "lines the view up with the others of its row"},
    {VexName("label_width"), 0, "how much of the width is a label, to be lined up with others"},
    {VexName("reverse"), 0, "the children in the opposite order"},
    {VexName("alwaysL2R"), 0, "kept from left to right in all languages"},
};

} // namespace

CViewBuilderBase::CViewBuilderBase(std::string_view name) : fName(name)
{
    RegisterBuilder(fName, *this);
}

CViewBuilderBase::~CViewBuilderBase()
{
    UnregisterBuilder(fName, *this);
}

PropertyRows PlacementRows()
{
    return kPlacementRows;
}

void CViewBuilder<CView>::AppendRows(std::vector<PropertyRows>& rows) const
{
    rows.push_back(PlacementRows());
}

} // namespace Kesto
