// The caret of a field in a program whose clock is held, so that waiting takes no time.
#include "platform/windows/window_log.h"

#include "platform/graphics/bitmap.h"
#include "platform/input/system_timer.h"
#include "platform/system/machine.h"
#include "platform/windows/edit_control.h"
#include "platform/windows/window_paint.h"
#include "support/testing.h"

#include <cstring>

namespace {

using namespace Platform;

struct Handler final : EditHandler {
    bool Intercept(const WindowMessage&) override { return false; }
    void ChildFocused(bool) override {}
    void TextChanged() override {}
};

PixelRect Changed(const Bitmap& before, const Bitmap& after)
{
    PixelRect changed;
    for (std::int32_t y = 0; y < before.Height(); ++y)
        for (std::int32_t x = 0; x < before.Width(); ++x) {
            const std::ptrdiff_t place = y * before.RowBytes() + x * 4;
            if (std::memcmp(before.Bits() + place, after.Bits() + place, 4) != 0)
                changed = Union(changed, {x, y, x + 1, y + 1});
        }
    return changed;
}

// How often the caret has come and gone in half a minute, and where.
std::pair<int, PixelRect> Blinks(NativeWindow window)
{
    Bitmap before;
    PhotographWindow(window, before);
    std::pair<int, PixelRect> blinks;
    const std::uintptr_t end = ArmTimer(nullptr, 0, 30000);
    while (const auto message = AwaitMessage()) {
        if (message->window == nullptr && message->first == end)
            break;
        DispatchToWindow(*message);
        Bitmap after;
        PhotographWindow(window, after);
        const PixelRect changed = Changed(before, after);
        blinks.first += changed.IsEmpty() ? 0 : 1;
        blinks.second = Union(blinks.second, changed);
        before = std::move(after);
    }
    DisarmTimer(nullptr, end);
    return blinks;
}

TEST(Caret, BlinksForTenSecondsAfterAKeyAndStaysOn)
{
    ASSERT_TRUE(HoldClock());
    WindowTest::Log log;
    WindowTest::Window window{"w", log};
    Handler handler;
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    const auto edit = MakeEditControl(window.handle, {}, {}, handler);
    edit->Place({10, 10, 250, 30});
    edit->SetText("text");
    edit->SetShown(true);
    FocusWindow(edit->Handle());
    for (const char* time : {"opened", "after a key"}) {
        SCOPED_TRACE(time);
        WindowTest::Pump();
        const auto [times, place] = Blinks(edit->Handle());
        EXPECT_EQ(times, 18) << "each 0.53 s, and seen at last";
        EXPECT_EQ(place.right - place.left, 1);
        edit->Select({2, 2});
    }
    WindowTest::Pump();
    edit->Select({0, 4});
    WindowTest::Pump();
    EXPECT_EQ(Blinks(edit->Handle()).first, 0) << "a selection has no caret";
}

} // namespace
