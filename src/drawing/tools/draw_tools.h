// CDrawTools, what the interface is drawn with: colours, fonts and pictures, by what they are for
// and by theme. A service, alive from its first use to the end of the process; one thread.
//
// Values are cheap and holders keep them, but a theme may change while windows are open: a holder
// compares Generation with the one it knows, and asks anew when they differ.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "drawing/tools/colour_roles.h"
#include "drawing/tools/font_kinds.h"
#include "drawing/tools/picture_names.h"
#include "images/pictures/dual_picture.h"

#include <cstdint>
#include <map>

namespace Kesto {

class CDrawTools {
public:
    // For any theme that isn't one of the four: the system's own colours, as users choose them who
    // need high contrast. Where the system has none it is theme 0.
    static constexpr std::int32_t kTheme_System = 4;

    static CDrawTools& Get();

    // 0 light, 1 medium light, 2 medium dark, 3 dark. A change begins a new generation.
    std::int32_t GetTheme() const { return fTheme; }
    void SetTheme(std::int32_t theme);
    std::uint32_t Generation() const { return fGeneration; }
    bool IsDark() const { return fTheme == 2 || fTheme == 3; }

    Colour GetColour(EColourRole role) const;
    CPen GetPen(EColourRole role, double width = 1.0) const { return {GetColour(role), width}; }
    CBrush GetBrush(EColourRole role) const { return {GetColour(role)}; }

    // By the name and size that the string table has for the kind's class, or else by the user's
    // language.
    const CFont& GetFont(EFontKind kind) const;

    // The picture in its normal state: for the dark themes the dark one, where there is one. Empty
    // when the store lacks it. Throws what LoadPicture throws.
    const CDualPicture& GetPicture(EToolPicture picture) const;

private:
    std::int32_t fTheme = 0;
    std::uint32_t fGeneration = 1;
    mutable std::map<EFontKind, CFont> fFonts;
    mutable std::map<EToolPicture, CDualPicture> fPictures; // of this theme
};

// The same of the one object.
inline Colour ToolColour(EColourRole role)
{
    return CDrawTools::Get().GetColour(role);
}

} // namespace Kesto
