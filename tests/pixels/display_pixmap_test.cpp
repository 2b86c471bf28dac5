// Pixmaps in bitmaps of the graphics system.
#include "pixels/pixmaps/display_pixmap.h"

#include "foundation/errors/exceptions.h"
#include "pixels/pixmaps/pixmap_port.h"
#include "support/testing.h"

namespace {

using Kesto::CDisplayPixmap;
using ::testing::ElementsAre;

struct Port : Kesto::CPixmapPort {
    explicit Port(std::int32_t bits) : depth(bits) {}
    std::int32_t GetScreenDepth() const override { return depth; }
    void PixmapChanged(CDisplayPixmap* pixmap) override
    {
        announced.push_back(pixmap);
        hadBitmap = pixmap != nullptr && pixmap->GetBitmap().Native() != 0;
    }

    std::int32_t depth;
    std::vector<CDisplayPixmap*> announced;
    bool hadBitmap = false;
};

TEST(DisplayPixmap, HasOnePlaneOfTheScreensDepth)
{
    Port port(32);
    CDisplayPixmap pixmap(port, 5, 3);
    EXPECT_EQ(pixmap.GetPixelBits(), 32);
    EXPECT_EQ(pixmap.GetPlaneCount(), 1);
    EXPECT_EQ(pixmap.GetRowBytes(), 20);
    EXPECT_EQ(pixmap.GetBitsSize(), 60);
    EXPECT_TRUE(port.hadBitmap);
    EXPECT_THAT(port.announced, ElementsAre(&pixmap));
}

TEST(DisplayPixmap, MakesANewBitmapForANewSize)
{
    Port port(32);
    CDisplayPixmap pixmap(port, 0, 0);
    EXPECT_EQ(pixmap.GetBitsSize(), 0);
    pixmap.GetBaseAddress()[3] = 1; // of the one pixel that an empty one has
    pixmap.SetSize(0, 0);
    EXPECT_EQ(port.announced.size(), 1U);
    pixmap.SetSize(300, 200);
    EXPECT_THAT(port.announced, ElementsAre(&pixmap, nullptr, &pixmap));
    pixmap.Erase();
    Kesto::CPixView view;
    pixmap.GetView(view);
    EXPECT_EQ(view.planePointers[0][view.rowBytes * 200 - 1], 0);
}

TEST(DisplayPixmap, MovesFromPortToPort)
{
    Port first(32);
    Port second(8);
    CDisplayPixmap pixmap(first, 6, 2);
    pixmap.SetPort(&first);
    EXPECT_EQ(first.announced.size(), 1U);
    pixmap.SetPort(&second);
    EXPECT_THAT(first.announced, ElementsAre(&pixmap, nullptr));
    EXPECT_THAT(second.announced, ElementsAre(&pixmap));
    EXPECT_EQ(pixmap.GetPixelBits(), 8);
    EXPECT_EQ(pixmap.GetRowBytes(), 8);
    pixmap.SetPort(nullptr);
    EXPECT_THAT(second.announced, ElementsAre(&pixmap, nullptr));
    EXPECT_EQ(pixmap.GetBaseAddress(), nullptr);
    Kesto::CPixView view;
    pixmap.GetView(view);
    EXPECT_EQ(view.planeCount, 0);
}

TEST(DisplayPixmap, CopiesItsPixels)
{
    Port port(32);
    Port otherPort(32);
    CDisplayPixmap pixmap(port, 2, 2);
    for (int i = 0; i < 16; ++i)
        pixmap.GetBaseAddress()[i] = static_cast<std::uint8_t>(i);
    std::optional<CDisplayPixmap> kept(std::in_place, otherPort, 1, 1);
    CDisplayPixmap& assigned = *kept;
    {
        const CDisplayPixmap copy(pixmap);
        EXPECT_NE(copy.GetBaseAddress(), pixmap.GetBaseAddress());
        EXPECT_EQ(copy.GetBaseAddress()[15], 15);
        assigned = copy;
    }
    EXPECT_THAT(port.announced, ElementsAre(&pixmap)) << "a copy comes and goes unannounced";
    EXPECT_EQ(assigned.GetSize(), (Kesto::PixelPoint{2, 2}));
    EXPECT_EQ(assigned.GetBaseAddress()[14], 14);
    EXPECT_EQ(assigned.GetPort(), &otherPort);
    kept.reset();
    EXPECT_EQ(otherPort.announced.back(), nullptr) << "the port is told when it goes";
}

TEST(DisplayPixmap, OffTheScreenNeedsNoPort)
{
    Port port(8);
    CDisplayPixmap pixmap(3, 2);
    EXPECT_EQ(pixmap.GetPort(), nullptr);
    EXPECT_EQ(pixmap.GetPixelBits(), 32);
    pixmap.GetBaseAddress()[23] = 7;
    EXPECT_EQ(CDisplayPixmap(pixmap).GetBaseAddress()[23], 7);
    pixmap.SetSize(40, 30);
    EXPECT_EQ(pixmap.GetBitsSize(), 40 * 30 * 4);
    ASSERT_NE(pixmap.GetBaseAddress(), nullptr);
    pixmap.SetPort(&port);
    EXPECT_THAT(port.announced, ElementsAre(&pixmap));
    EXPECT_EQ(pixmap.GetPixelBits(), 8);
}

TEST(DisplayPixmap, ThatCannotBeMadeIsASystemError)
{
    Port port(7);
    EXPECT_THROW(CDisplayPixmap(port, 4, 4), Kesto::CSystemError);
    EXPECT_TRUE(port.announced.empty());
}

} // namespace
