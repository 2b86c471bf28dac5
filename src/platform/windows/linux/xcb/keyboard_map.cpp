#include "platform/windows/linux/xcb/keyboard_map.h"

#include "platform/system/linux/xcb_reply.h"

#include <array>
#include <cstdlib>
#include <xkbcommon/xkbcommon-x11.h>

// A field of its records is called what is a word of this language.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicit_field
#include <xcb/xkb.h>
#undef explicit
#ifdef __clang__
#pragma clang diagnostic pop
#endif

namespace Platform {
namespace {

struct NumberedKey {
    xkb_keysym_t symbol;
    std::uint32_t number;
};

constexpr NumberedKey kKeys[] = {
    {XKB_KEY_BackSpace, 0x08},  {XKB_KEY_Tab, 0x09},          {XKB_KEY_ISO_Left_Tab, 0x09},
    {XKB_KEY_Return, 0x0D},     {XKB_KEY_KP_Enter, 0x0D},     {XKB_KEY_Shift_L, 0x10},
    {XKB_KEY_Shift_R, 0x10},    {XKB_KEY_Control_L, 0x11},    {XKB_KEY_Control_R, 0x11},
    {XKB_KEY_Alt_L, 0x12},      {XKB_KEY_Alt_R, 0x12},        {XKB_KEY_Meta_L, 0x12},
    {XKB_KEY_Meta_R, 0x12},     {XKB_KEY_Pause, 0x13},        {XKB_KEY_Caps_Lock, 0x14},
    {XKB_KEY_Escape, 0x1B},     {XKB_KEY_space, 0x20},        {XKB_KEY_Page_Up, 0x21},
    {XKB_KEY_Page_Down, 0x22},  {XKB_KEY_End, 0x23},          {XKB_KEY_Home, 0x24},
    {XKB_KEY_Left, 0x25},       {XKB_KEY_Up, 0x26},           {XKB_KEY_Right, 0x27},
    {XKB_KEY_Down, 0x28},       {XKB_KEY_Insert, 0x2D},       {XKB_KEY_Delete, 0x2E},
    {XKB_KEY_KP_Page_Up, 0x21}, {XKB_KEY_KP_Page_Down, 0x22}, {XKB_KEY_KP_End, 0x23},
    {XKB_KEY_KP_Home, 0x24},    {XKB_KEY_KP_Left, 0x25},      {XKB_KEY_KP_Up, 0x26},
    {XKB_KEY_KP_Right, 0x27},   {XKB_KEY_KP_Down, 0x28},      {XKB_KEY_KP_Insert, 0x2D},
    {XKB_KEY_KP_Delete, 0x2E},  {XKB_KEY_Menu, 0x5D},         {XKB_KEY_KP_Multiply, 0x6A},
    {XKB_KEY_KP_Add, 0x6B},     {XKB_KEY_KP_Subtract, 0x6D},  {XKB_KEY_KP_Decimal, 0x6E},
    {XKB_KEY_KP_Divide, 0x6F},  {XKB_KEY_Num_Lock, 0x90},     {XKB_KEY_Scroll_Lock, 0x91},
    {XKB_KEY_semicolon, 0xBA},  {XKB_KEY_equal, 0xBB},        {XKB_KEY_plus, 0xBB},
    {XKB_KEY_comma, 0xBC},      {XKB_KEY_minus, 0xBD},        {XKB_KEY_period, 0xBE},
    {XKB_KEY_slash, 0xBF},      {XKB_KEY_grave, 0xC0},        {XKB_KEY_bracketleft, 0xDB},
    {XKB_KEY_backslash, 0xDC},  {XKB_KEY_bracketright, 0xDD}, {XKB_KEY_apostrophe, 0xDE},
    {XKB_KEY_less, 0xE2},
};

// 0 for a symbol that no key is numbered by.
std::uint32_t NumberOfSymbol(xkb_keysym_t symbol)
{
    if (symbol >= XKB_KEY_a && symbol <= XKB_KEY_z)
        return symbol - XKB_KEY_a + 'A';
    if ((symbol >= XKB_KEY_0 && symbol <= XKB_KEY_9) ||
        (symbol >= XKB_KEY_A && symbol <= XKB_KEY_Z))
        return symbol;
    if (symbol >= XKB_KEY_KP_0 && symbol <= XKB_KEY_KP_9)
        return symbol - XKB_KEY_KP_0 + 0x60;
    if (symbol >= XKB_KEY_F1 && symbol <= XKB_KEY_F24)
        return symbol - XKB_KEY_F1 + 0x70;
    for (const NumberedKey& key : kKeys)
        if (key.symbol == symbol)
            return key.number;
    return 0;
}

// UTF-8 as the library gives it, which is well-formed.
std::u16string ToUnits(const char* utf8)
{
    std::u16string units;
    for (auto at = reinterpret_cast<const unsigned char*>(utf8); *at != 0;) {
        const int more = *at < 0x80 ? 0 : *at < 0xE0 ? 1 : *at < 0xF0 ? 2 : 3;
        char32_t c = more == 0 ? *at : *at & (0x3F >> more);
        ++at;
        for (int i = 0; i < more && *at != 0; ++i)
            c = c << 6 | (*at++ & 0x3F);
        if (c >= 0x10000) {
            units += static_cast<char16_t>(0xD7C0 + (c >> 10));
            units += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else
            units += static_cast<char16_t>(c);
    }
    return units;
}

const char* LocaleOfText()
{
    for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* const value = std::getenv(name); value != nullptr && *value != 0)
            return value;
    return "C";
}

// A key that is held comes as presses alone, without releases in between.
void AskForPlainRepeats(xcb_connection_t* connection)
{
    constexpr std::uint32_t kFlag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const Reply<xcb_xkb_per_client_flags_reply_t> reply(xcb_xkb_per_client_flags_reply(
        connection,
        xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, kFlag, kFlag, 0, 0, 0),
        nullptr));
}

} // namespace

