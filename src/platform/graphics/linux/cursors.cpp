#include "platform/graphics/linux/cursor_record.h"
#include "platform/system/linux/xcb_reply.h"

#include <array>
#include <xcb/render.h>
#include <xcb/xcb_cursor.h>

namespace Platform {
namespace {

struct ShapeNames {
    CursorShape shape;
    const char* name;  // of the themes of today
    const char* older; // of the display's own font of cursors
};

constexpr std::array kShapes = {
    ShapeNames{CursorShape::kArrow, "default", "left_ptr"},
    ShapeNames{CursorShape::kText, "text", "xterm"},
    ShapeNames{CursorShape::kCross, "crosshair", "crosshair"},
    ShapeNames{CursorShape::kHand, "pointer", "hand2"},
    ShapeNames{CursorShape::kWait, "wait", "watch"},
    ShapeNames{CursorShape::kArrowWait, "progress", "watch"},
    ShapeNames{CursorShape::kNotAllowed, "not-allowed", "X_cursor"},
    ShapeNames{CursorShape::kHelp, "help", "question_arrow"},
    ShapeNames{CursorShape::kSizeLeftRight, "ew-resize", "sb_h_double_arrow"},
    ShapeNames{CursorShape::kSizeUpDown, "ns-resize", "sb_v_double_arrow"},
    ShapeNames{CursorShape::kSizeFalling, "nwse-resize", "bottom_right_corner"},
    ShapeNames{CursorShape::kSizeRising, "nesw-resize", "bottom_left_corner"},
    ShapeNames{CursorShape::kSizeAll, "all-scroll", "fleur"},
};

constexpr std::uint32_t kTransparent = 0;

xcb_cursor_t LoadShape(xcb_connection_t* display, xcb_screen_t* screen, const ShapeNames& names)
{
    xcb_cursor_context_t* context = nullptr;
    if (xcb_cursor_context_new(display, screen, &context) < 0)
        return XCB_NONE;
    xcb_cursor_t cursor = xcb_cursor_load_cursor(context, names.name);
    if (cursor == XCB_NONE)
        cursor = xcb_cursor_load_cursor(context, names.older);
    xcb_cursor_context_free(context);
    return cursor;
}

// The display's picture format of 32 bits with alpha, or 0.
xcb_render_pictformat_t AlphaFormat(xcb_connection_t* display)
{
    if (!HasExtension(display, "RENDER"))
        return 0;
    const Reply<xcb_render_query_pict_formats_reply_t> formats(xcb_render_query_pict_formats_reply(
        display, xcb_render_query_pict_formats(display), nullptr));
    if (formats == nullptr)
        return 0;
    auto each = xcb_render_query_pict_formats_formats_iterator(formats.get());
    for (; each.rem > 0; xcb_render_pictforminfo_next(&each)) {
        const auto& direct = each.data->direct;
        if (each.data->depth == 32 && direct.alpha_mask == 0xFF && direct.alpha_shift == 24 &&
            direct.red_shift == 16 && direct.blue_shift == 0)
            return each.data->id;
    }
    return 0;
}

xcb_cursor_t MakeOfPixels(xcb_connection_t* display, xcb_screen_t* screen,
                          std::span<const std::uint32_t> pixels, std::int32_t width,
                          std::int32_t height, PixelPoint hotSpot)
{
    const xcb_render_pictformat_t format = AlphaFormat(display);
    if (format == 0)
        return XCB_NONE;
    const auto across = static_cast<std::uint16_t>(width);
    const auto down = static_cast<std::uint16_t>(height);
    const xcb_pixmap_t pixmap = xcb_generate_id(display);
    xcb_create_pixmap(display, 32, pixmap, screen->root, across, down);
    const xcb_gcontext_t tools = xcb_generate_id(display);
    xcb_create_gc(display, tools, pixmap, 0, nullptr);
    xcb_put_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, tools, across, down, 0, 0, 0, 32,
                  static_cast<std::uint32_t>(pixels.size_bytes()),
                  reinterpret_cast<const std::uint8_t*>(pixels.data()));
    const xcb_render_picture_t picture = xcb_generate_id(display);
    xcb_render_create_picture(display, picture, pixmap, format, 0, nullptr);
    const xcb_cursor_t cursor = xcb_generate_id(display);
    xcb_render_create_cursor(display, cursor, picture, static_cast<std::uint16_t>(hotSpot.x),
                             static_cast<std::uint16_t>(hotSpot.y));
    // The cursor keeps what it needs of them.
    xcb_render_free_picture(display, picture);
    xcb_free_gc(display, tools);
    xcb_free_pixmap(display, pixmap);
    return cursor;
}

} // namespace

std::shared_ptr<const Cursor::Record> Cursor::MakeRecord(CursorShape shape)
{
    auto record = std::make_shared<Record>();
    record->shape = shape;
    return record;
}

std::shared_ptr<const Cursor::Record> Cursor::MakeRecord(std::span<const std::uint32_t> pixels,
                                                         std::int32_t width, std::int32_t height,
                                                         PixelPoint hotSpot)
{
    auto record = std::make_shared<Record>();
    record->pixels.assign(pixels.begin(), pixels.begin() + std::ptrdiff_t{width} * height);
    record->width = width;
    record->height = height;
    record->hotSpot = hotSpot;
    return record;
}

xcb_cursor_t MakeDisplayCursor(xcb_connection_t* display, xcb_screen_t* screen,
                               const Cursor& cursor)
{
    const Cursor::Record& record = cursor.GetRecord();
    if (!record.pixels.empty())
        return MakeOfPixels(display, screen, record.pixels, record.width, record.height,
                            record.hotSpot);
    for (const ShapeNames& names : kShapes)
        if (names.shape == record.shape)
            return LoadShape(display, screen, names);
    return MakeOfPixels(display, screen, {&kTransparent, 1}, 1, 1, {});
}

} // namespace Platform
