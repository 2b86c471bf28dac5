// What a frame of Windows offers, by the window's kind and features.
#include "platform/windows/window_log.h"
#include "support/testing.h"

#include <windows.h>

namespace {

using namespace Platform;

struct FrameOfRow {
    const char* what;
    WindowKind kind;
    std::uint32_t features;
    DWORD has;   // of the style bits
    DWORD lacks; // of the same
    DWORD extended;
    LRESULT title = HTNOWHERE; // what the mouse finds in the middle of it, if it has one
};

constexpr DWORD kAll = WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
constexpr DWORD kNever = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;

TEST(Frames, OfferWhatTheKindAndTheFeaturesSay)
{
    const FrameOfRow rows[] = {
        {"a document without features", WindowKind::kDocument, 0, WS_CAPTION, kAll, 0, HTBORDER},
        {"that can close", WindowKind::kDocument, 1, WS_SYSMENU, kAll & ~WS_SYSMENU, 0, HTBORDER},
        {"that can be sized", WindowKind::kDocument, 4, WS_THICKFRAME, kAll & ~WS_THICKFRAME, 0},
        {"that can do all", WindowKind::kDocument, 127, kAll, WS_POPUP, 0, HTCAPTION},
        {"a dialog", WindowKind::kDialog, 3, WS_POPUP | WS_CAPTION, WS_THICKFRAME,
         WS_EX_DLGMODALFRAME},
        {"a palette", WindowKind::kPalette, 3, WS_CAPTION, WS_THICKFRAME, kNever},
        {"a popup", WindowKind::kPopup, 127, WS_POPUP, kAll | WS_BORDER, kNever},
        {"one without a frame", WindowKind::kDocumentSeamless, 127, WS_POPUP, kAll | WS_BORDER, 0},
    };
    for (const FrameOfRow& row : rows) {
        SCOPED_TRACE(row.what);
        WindowTest::Log log;
        WindowPlan plan;
        plan.kind = row.kind;
        plan.features = row.features;
        const WindowTest::Window window("w", log, plan);
        auto* const handle = reinterpret_cast<HWND>(window.handle);
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_STYLE));
        EXPECT_EQ(style & row.has, row.has);
        EXPECT_EQ(style & row.lacks, 0U);
        const auto extended = static_cast<DWORD>(GetWindowLongPtrW(handle, GWL_EXSTYLE));
        EXPECT_EQ(extended & (kNever | WS_EX_DLGMODALFRAME), row.extended);
        if (row.title == HTNOWHERE)
            continue;
        ShowSystemWindow(window.handle, ShowCommand::kShow);
        const PixelRect frame = FrameOf(window.handle);
        const std::int32_t x = (frame.left + frame.right) / 2;
        const std::int32_t y = (frame.top + ContentOf(window.handle).top) / 2;
        EXPECT_EQ(SendMessageW(handle, WM_NCHITTEST, 0, MAKELPARAM(x, y)), row.title);
    }
}

} // namespace
