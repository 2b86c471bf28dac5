// Storage that the system shares: what kernels write into a display pixmap is drawn by the graphics
// system, and a slot of a scratch file has its room on the disk.
#include "foundation/spec_folder.h"
#include "pixels/kernels/colour.h"
#include "pixels/operations/pixel_fill.h"
#include "pixels/pixmaps/display_view.h"
#include "pixels/pixmaps/memory_pixmap.h"
#include "pixels/tiles/virtual_file.h"
#include "support/testing.h"

#include <cairo.h>

#include <sys/stat.h>

using namespace Kesto;

namespace {

// The first pixel of a black surface on which the pixmap's bitmap is drawn.
std::uint32_t Drawn(const CDisplayPixmap& pixmap)
{
    const auto source = reinterpret_cast<cairo_surface_t*>(pixmap.GetBitmap().Native());
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> target(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1), cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(target.get()),
                                                                     cairo_destroy);
    cairo_set_source_surface(context.get(), source, 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(target.get());
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, cairo_image_surface_get_data(target.get()), sizeof pixel);
    return pixel & 0xffffff;
}

} // namespace

TEST(DisplayPixmap, DrawsWhatWasWritten)
{
    CDisplayPixmap pixmap(4, 4);
    const std::uint32_t red = 0xffff0000;
    Fill(pixmap, pixmap.GetBounds(), &red, 0, -1);
    EXPECT_EQ(Drawn(pixmap), 0xff0000u) << "by a walk";
    CMemoryPixmap planes(8, 4, 4, 1, 4, 0);
    planes.Erase();
    const std::uint8_t grey = 0x40;
    Fill(planes, planes.GetBounds(), &grey, 0, -1);
    CPixView view;
    planes.GetView(view);
    Kernels::MergePlanes(CDisplayWriting(pixmap).View(), view, Kernels::kOrder_GreyConstant, 255);
    EXPECT_EQ(Drawn(pixmap), 0x404040u) << "through a view";
    pixmap.SetSize(5, 5);
    Fill(pixmap, pixmap.GetBounds(), &red, 0, -1);
    EXPECT_EQ(Drawn(pixmap), 0xff0000u) << "in a new bitmap";
}

TEST(ScratchFile, HasRoomForEverySlot)
{
    const SpecFolder folder;
    CVirtualFile file(folder.Spec(), CText("room.tmp"), 0, 0, CVirtualFile::kMaximumSize);
    CVirtualTile* first = nullptr;
    CVirtualTile* last = nullptr;
    ASSERT_EQ(file.AcquireSlots(8, 16, first, last), 16U);
    struct stat facts {};
    ASSERT_EQ(stat(file.Spec().Path().CStr(), &facts), 0);
    EXPECT_EQ(facts.st_size, 16 * 65536);
    EXPECT_GE(facts.st_blocks * 512, facts.st_size);
}
