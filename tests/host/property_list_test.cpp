#include "driver/property_list.h"
#include "failure.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace Host {
namespace {

PropertyList Parse(const std::string& text)
{
    return ParsePropertyList(std::as_bytes(std::span(text)));
}

class PropertyListTest : public testing::Test {
protected:
    PropertyListTest()
    {
        std::ifstream file(SIDECAR_SOURCE_DIR "/resources/tagl.json", std::ios::binary);
        fList = Parse(std::string(std::istreambuf_iterator<char>(file), {}));
    }

    static PictureInfo Picture(PictureMode mode, int32_t width, int32_t height, int32_t planes)
    {
        return {mode, width, height, planes, {}};
    }

    PropertyList fList;
};

TEST_F(PropertyListTest, TellsTheModulesDeclaration)
{
    EXPECT_EQ(fList.name, "ElectricImage");
    EXPECT_EQ(fList.entry, "EntryElectricImage");
    EXPECT_EQ(fList.readExtensions, (std::vector<std::string>{"IMG", "EI", "EIZ", "EIZZ"}));
    EXPECT_EQ(fList.writeExtensions, (std::vector<std::string>{"IMG"}));
    EXPECT_TRUE(fList.loadUnload);
}

TEST_F(PropertyListTest, ExtensionsCountWithoutRegardToCase)
{
    EXPECT_NO_THROW(RequireReadable(fList, "a/b.eizz"));
    EXPECT_NO_THROW(RequireReadable(fList, "B.Img"));
    EXPECT_THROW(RequireReadable(fList, "b.imgs"), Failure);
    EXPECT_THROW(RequireReadable(fList, "img"), Failure);
    EXPECT_NO_THROW(RequireWritable(fList, "b.img"));
    EXPECT_THROW(RequireWritable(fList, "b.ei"), Failure);
}

TEST_F(PropertyListTest, LimitsSizesModesAndChannels)
{
    EXPECT_NO_THROW(RequirePicture(fList, Picture(PictureMode::kRgb, 30000, 30000, 4)));
    EXPECT_THROW(RequirePicture(fList, Picture(PictureMode::kRgb, 30001, 1, 3)), Failure);
    EXPECT_THROW(RequirePicture(fList, Picture(PictureMode::kRgb, 1, 30001, 3)), Failure);
    EXPECT_THROW(RequirePicture(fList, Picture(PictureMode::kRgb, 0, 5, 3)), Failure);
    EXPECT_THROW(RequirePicture(fList, Picture(PictureMode::kIndexed, 5, 5, 3)), Failure);
    fList.modes = {"RGBColor"};
    EXPECT_THROW(RequirePicture(fList, Picture(PictureMode::kGrayscale, 5, 5, 1)), Failure);
}

TEST(PropertyListErrors, AreToldInWords)
{
    EXPECT_THROW(Parse(""), Failure);
    EXPECT_THROW(Parse("{\"Tagls\": [{\"Kind\": \"Filter\"}]}"), Failure);
    EXPECT_THROW(Parse("{\"Tagls\": [{\"Kind\": \"Format\", \"Name\": 5}]}"), Failure);
    EXPECT_THROW(Parse("{\"Tagls\": [7]}"), Failure);
}

} // namespace
} // namespace Host
