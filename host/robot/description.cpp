#include "robot/description.h"

namespace Host {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSubViews = "subViews";

bool IsVisible(const ordered_json& view)
{
    return view.value("Vsbl", true);
}

bool Contains(const ViewRect& rect, double x, double y)
{
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

} // namespace

const ordered_json* FindView(const ordered_json& view, const std::string& id)
{
    if (view.value("id", std::string()) == id)
        return &view;
    if (const auto list = view.find(kSubViews); list != view.end())
        for (const ordered_json& child : *list)
            if (const ordered_json* const found = FindView(child, id))
                return found;
    return nullptr;
}

const ordered_json* FindViewAt(const ordered_json& view, double x, double y)
{
    if (!IsVisible(view) || !Contains(GlobalBounds(view), x, y))
        return nullptr;
    if (const auto list = view.find(kSubViews); list != view.end())
        for (const ordered_json& child : *list)
            if (const ordered_json* const found = FindViewAt(child, x, y))
                return found;
    return &view;
}

ViewRect GlobalBounds(const ordered_json& view)
{
    const auto bounds = view.find("globalBounds");
    if (bounds == view.end() || !bounds->is_array() || bounds->size() != 4)
        return {};
    const ordered_json& sides = *bounds;
    return {sides[0], sides[1], sides[2], sides[3]};
}

const ordered_json* FindValue(const ordered_json& view, const std::string& key)
{
    constexpr std::size_t kShortKey = 4;
    std::string padded = key;
    padded.resize(std::max(key.size(), kShortKey), ' ');
    for (const std::string& name : {key, padded})
        if (const auto found = view.find(name); found != view.end())
            return &*found;
    return nullptr;
}

bool IsValue(const ordered_json& found, const std::string& wanted)
{
    if (found.is_string() && found.get_ref<const std::string&>() == wanted)
        return true;
    const ordered_json value = ordered_json::parse(wanted, nullptr, false);
    return !value.is_discarded() && value == found;
}

std::string WordsOf(const ordered_json& value)
{
    return value.is_string() ? '"' + value.get<std::string>() + '"'
                             : value.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

} // namespace Host
