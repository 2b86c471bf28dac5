#include "drawing/tools/font_table.h"

#include "foundation/localization/localize.h"

#include <charconv>
#include <string>

namespace Kesto {
namespace {

// Texts that mean what the toolkit chooses by itself.
constexpr std::string_view kDefault = "<default>";

struct SFontClass {
    const char* nameKey;
    const char* sizeKey;
    double points; // the default
};

constexpr SFontClass kClasses[] = {
    {"$$$/private/Kesto/Font/Win/System/Name=<default>",
     "$$$/private/Kesto/Font/Win/System/Size=<default>", 8.25},
    {"$$$/private/Kesto/Font/Win/Application/Name=<default>",
     "$$$/private/Kesto/Font/Win/Application/Size=<default>", 8.25},
    {"$$$/private/Kesto/Font/Win/UI/Name=<default>", "$$$/private/Kesto/Font/Win/UI/Size=<default>",
     8.25},
    {"$$$/private/Kesto/Font/Win/UILarge/Name=<default>",
     "$$$/private/Kesto/Font/Win/UILarge/Size=<default>", 9.0},
    {"$$$/private/Kesto/Font/Win/UIMedium/Name=<default>",
     "$$$/private/Kesto/Font/Win/UIMedium/Size=<default>", 8.25},
    {"$$$/private/Kesto/Font/Win/UISmall/Name=<default>",
     "$$$/private/Kesto/Font/Win/UISmall/Size=<default>", 7.5},
    {"$$$/private/Kesto/Font/Win/UIMicro/Name=<default>",
     "$$$/private/Kesto/Font/Win/UIMicro/Size=<default>", 6.75},
};

// A unit is a pixel of 96 to the inch.
constexpr double kUnitsPerPoint = 96.0 / 72.0;

// The kinds begin with two classes that have one style; from kFont_UI on each has four.
struct SStyledClass {
    const SFontClass& fontClass;
    bool bold = false;
    bool italic = false;
};

SStyledClass ClassOf(EFontKind kind)
{
    if (kind < kFont_System || kind > kFont_UIMicroBoldItalic)
        return {kClasses[0]};
    if (kind < kFont_UI)
        return {kClasses[kind]};
    const int styled = kind - kFont_UI;
    return {kClasses[2 + styled / 4], styled % 2 == 1, styled % 4 >= 2};
}

CText Localized(const char* literal)
{
    CText text = literal;
    return Localize(text);
}

// A size that is no number above 0 is the default too.
double PointsOf(const CText& text, double byDefault)
{
    const std::string_view digits = text.View();
    double points = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), points);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && points > 0 ? points : byDefault;
}

} // namespace

CFont ResolveFont(EFontKind kind, std::string_view language)
{
    const SStyledClass styled = ClassOf(kind);
    CFont font;
    font.face = Localized(styled.fontClass.nameKey);
    if (font.face.View() == kDefault)
        font.face = language == "zh_CN" ? "NSimSun-18030" : "Tahoma";
    font.size =
        PointsOf(Localized(styled.fontClass.sizeKey), styled.fontClass.points) * kUnitsPerPoint;
    font.bold = styled.bold;
    font.italic = styled.italic;
    return font;
}

} // namespace Kesto
