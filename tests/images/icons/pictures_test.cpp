#include "foundation/errors/exceptions.h"
#include "images/icons/resource_data_provider.h"
#include "images/pictures/dual_picture.h"
#include "images/pictures/picture_states.h"
#include "support/testing.h"

namespace Kesto {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

// The bytes of one plane, counted from the last one if below 0; none for a pixmap that isn't there.
std::vector<int> Plane(const CMemoryPixmap* pixmap, std::int32_t plane)
{
    std::vector<int> bytes;
    if (pixmap == nullptr)
        return bytes;
    CPixView view;
    pixmap->GetView(view, 0, 0, 0, 0, plane < 0 ? pixmap->GetPlaneCount() + plane : plane, 1);
    for (std::int32_t y = 0; y < view.height; ++y)
        bytes.insert(bytes.end(), view.planePointers[0] + y * view.rowBytes,
                     view.planePointers[0] + y * view.rowBytes + view.width);
    return bytes;
}

std::vector<int> Alpha(const CDualPicture& picture, EDensity density = kDensity_Low)
{
    return Plane(picture.GetPixmap(density), -1);
}

// The first plane of both densities.
std::vector<std::vector<int>> Colours(const CDualPicture& picture)
{
    return {Plane(picture.GetPixmap(kDensity_Low), 0), Plane(picture.GetPixmap(kDensity_High), 0)};
}

CSharedPixmap Blank(std::int32_t left, std::int32_t width, std::int32_t planes)
{
    auto pixmap = std::make_unique<CMemoryPixmap>(8, left, -3, width, 5, planes, 4, 0);
    pixmap->Erase();
    return CSharedPixmap(std::move(pixmap));
}

TEST(ModuleIcons, DecodeToTheSizesInTheIndex)
{
    CResourceDataProvider& store = CResourceDataProvider::Get();
    for (const std::string& name : store.GetNames())
        for (const Tag tag : {MakeTag("PNGf"), MakeTag("PICi"), MakeTag("PICp"), MakeTag("PIND")}) {
            std::int32_t width = 0, height = 0;
            if (!store.GetPictureSize(tag, name, width, height))
                continue;
            CDualPicture picture;
            ASSERT_TRUE(picture.LoadPicture(tag, name)) << name;
            EXPECT_EQ(picture.GetBounds(), (PixelRect{0, 0, width, height})) << name;
            const CMemoryPixmap* high = picture.GetPixmap(kDensity_High);
            ASSERT_NE(high, nullptr) << name;
            EXPECT_EQ(high->GetBounds(), (PixelRect{0, 0, 2 * width, 2 * height})) << name;
            EXPECT_THAT(Alpha(picture), testing::Contains(testing::Gt(20)))
                << name << " can't be seen";
            if (name.starts_with("Alpha_")) {
                EXPECT_GT(picture.GetHotSpot().x, 0) << name;
                EXPECT_TRUE(picture.GetHotSpot().x < width && picture.GetHotSpot().y < height)
                    << name;
            }
        }
    EXPECT_THAT(store.GetNames(), IsSupersetOf({"InfoWarning", "SBH_ThumbLeft", "ElkTabBackCont",
                                                "About", "SliderGrooveHMid", "Dial", "DialHub",
                                                "DiscloseLeft", "Alpha_26000", "Alpha_26019"}));
}

TEST(DualPicture, IsLoadedByNameNumberAndEitherTag)
{
    CDualPicture cursor, plain, high;
    EXPECT_TRUE(cursor.LoadPicture(26019));
    EXPECT_EQ(cursor.GetHotSpot(), (PixelPoint{4, 20}));
    EXPECT_TRUE(plain.LoadPicture("Alpha_26019.png"));
    EXPECT_TRUE(high.LoadPicture(MakeTag("HICn"), 26019));
    EXPECT_EQ(Alpha(plain), Alpha(cursor));
    EXPECT_EQ(Alpha(high), Alpha(cursor));
    EXPECT_EQ(Alpha(high, kDensity_High), Alpha(cursor, kDensity_High));

    EXPECT_FALSE(cursor.LoadPicture("Nothing"));
    EXPECT_TRUE(cursor.GetBounds().IsEmpty() && cursor.GetHotSpot() == PixelPoint());
}

TEST(DualPicture, FallsBackToTheResourcesOfTheModule)
{
    CDualPicture picture;
    for (const CResourceName& name : {CResourceName("LowOnly"), CResourceName(300)}) {
        SCOPED_TRACE(name.Text());
        ASSERT_TRUE(picture.LoadPicture(name));
        EXPECT_THAT(Plane(picture.GetPixmap(kDensity_Low), 0), ElementsAre(10, 20, 30));
        EXPECT_EQ(picture.GetPixmap(kDensity_High), nullptr);
    }
    EXPECT_THROW(picture.LoadPicture("Corrupt"), CError);
    EXPECT_EQ(picture.GetWidth(), 0) << "the former one is dropped";
}

TEST(DualPicture, MeasuresAHighPixmapByHalf)
{
    CDualPicture picture;
    picture.SetPixmap(Blank(1, 7, 1), kDensity_High);
    EXPECT_EQ(picture.GetBounds(), (PixelRect{1, -2, 4, 1}));
    EXPECT_EQ(picture.GetWidth(), 3);
    EXPECT_EQ(picture.GetHeight(), 2);
    picture.SetPixmap(Blank(1, 7, 1), kDensity_Low);
    EXPECT_EQ(picture.GetBounds(), (PixelRect{1, -3, 8, 2}));
    EXPECT_EQ(picture.GetWidth(), 7);
}

TEST(DualPicture, SharesItsPixmapsUntilOneIsChanged)
{
    CDualPicture picture;
    ASSERT_TRUE(picture.LoadPicture("LowOnly"));
    CDualPicture copy = picture;
    EXPECT_EQ(copy.GetPixmap(kDensity_Low), picture.GetPixmap(kDensity_Low));
    copy.Fade(0.5);
    EXPECT_THAT(Alpha(copy), ElementsAre(0, 50, 128));
    EXPECT_THAT(Plane(copy.GetPixmap(kDensity_Low), 0), ElementsAre(10, 20, 30));
    EXPECT_THAT(Alpha(picture), ElementsAre(0, 100, 255));

    const CMemoryPixmap* own = copy.GetPixmap(kDensity_Low);
    copy.Fade(7);
    EXPECT_EQ(copy.GetPixmap(kDensity_Low), own) << "not shared, so not split";
    EXPECT_THAT(Alpha(copy), ElementsAre(0, 50, 128));
    copy.Fade(-1);
    EXPECT_THAT(Alpha(copy), ElementsAre(0, 0, 0));
    CDualPicture opaque;
    opaque.SetPixmap(Blank(0, 2, 3), kDensity_Low);
    opaque.Fade(0);
    EXPECT_EQ(opaque.GetWidth(), 2);
}

TEST(PictureStates, FillWhatIsMissing)
{
    CPictureStates states;
    EXPECT_FALSE(states.LoadPictures("Nothing", kTheme_Dark));
    EXPECT_EQ(states.Get(kPicture_Disactive).GetWidth(), 0);

    // InfoWarning has the normal state alone.
    ASSERT_TRUE(states.LoadPictures("InfoWarning", kTheme_Dark));
    const std::vector<int> normal = Alpha(states.Get(kPicture_Normal));
    EXPECT_EQ(Alpha(states.Get(kPicture_Pressed)), normal);
    CDualPicture faded = states.Get(kPicture_Normal);
    faded.Fade(0.4);
    for (const EPictureState state : {kPicture_Inactive, kPicture_Disabled, kPicture_Disactive})
        EXPECT_EQ(Alpha(states.Get(state)), Alpha(faded)) << state;
}

TEST(PictureStates, FollowTheTheme)
{
    CPictureStates states;
    CDualPicture picture;
    for (const std::int32_t theme : {0, 1, 2, 3, 4}) {
        SCOPED_TRACE(theme);
        const bool isDark = theme == kTheme_MediumDark || theme == kTheme_Dark;
        ASSERT_TRUE(states.LoadPictures("CheckOff", theme));
        ASSERT_TRUE(picture.LoadPicture(isDark ? MakeTag("PIND") : MakeTag("PICn"), "CheckOff"));
        EXPECT_EQ(Colours(states.Get(kPicture_Normal)), Colours(picture));
        EXPECT_EQ(Colours(states.Get(kPicture_Rollover)), Colours(picture));
        ASSERT_TRUE(picture.LoadPicture(MakeTag("PICp"), "CheckOff"));
        EXPECT_EQ(Colours(states.Get(kPicture_Pressed)), Colours(picture));
        EXPECT_NE(Colours(states.Get(kPicture_Normal)), Colours(picture));
        ASSERT_TRUE(picture.LoadPicture(MakeTag("PICi"), "CheckOff"));
        EXPECT_EQ(Colours(states.Get(kPicture_Inactive)), Colours(picture));
    }
}

TEST(PictureStates, ShareWhatTheStoreKeepsInOneSlot)
{
    CPictureStates states;
    ASSERT_TRUE(states.LoadPictures("CheckOff", kTheme_Light));
    const auto pixmap = [&](EPictureState state) {
        return states.Get(state).GetPixmap(kDensity_High);
    };
    EXPECT_EQ(pixmap(kPicture_Rollover), pixmap(kPicture_Normal));
    EXPECT_EQ(pixmap(kPicture_Disactive), pixmap(kPicture_Inactive));
    EXPECT_EQ(pixmap(kPicture_Disabled), pixmap(kPicture_Inactive));
    EXPECT_NE(pixmap(kPicture_Inactive), pixmap(kPicture_Pressed));
}

} // namespace
} // namespace Kesto
