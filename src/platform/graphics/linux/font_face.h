// A face of a font file: its glyphs at one size, by FreeType and HarfBuzz.
#pragma once

#include "platform/graphics/linux/font_file.h"

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;
struct FT_LibraryRec_;
struct hb_face_t;

namespace Platform {

// One for each file; FreeType has but one size of it at a time.
class FontFace {
public:
    // The face, which is shared by whoever asks for it while anyone has it; null for a file that
    // can't be read, or that has bitmaps in place of outlines.
    static std::shared_ptr<FontFace> Open(const FontFile& file);

    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    FT_FaceRec_* AtSize(std::int32_t pixels);
    hb_face_t* Shapes() const { return fShapes; }

    // The widest advance at this size, in pixels.
    std::int32_t WidestAdvance(std::int32_t pixels);

private:
    using FreeType = std::shared_ptr<FT_LibraryRec_>;

    FontFace(FreeType freeType, FT_FaceRec_* face, hb_face_t* shapes)
        : fFreeType(std::move(freeType)), fFace(face), fShapes(shapes)
    {
    }
    static FreeType StartFreeType();

    FreeType fFreeType; // which outlives its faces
    FT_FaceRec_* fFace;
    hb_face_t* fShapes;
    std::int32_t fPixels = 0;
};

// What a glyph covers, row by row; its corner is seen from the glyph's origin, downwards.
struct GlyphMask {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint8_t> coverage;
};

// The glyphs of a face at one size, each rendered when it is first asked for.
class GlyphMasks {
public:
    GlyphMasks(std::shared_ptr<FontFace> face, std::int32_t pixels)
        : fFace(std::move(face)), fPixels(pixels)
    {
    }

    // Empty for a glyph that can't be rendered.
    const GlyphMask& Of(std::uint32_t glyph);

private:
    std::shared_ptr<FontFace> fFace;
    std::int32_t fPixels;
    std::unordered_map<std::uint32_t, GlyphMask> fMasks;
};

} // namespace Platform