KeyboardMap::KeyboardMap(xcb_connection_t* connection)
    : fConnection(connection), fContext(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    xkb_rule_names latin{};
    latin.layout = "us";
    fLatinMap.reset(xkb_keymap_new_from_names(fContext.get(), &latin, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (fLatinMap != nullptr)
        fLatinState.reset(xkb_state_new(fLatinMap.get()));
    fComposeTable.reset(xkb_compose_table_new_from_locale(fContext.get(), LocaleOfText(),
                                                          XKB_COMPOSE_COMPILE_NO_FLAGS));
    if (fComposeTable != nullptr)
        fCompose.reset(xkb_compose_state_new(fComposeTable.get(), XKB_COMPOSE_STATE_NO_FLAGS));
    ReadMap();
}

void KeyboardMap::Reload()
{
    ReadMap();
}

// A display without the extension has the usual map.
void KeyboardMap::ReadMap()
{
    const bool known = xkb_x11_setup_xkb_extension(fConnection, XKB_X11_MIN_MAJOR_XKB_VERSION,
                                                   XKB_X11_MIN_MINOR_XKB_VERSION,
                                                   XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr,
                                                   nullptr, nullptr, nullptr) != 0;
    fState.reset();
    fMap.reset();
    if (known) {
        AskForPlainRepeats(fConnection);
        const std::int32_t device = xkb_x11_get_core_keyboard_device_id(fConnection);
        fMap.reset(xkb_x11_keymap_new_from_device(fContext.get(), fConnection, device,
                                                  XKB_KEYMAP_COMPILE_NO_FLAGS));
    }
    if (fMap == nullptr)
        fMap.reset(xkb_keymap_new_from_names(fContext.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (fMap != nullptr)
        fState.reset(xkb_state_new(fMap.get()));
}

// The event's word holds the modifiers in its low byte and the layout's number above.
void KeyboardMap::Follow(xkb_state* state, std::uint16_t modifiers)
{
    xkb_state_update_mask(state, modifiers & 0xFF, 0, 0, 0, 0, (modifiers >> 13) & 3);
}

std::uint32_t KeyboardMap::NumberOf(std::uint8_t code, std::uint16_t modifiers)
{
    if (fState == nullptr)
        return 0;
    constexpr std::uint16_t kNumLock = XCB_MOD_MASK_2;
    Follow(fState.get(), modifiers & (0x6000 | kNumLock)); // shifted or not, a key is one key
    if (const std::uint32_t number = NumberOfSymbol(xkb_state_key_get_one_sym(fState.get(), code)))
        return number;
    return fLatinState != nullptr
               ? NumberOfSymbol(xkb_state_key_get_one_sym(fLatinState.get(), code))
               : 0;
}

std::u16string KeyboardMap::TextOf(std::uint8_t code, std::uint16_t modifiers)
{
    if (fState == nullptr)
        return {};
    Follow(fState.get(), modifiers);
    std::array<char, 64> text{};
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(fState.get(), code);
    // A dead key gives no text; the key after it gives that of both.
    const bool feeds = fCompose != nullptr &&
                       xkb_compose_state_feed(fCompose.get(), symbol) == XKB_COMPOSE_FEED_ACCEPTED;
    switch (feeds ? xkb_compose_state_get_status(fCompose.get()) : XKB_COMPOSE_NOTHING) {
    case XKB_COMPOSE_COMPOSED:
        xkb_compose_state_get_utf8(fCompose.get(), text.data(), text.size());
        xkb_compose_state_reset(fCompose.get());
        break;
    case XKB_COMPOSE_CANCELLED:
        xkb_compose_state_reset(fCompose.get());
        break;
    case XKB_COMPOSE_COMPOSING:
        break;
    case XKB_COMPOSE_NOTHING:
        xkb_state_key_get_utf8(fState.get(), code, text.data(), text.size());
        break;
    }
    return ToUnits(text.data());
}

} // namespace Platform
