#include "driver/property_list.h"
#include "failure.h"
#include "support/testing.h"

namespace Host {
namespace {

PropertyList Parse(const std::string& text)
{
    return ParsePropertyList(std::as_bytes(std::span(text)));
}

PropertyList Own()
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/resources/tagl.json", std::ios::binary);
    return Parse(std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(PropertyList, TellsTheModulesDeclaration)
{
    const PropertyList list = Own();
    EXPECT_EQ(list.name, "ElectricImage");
    EXPECT_EQ(list.entry, "EntryElectricImage");
    EXPECT_EQ(list.readExtensions, (std::vector<std::string>{"IMG", "EI", "EIZ", "EIZZ"}));
    EXPECT_EQ(list.writeExtensions, (std::vector<std::string>{"IMG"}));
    EXPECT_TRUE(list.loadUnload);
}

TEST(PropertyList, LimitsExtensionsSizesModesAndChannels)
{
    PropertyList list = Own();
    EXPECT_NO_THROW(RequireReadable(list, "a/b.eizz"));
    EXPECT_NO_THROW(RequireReadable(list, "B.Img"));
    EXPECT_THROW(RequireReadable(list, "b.imgs"), Failure);
    EXPECT_THROW(RequireReadable(list, "img"), Failure);
    EXPECT_NO_THROW(RequireWritable(list, "b.img"));
    EXPECT_THROW(RequireWritable(list, "b.ei"), Failure);

    EXPECT_NO_THROW(RequirePicture(list, {PictureMode::kRgb, 30000, 30000, 4, {}}));
    EXPECT_THROW(RequirePicture(list, {PictureMode::kRgb, 30001, 1, 3, {}}), Failure);
    EXPECT_THROW(RequirePicture(list, {PictureMode::kRgb, 1, 30001, 3, {}}), Failure);
    EXPECT_THROW(RequirePicture(list, {PictureMode::kRgb, 0, 5, 3, {}}), Failure);
    EXPECT_THROW(RequirePicture(list, {PictureMode::kIndexed, 5, 5, 3, {}}), Failure);
    list.modes = {"RGBColor"};
    EXPECT_THROW(RequirePicture(list, {PictureMode::kGrayscale, 5, 5, 1, {}}), Failure);
}

TEST(PropertyList, IsRefusedWhenBroken)
{
    for (const char* const text :
         {"", "{\"Tagls\": [{\"Kind\": \"Filter\"}]}",
          "{\"Tagls\": [{\"Kind\": \"Format\", \"Name\": 5}]}", "{\"Tagls\": [7]}"})
        EXPECT_THROW(Parse(text), Failure) << text;
}

} // namespace
} // namespace Host
