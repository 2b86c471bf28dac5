#include "platform/graphics/linux/latin_engine.h"

#include "platform/graphics/linux/font_face.h"
#include "platform/graphics/linux/pango_engine.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

namespace Platform {
namespace {

constexpr std::int32_t kUnit = 1024;      // parts of a pixel that shapes are measured in
constexpr std::int32_t kMostPixels = 100; // of the em square: larger glyphs aren't worth keeping

// What the width of a usual character is measured on.
constexpr std::u32string_view kSample = U"The quick brown fox jumps over the lazy dog.";

constexpr std::array<hb_feature_t, 2> kFeatures = {{
    {HB_TAG('l', 'i', 'g', 'a'), 0, 0, static_cast<unsigned>(-1)},
    {HB_TAG('t', 'n', 'u', 'm'), 1, 0, static_cast<unsigned>(-1)},
}};

template <auto free>
struct FreeBy {
    template <class T>
    void operator()(T* object) const
    {
        free(object);
    }
};
using ShapeFont = std::unique_ptr<hb_font_t, FreeBy<hb_font_destroy>>;
using ShapeBuffer = std::unique_ptr<hb_buffer_t, FreeBy<hb_buffer_destroy>>;

constexpr std::int32_t Rounded(std::int32_t units)
{
    return (units + kUnit / 2) & ~(kUnit - 1);
}

constexpr std::int32_t Ceiling(std::int32_t units)
{
    return (units + kUnit - 1) >> 10;
}

float Pixels(std::int64_t units)
{
    return static_cast<float>(units) / kUnit;
}

bool IsPrintableAscii(char32_t character)
{
    return character >= 0x20 && character < 0x7F;
}

bool IsLetter(char32_t character)
{
    const char32_t lower = character | 0x20;
    return lower >= 'a' && lower <= 'z';
}

struct Glyph {
    std::uint32_t index;
    std::int32_t advance; // not rounded
};

struct PlacedGlyph {
    std::uint32_t index;
    std::int32_t x; // of its origin
};

// Adds a mask's row to what earlier glyphs have covered.
void Cover(std::span<std::uint8_t> row, std::span<const std::uint8_t> mask)
{
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<std::uint8_t>(std::min(row[i] + mask[i], 255));
}

class MaskInk : public TextInk {
public:
    MaskInk(std::shared_ptr<GlyphMasks> masks, std::vector<PlacedGlyph> glyphs)
        : fMasks(std::move(masks)), fGlyphs(std::move(glyphs))
    {
    }

    PixelRect Bounds() const
    {
        PixelRect bounds;
        for (const PlacedGlyph& glyph : fGlyphs)
            bounds = Union(bounds, BoundsOf(glyph, fMasks->Of(glyph.index)));
        return bounds;
    }

    void Render(const PixelRect& area, std::span<std::uint8_t> coverage) const override
    {
        for (const PlacedGlyph& glyph : fGlyphs)
            RenderGlyph(glyph, fMasks->Of(glyph.index), area, coverage);
    }

private:
    static PixelRect BoundsOf(const PlacedGlyph& glyph, const GlyphMask& mask)
    {
        const std::int32_t left = glyph.x + mask.left;
        return {left, mask.top, left + mask.width, mask.top + mask.height};
    }

    static void RenderGlyph(const PlacedGlyph& glyph, const GlyphMask& mask, const PixelRect& area,
                            std::span<std::uint8_t> coverage)
    {
        const PixelRect all = BoundsOf(glyph, mask);
        const PixelRect seen = Intersect(all, area);
        if (seen.IsEmpty())
            return;
        const auto at = [](const PixelRect& rect, std::int32_t x, std::int32_t y) {
            return static_cast<std::size_t>(y - rect.top) *
                       static_cast<std::size_t>(rect.right - rect.left) +
                   static_cast<std::size_t>(x - rect.left);
        };
        const auto width = static_cast<std::size_t>(seen.right - seen.left);
        const std::span<const std::uint8_t> bytes = mask.coverage;
        for (std::int32_t y = seen.top; y < seen.bottom; ++y)
            Cover(coverage.subspan(at(area, seen.left, y), width),
                  bytes.subspan(at(all, seen.left, y), width));
    }

    std::shared_ptr<GlyphMasks> fMasks;
    std::vector<PlacedGlyph> fGlyphs;
};

class OutlineEngine : public LatinEngine {
public:
    OutlineEngine(std::shared_ptr<FontFace> face, std::int32_t pixels)
        : fFace(std::move(face)), fPixels(pixels), fFont(hb_font_create(fFace->Shapes())),
          fMasks(std::make_shared<GlyphMasks>(fFace, pixels))
    {
        hb_font_set_scale(fFont.get(), pixels * kUnit, pixels * kUnit);
    }

    // Each glyph of the face that ASCII needs is there.
    bool HasAscii() const
    {
        for (char32_t each = 0x20; each < 0x7F; ++each)
            if (hb_codepoint_t glyph = 0; !hb_font_get_nominal_glyph(fFont.get(), each, &glyph))
                return false;
        return true;
    }

