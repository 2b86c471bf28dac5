// Windows on the display: what they tell the window manager, and their pixels.
#include "platform/graphics/linux/cursor_record.h"
#include "platform/input/linux/input.h"
#include "platform/system/errors.h"
#include "platform/system/linux/xcb_reply.h"
#include "platform/windows/linux/window.h"
#include "platform/windows/linux/xcb/xcb_display.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace Platform {
namespace {

constexpr std::uint32_t kEvents = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                  XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS |
                                  XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_BUTTON_PRESS |
                                  XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION |
                                  XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_PROPERTY_CHANGE;

std::uint16_t Side(std::int32_t pixels)
{
    return static_cast<std::uint16_t>(std::clamp(pixels, 1, 32767));
}

Atom TypeOf(WindowKind kind)
{
    switch (kind) {
    case WindowKind::kAlert:
    case WindowKind::kDialog:
        return Atom::kTypeDialog;
    case WindowKind::kPalette:
        return Atom::kTypeUtility;
    case WindowKind::kToolbar:
        return Atom::kTypeToolbar;
    case WindowKind::kPopup:
        return Atom::kTypePopup;
    default:
        return Atom::kTypeNormal;
    }
}

std::uint32_t OwnerNumber(const LinuxWindow& window)
{
    const LinuxWindow* const owner = LinuxWindow::From(window.fOwner);
    return owner != nullptr ? owner->fServerID : window.fForeignOwner;
}

bool TakesMouse(const LinuxWindow& window)
{
    return window.fKind == WindowKind::kPopup && window.fTakesMouse;
}

// A window whose owner takes no input, or is another program's, is modal.
bool IsModal(const LinuxWindow& window)
{
    const LinuxWindow* const owner = LinuxWindow::From(window.fOwner);
    const bool isDialog = window.fKind == WindowKind::kAlert || window.fKind == WindowKind::kDialog;
    return isDialog && (owner != nullptr ? !owner->fEnabled : window.fForeignOwner != 0);
}

} // namespace

XcbDisplay::XcbDisplay(xcb_connection_t* connection, xcb_screen_t* screen)
    : fConnection(connection), fScreen(screen), fAtoms(connection), fKeyboard(connection),
      fHelper(xcb_generate_id(connection)), fTools(xcb_generate_id(connection))
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, fHelper, screen->root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_create_gc(connection, fTools, screen->root, 0, nullptr);
    const std::uint32_t ofScreen = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, screen->root, XCB_CW_EVENT_MASK, &ofScreen);
    SetInputSource(xcb_get_file_descriptor(connection), [this] { Read(); });
}

XcbDisplay::~XcbDisplay()
{
    SetInputSource(-1, nullptr);
    xcb_disconnect(fConnection);
}

