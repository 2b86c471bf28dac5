#include "vex/place.h"

#include <nlohmann/json.hpp>

#include <map>
#include <ostream>

namespace Vex {

namespace {

using nlohmann::ordered_json;

std::string IdOf(const Kesto::CView& view)
{
    return view.GetID().IsNone() ? std::string() : view.GetID().Name();
}

ordered_json NodeOf(const BuiltView& built, bool isOutermost)
{
    const Kesto::CView& view = *built.view;
    const Kesto::Point origin = isOutermost ? Kesto::Point{} : view.GetOrigin();
    return {{"class", built.className},
            {"id", IdOf(view)},
            {"left", origin.x},
            {"top", origin.y},
            {"width", view.GetBounds().Width()},
            {"height", view.GetBounds().Height()},
            {"children", ordered_json::array()}};
}

using Children = std::map<const Kesto::CView*, std::vector<const BuiltView*>>;

// The nearest view around one that the text asked for as well.
const Kesto::CView* BuiltParent(const Kesto::CView& view, const Children& children)
{
    const Kesto::CView* parent = view.GetParent();
    while (parent != nullptr && !children.contains(parent))
        parent = parent->GetParent();
    return parent;
}

ordered_json TreeOf(const BuiltView& built, const Children& children, bool isOutermost)
{
    ordered_json node = NodeOf(built, isOutermost);
    for (const BuiltView* child : children.at(built.view))
        node["children"].push_back(TreeOf(*child, children, false));
    return node;
}

void PrintView(std::ostream& out, const ordered_json& view, const std::string& indent)
{
    out << indent << view["class"].get<std::string>();
    if (const std::string id = view["id"]; !id.empty())
        out << " '" << id << '\'';
    out << "  " << view["left"] << ',' << view["top"] << "  " << view["width"] << 'x'
        << view["height"] << '\n';
    for (const ordered_json& child : view["children"])
        PrintView(out, child, indent + "  ");
}

} // namespace

ordered_json PlacesOf(const CBuiltLayout& layout)
{
    Children children;
    for (const BuiltView& built : layout.Views())
        children[built.view];
    for (const BuiltView& built : layout.Views())
        if (const Kesto::CView* const parent = BuiltParent(*built.view, children))
            children[parent].push_back(&built);
    return TreeOf(layout.Outermost(), children, true);
}

void PrintPlaces(std::ostream& out, const ordered_json& view)
{
    PrintView(out, view, "");
}

} // namespace Vex