    FontMetrics Metrics() const override
    {
        hb_font_extents_t extents{};
        hb_font_get_extents_for_direction(fFont.get(), HB_DIRECTION_LTR, &extents);
        FontMetrics metrics;
        metrics.ascent = Ceiling(extents.ascender);
        metrics.descent = Ceiling(-extents.descender);
        metrics.height = metrics.ascent + metrics.descent;
        metrics.averageWidth = Ceiling(AverageAdvance());
        metrics.maxWidth = std::max(metrics.averageWidth, fFace->WidestAdvance(fPixels));
        metrics.underlineTop =
            std::max(1, Rounded(-Measure(HB_OT_METRICS_TAG_UNDERLINE_OFFSET, -kUnit)) / kUnit);
        metrics.underlineThickness =
            std::max(1, Rounded(Measure(HB_OT_METRICS_TAG_UNDERLINE_SIZE, kUnit)) / kUnit);
        return metrics;
    }

    std::optional<TextLine::Shape> LayOut(const PlainText& text) const override
    {
        if (!std::ranges::all_of(text.characters, IsPrintableAscii))
            return std::nullopt;
        const std::vector<Glyph> glyphs = ShapeOf(text.characters);
        if (glyphs.size() != text.characters.size())
            return std::nullopt;
        return Placed(text, glyphs);
    }

private:
    TextLine::Shape Placed(const PlainText& text, std::span<const Glyph> glyphs) const
    {
        TextLine::Shape shape;
        std::vector<PlacedGlyph> placed;
        std::int32_t x = 0;
        std::int32_t exact = 0;
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            const std::int32_t next = x + Rounded(glyphs[i].advance);
            shape.clusters.push_back({.start = text.starts[i],
                                      .leading = Pixels(x),
                                      .trailing = Pixels(next),
                                      .blank = text.characters[i] == U' '});
            placed.push_back({glyphs[i].index, x / kUnit});
            x = next;
            exact += glyphs[i].advance;
        }
        shape.length = text.starts.back();
        shape.advance = Pixels(x);
        shape.width = Ceiling(std::max(x, exact));
        shape.mark = [characters = text.characters](std::span<TextCluster> clusters) {
            MarkBreaks(characters, clusters);
        };
        auto ink = std::make_unique<MaskInk>(fMasks, std::move(placed));
        // Until then the line counts as high as the font, and no glyph is rendered.
        shape.inkBounds = {0, -fPixels, shape.width, 0};
        shape.findInkBounds = [ink = ink.get()] { return ink->Bounds(); };
        shape.ink = std::move(ink);
        return shape;
    }

    std::int32_t Measure(hb_ot_metrics_tag_t tag, std::int32_t otherwise) const
    {
        hb_position_t position = 0;
        const bool isThere = hb_ot_metrics_get_position(fFont.get(), tag, &position) != 0;
        return isThere && position != 0 ? position : otherwise;
    }

    std::int32_t AverageAdvance() const
    {
        std::int32_t sum = 0;
        for (const Glyph& glyph : ShapeOf(kSample))
            sum += glyph.advance;
        return sum / static_cast<std::int32_t>(kSample.size());
    }

    // A glyph for each character; none if the font makes anything else of the text.
    std::vector<Glyph> ShapeOf(std::u32string_view text) const
    {
        const ShapeBuffer buffer(hb_buffer_create());
        const auto length = static_cast<int>(text.size());
        hb_buffer_add_utf32(buffer.get(), reinterpret_cast<const std::uint32_t*>(text.data()),
                            length, 0, length);
        hb_buffer_set_direction(buffer.get(), HB_DIRECTION_LTR);
        hb_buffer_set_script(buffer.get(), std::ranges::any_of(text, IsLetter) ? HB_SCRIPT_LATIN
                                                                               : HB_SCRIPT_COMMON);
        hb_buffer_set_language(buffer.get(), hb_language_get_default());
        hb_shape(fFont.get(), buffer.get(), kFeatures.data(), kFeatures.size());
        unsigned count = 0;
        const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
        const hb_glyph_position_t* const places =
            hb_buffer_get_glyph_positions(buffer.get(), &count);
        std::vector<Glyph> glyphs;
        for (unsigned i = 0; i < count; ++i) {
            if (infos[i].cluster != i || places[i].x_offset != 0 || places[i].y_offset != 0)
                return {};
            glyphs.push_back({infos[i].codepoint, places[i].x_advance});
        }
        return glyphs;
    }

    std::shared_ptr<FontFace> fFace;
    std::int32_t fPixels;
    ShapeFont fFont;
    std::shared_ptr<GlyphMasks> fMasks;
};

} // namespace

std::unique_ptr<LatinEngine> MakeLatinEngine(const FontSpec& spec)
{
    if (spec.pixels > kMostPixels || !std::ranges::all_of(spec.face, IsPrintableAscii) ||
        spec.face.find(',') != std::string::npos)
        return nullptr;
    const std::optional<FontFile> file = FindPlainFontFile(spec);
    std::shared_ptr<FontFace> face = file ? FontFace::Open(*file) : nullptr;
    if (face == nullptr)
        return nullptr;
    auto engine = std::make_unique<OutlineEngine>(std::move(face), spec.pixels);
    return engine->HasAscii() ? std::move(engine) : nullptr;
}

} // namespace Platform
