#include "platform/graphics/linux/font_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace Platform {
namespace {

hb_face_t* ShapesOf(const FontFile& file)
{
    hb_blob_t* const blob = hb_blob_create_from_file(file.path.c_str());
    hb_face_t* const face = hb_face_create(blob, static_cast<unsigned>(file.index));
    hb_blob_destroy(blob);
    return face;
}

GlyphMask MaskOf(const FT_GlyphSlot slot)
{
    const FT_Bitmap& bitmap = slot->bitmap;
    GlyphMask mask{slot->bitmap_left,
                   -slot->bitmap_top,
                   static_cast<std::int32_t>(bitmap.width),
                   static_cast<std::int32_t>(bitmap.rows),
                   {}};
    const std::uint8_t* row = bitmap.buffer;
    for (std::int32_t y = 0; y < mask.height; ++y, row += bitmap.pitch)
        mask.coverage.insert(mask.coverage.end(), row, row + mask.width);
    return mask;
}

} // namespace

// Null without memory.
FontFace::FreeType FontFace::StartFreeType()
{
    FT_Library made = nullptr;
    return FT_Init_FreeType(&made) == 0 ? FreeType(made, FT_Done_FreeType) : nullptr;
}

std::shared_ptr<FontFace> FontFace::Open(const FontFile& file)
{
    static const FreeType freeType = StartFreeType();
    static std::map<FontFile, std::weak_ptr<FontFace>> known;
    std::weak_ptr<FontFace>& place = known[file];
    if (auto open = place.lock())
        return open;
    FT_Face face = nullptr;
    if (FT_New_Face(freeType.get(), file.path.c_str(), file.index, &face) != 0)
        return nullptr;
    const std::shared_ptr<FontFace> opened(new FontFace(freeType, face, ShapesOf(file)));
    if (!FT_IS_SCALABLE(face) || FT_HAS_FIXED_SIZES(face))
        return nullptr;
    place = opened;
    return opened;
}

FontFace::~FontFace()
{
    hb_face_destroy(fShapes);
    FT_Done_Face(fFace);
}

FT_FaceRec_* FontFace::AtSize(std::int32_t pixels)
{
    if (fPixels != pixels)
        FT_Set_Char_Size(fFace, pixels * 64, pixels * 64, 0, 0);
    fPixels = pixels;
    return fFace;
}

std::int32_t FontFace::WidestAdvance(std::int32_t pixels)
{
    return static_cast<std::int32_t>(AtSize(pixels)->size->metrics.max_advance + 63) / 64;
}

const GlyphMask& GlyphMasks::Of(std::uint32_t glyph)
{
    const auto [place, isNew] = fMasks.try_emplace(glyph);
    FT_Face const face = fFace->AtSize(fPixels);
    if (isNew && FT_Load_Glyph(face, glyph, FT_LOAD_TARGET_LIGHT) == 0 &&
        FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) == 0)
        place->second = MaskOf(face->glyph);
    return place->second;
}

} // namespace Platform