bool XcbDisplay::AddWindow(LinuxWindow& window)
{
    if (fIsLost) {
        SetLastError(EPIPE);
        return false;
    }
    const PixelRect local = window.Local();
    // A popup is placed without the window manager, which would frame it and give it the focus.
    const bool isPopup = window.fKind == WindowKind::kPopup;
    const std::uint32_t values[] = {XCB_GRAVITY_NORTH_WEST, isPopup ? 1U : 0U, kEvents};
    window.fServerID = xcb_generate_id(fConnection);
    xcb_create_window(fConnection, XCB_COPY_FROM_PARENT, window.fServerID, fScreen->root,
                      static_cast<std::int16_t>(window.fContent.left),
                      static_cast<std::int16_t>(window.fContent.top), Side(local.right),
                      Side(local.bottom), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, fScreen->root_visual,
                      XCB_CW_BIT_GRAVITY | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    fWindows[window.fServerID].window = &window;
    Describe(window);
    return true;
}

void XcbDisplay::RemoveWindow(LinuxWindow& window)
{
    fWindows.erase(window.fServerID);
    if (fFocused == window.fServerID)
        fFocused = 0;
    if (!fIsLost) {
        xcb_destroy_window(fConnection, window.fServerID);
        if (TakesMouse(window))
            GrabMouse();
    }
    xcb_flush(fConnection);
}

void XcbDisplay::Describe(LinuxWindow& window)
{
    const std::uint32_t number = window.fServerID;
    const xcb_atom_t protocols[] = {fAtoms[Atom::kDeleteWindow], fAtoms[Atom::kPing]};
    const xcb_atom_t type[] = {fAtoms[TypeOf(window.fKind)]};
    SetAtoms(number, fAtoms[Atom::kProtocols], protocols);
    SetAtoms(number, fAtoms[Atom::kWindowType], type);
    // Two names, of the program and of the class, with a zero after each.
    std::string name = window.fClassName;
    name += '\0';
    name += window.fClassName;
    name += '\0';
    SetText(number, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, name);
    if (const std::uint32_t owner = OwnerNumber(window))
        xcb_change_property(fConnection, XCB_PROP_MODE_REPLACE, number, XCB_ATOM_WM_TRANSIENT_FOR,
                            XCB_ATOM_WINDOW, 32, 1, &owner);
    Title(window);
}

// The size hints: flags, four obsolete numbers, least and most size, and others that stay 0.
void XcbDisplay::DescribeLimits(LinuxWindow& window)
{
    constexpr std::uint32_t kPosition = 1U << 2;
    constexpr std::uint32_t kExtent = 1U << 3;
    constexpr std::uint32_t kLeast = 1U << 4;
    constexpr std::uint32_t kMost = 1U << 5;
    constexpr std::uint32_t kGravity = 1U << 9;
    constexpr std::uint32_t kStatic = 10; // the place is the content's
    std::array<std::uint32_t, 18> hints{};
    const PixelRect local = window.Local();
    const bool canSize = (window.fFeatures & WindowFeature::kCanSize) != 0;
    const PixelPoint size{local.right, local.bottom};
    const auto [least, most] = canSize ? window.AskLimits() : LinuxWindow::Limits{size, size};
    hints[0] = kPosition | kExtent | kLeast | kMost | kGravity;
    hints[5] = Side(least.x);
    hints[6] = Side(least.y);
    hints[7] = Side(std::max(most.x, least.x));
    hints[8] = Side(std::max(most.y, least.y));
    hints[17] = kStatic;
    xcb_change_property(fConnection, XCB_PROP_MODE_REPLACE, window.fServerID,
                        XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(),
                        hints.data());
}

// What the frame offers: a word that says which of four others count, then one with a bit for each
// function.
void XcbDisplay::DescribeFrame(const LinuxWindow& window)
{
    constexpr std::uint32_t kFunctionsCount = 1U << 0;
    constexpr std::pair<std::uint32_t, std::uint32_t> kFunctions[] = {
        {WindowFeature::kCanSize, 1U << 1},
        {WindowFeature::kCanMove, 1U << 2},
        {WindowFeature::kCanMinimize, 1U << 3},
        {WindowFeature::kCanMaximize, 1U << 4},
        {WindowFeature::kCanClose, 1U << 5}};
    std::array<std::uint32_t, 5> hints{kFunctionsCount};
    for (const auto& [feature, function] : kFunctions)
        hints[1] |= (window.fFeatures & feature) != 0 ? function : 0;
    const xcb_atom_t name = fAtoms[Atom::kFrameHints];
    xcb_change_property(fConnection, XCB_PROP_MODE_REPLACE, window.fServerID, name, name, 32,
                        hints.size(), hints.data());
}

void XcbDisplay::SetAtoms(std::uint32_t number, xcb_atom_t property,
                          std::span<const xcb_atom_t> values)
{
    xcb_change_property(fConnection, XCB_PROP_MODE_REPLACE, number, property, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void XcbDisplay::SetText(std::uint32_t number, xcb_atom_t property, xcb_atom_t type,
                         std::string_view text)
{
    xcb_change_property(fConnection, XCB_PROP_MODE_REPLACE, number, property, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

void XcbDisplay::Title(LinuxWindow& window)
{
    SetText(window.fServerID, fAtoms[Atom::kName], fAtoms[Atom::kUTF8], window.fTitle);
    SetText(window.fServerID, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, window.fTitle);
}

// A popup has the mouse everywhere, so that a press elsewhere closes it; when it goes, the popup
// below it has it again.
void XcbDisplay::GrabMouse()
{
    const auto last = std::find_if(fWindows.rbegin(), fWindows.rend(), [](const auto& known) {
        return TakesMouse(*known.second.window) && known.second.window->fShown;
    });
    if (last == fWindows.rend())
        xcb_ungrab_pointer(fConnection, XCB_CURRENT_TIME);
    else
        xcb_grab_pointer(fConnection, 1, last->first,
                         XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                             XCB_EVENT_MASK_POINTER_MOTION,
                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE,
                         XCB_CURRENT_TIME);
}

void XcbDisplay::Show(LinuxWindow& window)
{
    const std::uint32_t number = window.fServerID;
    if (!window.fShown) {
        xcb_unmap_window(fConnection, number);
        if (TakesMouse(window))
            GrabMouse();
        xcb_flush(fConnection);
        return;
    }
    DescribeLimits(window);
    DescribeFrame(window);
    const xcb_atom_t modal[] = {fAtoms[Atom::kStateModal]};
    SetAtoms(number, fAtoms[Atom::kState],
             std::span<const xcb_atom_t>(modal, IsModal(window) ? 1 : 0));
    xcb_map_window(fConnection, number);
    if (TakesMouse(window))
        GrabMouse();
    xcb_flush(fConnection);
}

void XcbDisplay::Place(LinuxWindow& window)
{
    const PixelRect local = window.Local();
    DescribeLimits(window);
    DescribeFrame(window);
    const std::uint32_t values[] = {static_cast<std::uint32_t>(window.fContent.left),
                                    static_cast<std::uint32_t>(window.fContent.top),
                                    Side(local.right), Side(local.bottom)};
    const auto cookie = xcb_configure_window(fConnection, window.fServerID,
                                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y |
                                                 XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                                             values);
    if (Known* const known = Find(window.fServerID))
        known->placed = cookie.sequence;
    // What the display has told before, and still waits to be heard, is out of date.
    window.fServerContent = window.fContent;
}

void XcbDisplay::Raise(LinuxWindow& window)
{
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(fConnection, window.fServerID, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

// A window that isn't mapped yet gets the keyboard when it is.
void XcbDisplay::Focus(LinuxWindow& window)
{
    const Known* const known = Find(window.fServerID);
    if (known != nullptr && known->isMapped && fFocused != window.fServerID)
        xcb_set_input_focus(fConnection, XCB_INPUT_FOCUS_PARENT, window.fServerID,
                            XCB_CURRENT_TIME);
}

void XcbDisplay::SendToRoot(std::uint32_t number, xcb_atom_t type,
                            std::array<std::uint32_t, 5> data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = number;
    event.type = type;
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(fConnection, 0, fScreen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

void XcbDisplay::ShowState(LinuxWindow& window)
{
    constexpr std::uint32_t kIconic = 3;
    const bool maximized = window.fExtent == LinuxWindow::Extent::kMaximized;
    SendToRoot(window.fServerID, fAtoms[Atom::kState],
               {maximized ? 1U : 0U, fAtoms[Atom::kStateMaximizedX], fAtoms[Atom::kStateMaximizedY],
                1, 0});
    if (window.fExtent == LinuxWindow::Extent::kMinimized)
        SendToRoot(window.fServerID, fAtoms[Atom::kChangeState], {kIconic, 0, 0, 0, 0});
}

// A control's pixels lie over those of its window.
void XcbDisplay::Present(LinuxWindow& window, std::span<const PixelRect> rects)
{
    if (fIsLost || !window.Top().fShown)
        return;
    std::vector<PixelRect> seen(rects.begin(), rects.end());
    for (const LinuxWindow* const child : window.fChildren)
        if (child->fShown)
            SubtractRect(seen, child->fContent);
    PixelPoint place;
    for (const LinuxWindow* at = &window; at->fParent != nullptr; at = at->fParent) {
        place = {place.x + at->fContent.left, place.y + at->fContent.top};
        ClipRects(seen, Offset(at->fParent->Local(), -place.x, -place.y));
    }
    for (const PixelRect& rect : seen)
        PutRect(window.Top(), window.fPicture, rect, {rect.left + place.x, rect.top + place.y});
    xcb_flush(fConnection);
}

// In as many pieces as the display takes at a time.
void XcbDisplay::PutRect(const LinuxWindow& window, const Bitmap& picture, const PixelRect& rect,
                         PixelPoint place)
{
    constexpr std::size_t kHeader = 64;
    const auto bytes = std::size_t(rect.right - rect.left) * 4;
    const std::size_t most = std::size_t{xcb_get_maximum_request_length(fConnection)} * 4 - kHeader;
    const auto rows = static_cast<std::int32_t>(
        std::clamp<std::size_t>(most / bytes, 1, std::size_t(rect.bottom - rect.top)));
    std::vector<std::uint8_t> pixels;
    for (std::int32_t top = rect.top; top < rect.bottom; top += rows) {
        const std::int32_t bottom = std::min(top + rows, rect.bottom);
        pixels.resize(bytes * std::size_t(bottom - top));
        for (std::int32_t y = top; y < bottom; ++y)
            std::memcpy(pixels.data() + bytes * std::size_t(y - top),
                        picture.Bits() + y * picture.RowBytes() + rect.left * 4, bytes);
        xcb_put_image(fConnection, XCB_IMAGE_FORMAT_Z_PIXMAP, window.fServerID, fTools,
                      static_cast<std::uint16_t>(rect.right - rect.left),
                      static_cast<std::uint16_t>(bottom - top), static_cast<std::int16_t>(place.x),
                      static_cast<std::int16_t>(place.y + top - rect.top), 0, fScreen->root_depth,
                      static_cast<std::uint32_t>(pixels.size()), pixels.data());
    }
}

xcb_cursor_t XcbDisplay::CursorOf(const Cursor& cursor)
{
    constexpr std::size_t kMostKept = 64;
    const Cursor::Record* const record = &cursor.GetRecord();
    if (const auto found = fCursors.find(record); found != fCursors.end())
        return found->second.second;
    if (fCursors.size() == kMostKept) {
        for (const auto& [key, kept] : fCursors)
            xcb_free_cursor(fConnection, kept.second);
        fCursors.clear();
    }
    const xcb_cursor_t made = MakeDisplayCursor(fConnection, fScreen, cursor);
    fCursors.insert_or_assign(record, std::pair(cursor, made));
    return made;
}

void XcbDisplay::ShowCursor(LinuxWindow& window, const Cursor& cursor)
{
    Known* const known = Find(window.Top().fServerID);
    if (known == nullptr || fIsLost)
        return;
    const xcb_cursor_t wanted = CursorOf(cursor);
    if (std::exchange(known->cursor, wanted) != wanted)
        xcb_change_window_attributes(fConnection, window.Top().fServerID, XCB_CW_CURSOR, &wanted);
}

FrameInsets XcbDisplay::Insets(const LinuxWindow& window)
{
    const Known* const known = Find(window.fServerID);
    return known != nullptr ? known->insets : FrameInsets{};
}

bool XcbDisplay::IsForeignWindow(std::uint32_t number)
{
    if (number == 0 || fIsLost)
        return false;
    const Reply<xcb_get_geometry_reply_t> reply(
        xcb_get_geometry_reply(fConnection, xcb_get_geometry(fConnection, number), nullptr));
    return reply != nullptr;
}

std::unique_ptr<Display> ConnectDisplay()
{
    if (!IsDisplayNamed())
        return nullptr;
    int number = 0;
    xcb_connection_t* const connection = xcb_connect(nullptr, &number);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        return nullptr;
    }
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    // Bitmaps have 32 bits a pixel; a screen of fewer than 24 would need other ones.
    const bool fits = screens.rem > 0 && screens.data->root_depth >= 24;
    if (!fits) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::make_unique<XcbDisplay>(connection, screens.data);
}

} // namespace Platform
