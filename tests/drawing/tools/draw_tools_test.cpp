#include "drawing/tools/draw_tools.h"

#include "drawing/tools/font_table.h"
#include "platform/graphics/system_colours.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

TEST(DrawTools, GiveTheColoursOfTheThemeAndBeginAGenerationWithEach)
{
    CDrawTools tools;
    constexpr std::uint8_t kWindows[] = {0xF0, 0xB8, 0x53, 0x32};
    std::uint32_t generation = tools.Generation();
    for (std::int32_t theme = 3; theme >= 0; --theme) {
        tools.SetTheme(theme);
        const std::uint8_t grey = kWindows[theme];
        EXPECT_EQ(tools.GetColour(kColour_Window), (Colour{grey, grey, grey})) << theme;
        EXPECT_GT(tools.Generation(), generation) << theme;
        generation = tools.Generation();
    }
    tools.SetTheme(0);
    EXPECT_EQ(tools.Generation(), generation) << "nothing changed";
    EXPECT_EQ(tools.GetColour(kColour_Border), (Colour{0x82, 0x86, 0x8A})) << "red comes first";
}

TEST(DrawTools, GiveTheSystemsColoursForAnyOtherTheme)
{
    CDrawTools tools;
    for (const std::int32_t theme : {4, -1, 77}) {
        tools.SetTheme(theme);
        const Colour wanted =
            Platform::SystemColour(15).value_or(Colour{0xF0, 0xF0, 0xF0}); // button face
        EXPECT_EQ(tools.GetColour(kColour_Window), wanted) << theme;
    }
}

TEST(DrawTools, ChooseFontsByClassStyleAndLanguage)
{
    const struct {
        EFontKind kind;
        const char *language, *face;
        double size;
        bool bold, italic;
    } rows[] = {
        {kFont_System, "en_US", "Tahoma", 11, false, false},
        {kFont_Application, "de_DE", "Tahoma", 11, false, false},
        {kFont_UI, "zh_CN", "NSimSun-18030", 11, false, false},
        {kFont_UIBold, "zh_TW", "Tahoma", 11, true, false},
        {kFont_UILargeItalic, "en_US", "Tahoma", 12, false, true},
        {kFont_UIMediumBoldItalic, "en_US", "Tahoma", 11, true, true},
        {kFont_UISmall, "en_US", "Tahoma", 10, false, false},
        {kFont_UIMicroBold, "en_US", "Tahoma", 9, true, false},
        {static_cast<EFontKind>(99), "en_US", "Tahoma", 11, false, false},
    };
    for (const auto& row : rows) {
        const CFont font = ResolveFont(row.kind, row.language);
        EXPECT_EQ(font, (CFont{row.face, row.size, row.bold, row.italic})) << row.kind;
    }
}

TEST(DrawTools, HaveEveryPictureThatTheyName)
{
    CDrawTools tools;
    for (const std::int32_t theme : {0, 3}) {
        tools.SetTheme(theme);
        for (std::uint32_t picture = 0; picture < kToolPictureCount; ++picture) {
            const auto name = static_cast<EToolPicture>(picture);
            EXPECT_GT(tools.GetPicture(name).GetWidth(), 0) << PictureName(name) << theme;
        }
    }
}

} // namespace
