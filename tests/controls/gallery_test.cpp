// The gallery of buttons and fields, photographed in a window at two scales and in two themes. Each
// of its rows is held against the number that is kept for it; texts differ by the system's
// rasteriser, so each system has numbers of its own. golden/make writes them anew, and the pictures
// of the documentation with them.
#include "controls/registered_classes.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"
#include "platform/input/injection.h"
#include "platform/windows/window_paint.h"
#include "support/testing.h"
#include "view/test_pump.h"
#include "view/tree/pane.h"
#include "view/window/window_kinds.h"

namespace {

using namespace Kesto;
namespace fs = std::filesystem;

const fs::path kFolder = fs::path(SIDECAR_SOURCE_DIR) / "tests/controls/golden";
const bool kRemakes = std::getenv("SIDECAR_REMAKE_GOLDEN") != nullptr;

std::string TextOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// FNV-1a of the colours in a rectangle.
std::uint64_t NumberOf(const Platform::Bitmap& picture, const PixelRect& rect)
{
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        for (std::int32_t x = rect.left; x < rect.right; ++x)
            for (int channel = 0; channel < 3; ++channel)
                hash = (hash ^ picture.Bits()[y * picture.RowBytes() + x * 4 + channel]) *
                       0x100000001B3U;
    return hash;
}

void WritePixels(const Platform::Bitmap& picture, const fs::path& path)
{
    std::ofstream file(path, std::ios::binary);
    file << "P6 " << picture.Width() << ' ' << picture.Height() << " 255\n";
    for (std::int32_t y = 0; y < picture.Height(); ++y)
        for (std::int32_t x = 0; x < picture.Width(); ++x)
            for (int channel = 2; channel >= 0; --channel)
                file.put(
                    static_cast<char>(picture.Bits()[y * picture.RowBytes() + x * 4 + channel]));
}

// The gallery with the focus in a field and the mouse over a button; a line for each of its rows.
std::string Photograph(double scale, std::int32_t theme, const std::string& name)
{
    PumpedProcess process;
    CDrawTools::Get().SetTheme(theme);
    LayoutOwner owner;
    const fs::path layout = fs::path(SIDECAR_SOURCE_DIR) / "examples/layouts/gallery.vex";
    LoadLayoutFromText(owner, TextOf(layout).c_str());
    const std::unique_ptr<CWindow> window = owner.TakeWindow();
    window->SetModal(false);
    window->Start();
    window->ChangeScale(scale);
    window->SizeWindow({window->GetBounds().Width(), window->GetBounds().Height()});
    process.PumpQuiet();
    CPane* const field = window->FindChild(CObjID("Gallery/Fixed"), true);
    field->BecomeBullseye(true);
    field->SelectContents();
    const PixelRect hot = window->FindChild(CObjID("Gallery/Hot"), true)->GetGlobalRect();
    Platform::InjectMove({(hot.left + hot.right) / 2, (hot.top + hot.bottom) / 2});
    process.PumpQuiet();
    window->UpdateNow();
    process.PumpQuiet();
    Platform::Bitmap picture;
    EXPECT_TRUE(Platform::PhotographWindow(window->NativeHandle(), picture));
    if (kRemakes)
        WritePixels(picture, fs::temp_directory_path() / (name + ".ppm"));
    std::ostringstream lines;
    for (std::size_t row = 0; row < window->CountChildren(); ++row)
        lines << name << " row " << row << ' ' << std::hex
              << NumberOf(picture, window->GetChild(row)->GetDeviceRect()) << std::dec << '\n';
    return lines.str();
}

TEST(Gallery, LooksAsItDid)
{
    RegisterViewClasses();
    std::string lines;
    lines += Photograph(1.0, 0, "gallery");
    lines += Photograph(1.0, 3, "gallery-dark");
    lines += Photograph(2.0, 0, "gallery-2x");
    lines += Photograph(2.0, 3, "gallery-dark-2x");
    CDrawTools::Get().SetTheme(0);
    const fs::path kept = kFolder / SIDECAR_GOLDEN_FILE;
    if (kRemakes)
        std::ofstream(kept, std::ios::binary) << lines;
    EXPECT_EQ(lines, TextOf(kept)) << "If that is right now, run tests/controls/golden/make.";
}

} // namespace
