// The fonts of the interface. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum EFontKind : std::int32_t {
    kFont_System = 0,
    kFont_Application = 1,
    kFont_UI = 2,
    kFont_UIBold = 3,
    kFont_UIItalic = 4,
    kFont_UIBoldItalic = 5,
    kFont_UILarge = 6,
    kFont_UILargeBold = 7,
    kFont_UILargeItalic = 8,
    kFont_UILargeBoldItalic = 9,
    kFont_UIMedium = 10,
    kFont_UIMediumBold = 11,
    kFont_UIMediumItalic = 12,
    kFont_UIMediumBoldItalic = 13,
    kFont_UISmall = 14,
    kFont_UISmallBold = 15,
    kFont_UISmallItalic = 16,
    kFont_UISmallBoldItalic = 17,
    kFont_UIMicro = 18,
    kFont_UIMicroBold = 19,
    kFont_UIMicroItalic = 20,
    kFont_UIMicroBoldItalic = 21,
};

} // namespace Kesto
