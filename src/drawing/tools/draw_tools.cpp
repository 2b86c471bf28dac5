#include "drawing/tools/draw_tools.h"

#include "drawing/tools/colour_table.h"
#include "drawing/tools/font_table.h"
#include "foundation/base/service.h"
#include "platform/graphics/system_colours.h"
#include "platform/system/locale.h"

namespace Kesto {

CDrawTools& CDrawTools::Get()
{
    return *CServiceT<CDrawTools>::Get();
}

void CDrawTools::SetTheme(std::int32_t theme)
{
    if (theme == fTheme)
        return;
    fTheme = theme;
    fPictures.clear();
    ++fGeneration;
}

Colour CDrawTools::GetColour(EColourRole role) const
{
    const SColourRow& row = ColourTable()[role < kColourRoleCount ? role : kColour_Window];
    const bool isOurs = fTheme >= 0 && fTheme < static_cast<std::int32_t>(kThemeCount);
    if (!isOurs)
        if (const std::optional<Colour> colour = Platform::SystemColour(row.systemColour))
            return *colour;
    return Platform::ColourFromBGR(row.colours[isOurs ? static_cast<std::size_t>(fTheme) : 0]);
}

const CFont& CDrawTools::GetFont(EFontKind kind) const
{
    const auto known = fFonts.find(kind);
    if (known != fFonts.end())
        return known->second;
    return fFonts.emplace(kind, ResolveFont(kind, Platform::UserLanguageName())).first->second;
}

const CDualPicture& CDrawTools::GetPicture(EToolPicture picture) const
{
    const auto known = fPictures.find(picture);
    if (known != fPictures.end())
        return known->second;
    const CResourceName name(PictureName(picture));
    CDualPicture loaded;
    if (!IsDark() || !loaded.LoadPicture(MakeTag("PIND"), name))
        loaded.LoadPicture(MakeTag("PICn"), name);
    return fPictures.emplace(picture, std::move(loaded)).first->second;
}

} // namespace Kesto
