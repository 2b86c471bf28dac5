#include "platform/graphics/linux/monitors.h"

#include "platform/system/linux/xcb_reply.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <xcb/randr.h>

namespace Platform {
namespace {

constexpr double kUnitsPerInch = 96.0;
constexpr std::uint32_t kMostWords = 65536; // of a property

// What there is without a display.
std::vector<Monitor>& MadeUp()
{
    static std::vector<Monitor> monitors{{{0, 0, 1920, 1080}, {0, 0, 1920, 1080}, 1.0}};
    return monitors;
}

class Display {
public:
    Display() : fConnection(xcb_connect(nullptr, &fScreenNumber)) {}
    ~Display() { xcb_disconnect(fConnection); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    xcb_connection_t* Connection() const { return fConnection; }

    // Null when there is no display.
    const xcb_screen_t* Screen() const
    {
        if (xcb_connection_has_error(fConnection) != 0)
            return nullptr;
        auto each = xcb_setup_roots_iterator(xcb_get_setup(fConnection));
        for (int i = 0; i < fScreenNumber && each.rem > 1; ++i)
            xcb_screen_next(&each);
        return each.rem > 0 ? each.data : nullptr;
    }

private:
    int fScreenNumber = 0;
    xcb_connection_t* fConnection;
};

using Property = Reply<xcb_get_property_reply_t>;

Property ReadProperty(xcb_connection_t* display, xcb_window_t window, xcb_atom_t name)
{
    return Property(xcb_get_property_reply(
        display,
        xcb_get_property(display, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
        nullptr));
}

// A property of the root window that is a list of numbers.
std::vector<std::int32_t> ReadNumbers(xcb_connection_t* display, xcb_window_t root,
                                      std::string_view name)
{
    const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        display, xcb_intern_atom(display, 1, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    if (atom == nullptr || atom->atom == XCB_NONE)
        return {};
    const Property property = ReadProperty(display, root, atom->atom);
    if (property == nullptr || property->format != 32)
        return {};
    const auto* first = static_cast<const std::int32_t*>(xcb_get_property_value(property.get()));
    return {first, first + property->value_len};
}

std::optional<double> DesktopScale(xcb_connection_t* display, xcb_window_t root)
{
    const Property property = ReadProperty(display, root, XCB_ATOM_RESOURCE_MANAGER);
    if (property == nullptr || property->format != 8)
        return std::nullopt;
    return ScaleFromResources(
        {static_cast<const char*>(xcb_get_property_value(property.get())), property->value_len});
}

// The desktop has one rectangle for all monitors, for each of its work spaces.
std::optional<PixelRect> WorkArea(xcb_connection_t* display, xcb_window_t root)
{
    const auto current = ReadNumbers(display, root, "_NET_CURRENT_DESKTOP");
    const auto areas = ReadNumbers(display, root, "_NET_WORKAREA");
    const std::size_t first =
        current.empty() || current[0] < 0 ? 0 : static_cast<std::size_t>(current[0]) * 4;
    if (areas.size() < first + 4)
        return std::nullopt;
    const auto* area = areas.data() + first;
    return PixelRect{area[0], area[1], area[0] + area[2], area[1] + area[3]};
}

Monitor MonitorFrom(const xcb_randr_monitor_info_t& info)
{
    Monitor monitor;
    monitor.bounds = {info.x, info.y, info.x + info.width, info.y + info.height};
    monitor.scale = ScaleFromSize(info.width, static_cast<std::int32_t>(std::min<std::uint32_t>(
                                                  info.width_in_millimeters, 100000)));
    return monitor;
}

// With the primary one first; none where the display doesn't know of monitors.
std::vector<Monitor> SeparateMonitors(xcb_connection_t* display, xcb_window_t root)
{
    if (!HasExtension(display, "RANDR"))
        return {};
    const Reply<xcb_randr_query_version_reply_t> version(
        xcb_randr_query_version_reply(display, xcb_randr_query_version(display, 1, 5), nullptr));
    if (version == nullptr || version->major_version < 1 ||
        (version->major_version == 1 && version->minor_version < 5))
        return {};
    const Reply<xcb_randr_get_monitors_reply_t> reply(
        xcb_randr_get_monitors_reply(display, xcb_randr_get_monitors(display, root, 1), nullptr));
    std::vector<Monitor> monitors;
    if (reply == nullptr)
        return monitors;
    for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
         xcb_randr_monitor_info_next(&each))
        monitors.insert(each.data->primary != 0 ? monitors.begin() : monitors.end(),
                        MonitorFrom(*each.data));
    return monitors;
}

} // namespace

std::optional<double> ScaleFromResources(std::string_view resources)
{
    constexpr std::string_view kName = "Xft.dpi:";
    while (!resources.empty()) {
        std::string_view line = resources.substr(0, resources.find('\n'));
        resources.remove_prefix(std::min(resources.size(), line.size() + 1));
        if (!line.starts_with(kName))
            continue;
        line.remove_prefix(kName.size());
        line.remove_prefix(std::min(line.size(), line.find_first_not_of(" \t")));
        double dots = 0.0;
        std::from_chars(line.data(), line.data() + line.size(), dots);
        if (dots >= 24 && dots <= 768)
            return dots / kUnitsPerInch;
    }
    return std::nullopt;
}

double ScaleFromSize(std::int32_t pixels, std::int32_t millimetres)
{
    if (pixels <= 0 || millimetres <= 0)
        return 1.0;
    const double dots = pixels * 25.4 / millimetres;
    return dots > 400 ? 1.0 : std::max(1.0, std::floor(dots / kUnitsPerInch * 4) / 4);
}

std::vector<Monitor> MonitorsOf(xcb_connection_t* display, const xcb_screen_t& screen)
{
    std::vector<Monitor> monitors = SeparateMonitors(display, screen.root);
    if (monitors.empty())
        monitors.push_back({{0, 0, screen.width_in_pixels, screen.height_in_pixels},
                            {},
                            ScaleFromSize(screen.width_in_pixels, screen.width_in_millimeters)});
    const auto scale = DesktopScale(display, screen.root);
    const auto workArea = WorkArea(display, screen.root);
    for (Monitor& monitor : monitors) {
        monitor.scale = scale.value_or(monitor.scale);
        monitor.workArea = Intersect(workArea.value_or(monitor.bounds), monitor.bounds);
        if (monitor.workArea.IsEmpty())
            monitor.workArea = monitor.bounds;
    }
    return monitors;
}

std::vector<Monitor> ListMonitors()
{
    if (!IsDisplayNamed())
        return MadeUp();
    const Display display;
    const xcb_screen_t* const screen = display.Screen();
    return screen != nullptr ? MonitorsOf(display.Connection(), *screen) : MadeUp();
}

bool MakeUpMonitors(std::vector<Monitor> monitors)
{
    if (monitors.empty() || (IsDisplayNamed() && Display().Screen() != nullptr))
        return false;
    MadeUp() = std::move(monitors);
    return true;
}

} // namespace Platform
