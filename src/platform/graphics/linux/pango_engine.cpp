// Fonts and lines by Pango: laid out with hinted metrics, drawn in grey with slight hinting.

#include "platform/graphics/linux/pango_engine.h"

#include "platform/graphics/linux/font_file.h"
#include "platform/system/unicode.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <dlfcn.h>
#include <pango/pangocairo.h>

namespace Platform {
namespace {

constexpr const char* kFeatures = "liga=0, tnum=1";

template <auto free>
struct FreeBy {
    template <class T>
    void operator()(T* object) const
    {
        free(object);
    }
};
template <class T>
using GObject = std::unique_ptr<T, FreeBy<g_object_unref>>;
using Description = std::unique_ptr<PangoFontDescription, FreeBy<pango_font_description_free>>;
using Metrics = std::unique_ptr<PangoFontMetrics, FreeBy<pango_font_metrics_unref>>;
using Options = std::unique_ptr<cairo_font_options_t, FreeBy<cairo_font_options_destroy>>;
using Attributes = std::unique_ptr<PangoAttrList, FreeBy<pango_attr_list_unref>>;
using OwnedSurface = std::unique_ptr<cairo_surface_t, FreeBy<cairo_surface_destroy>>;
using Drawing = std::unique_ptr<cairo_t, FreeBy<cairo_destroy>>;

std::int32_t Ceiling(int pangoUnits)
{
    return PANGO_PIXELS_CEIL(pangoUnits);
}

float Pixels(int pangoUnits)
{
    return static_cast<float>(pangoUnits) / PANGO_SCALE;
}

std::string ToUtf8(std::u32string_view characters)
{
    std::string utf8;
    for (const char32_t each : characters)
        AppendCharacter(utf8, each);
    return utf8;
}

Description DescriptionOf(const FontSpec& spec)
{
    Description description(pango_font_description_new());
    std::string families = ToUtf8(MakePlainText(spec.face, spec.face.size()).characters);
    for (const char* const fallback : kFallbackFaces)
        families.append(",").append(fallback);
    pango_font_description_set_family(description.get(), families.c_str());
    pango_font_description_set_absolute_size(description.get(), spec.pixels * PANGO_SCALE);
    pango_font_description_set_weight(description.get(), static_cast<PangoWeight>(spec.weight));
    pango_font_description_set_style(description.get(),
                                     spec.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return description;
}

// The library that has this code stays in the process until its end, even when it is closed.
void KeepLoaded()
{
    Dl_info here = {};
    if (dladdr(reinterpret_cast<void*>(&KeepLoaded), &here) != 0)
        dlopen(here.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

// One for all engines, for the life of the process. It has threads of its own, whose end nobody can
// wait for: freed with the last engine, it would let them run in libraries that are being unloaded.
std::shared_ptr<PangoFontMap> SharedFontMap()
{
    static PangoFontMap* const fonts = [] {
        KeepLoaded();
        return pango_cairo_font_map_new();
    }();
    return {static_cast<PangoFontMap*>(g_object_ref(fonts)), FreeBy<g_object_unref>()};
}

GObject<PangoContext> MakeContext(PangoFontMap* fonts, const PangoFontDescription* description,
                                  bool hintedMetrics)
{
    GObject<PangoContext> context(pango_font_map_create_context(fonts));
    const Options options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options.get(), hintedMetrics ? CAIRO_HINT_METRICS_ON
                                                                     : CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_round_glyph_positions(context.get(), hintedMetrics);
    pango_context_set_font_description(context.get(), description);
    return context;
}

GObject<PangoLayout> MakeLayout(PangoContext* context, const std::string& utf8)
{
    GObject<PangoLayout> layout(pango_layout_new(context));
    const Attributes attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_font_features_new(kFeatures));
    pango_layout_set_attributes(layout.get(), attributes.get());
    pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    pango_layout_set_text(layout.get(), utf8.data(), static_cast<int>(utf8.size()));
    return layout;
}

PangoLayoutLine* OnlyLine(PangoLayout* layout)
{
    return pango_layout_get_line_readonly(layout, 0);
}

PangoRectangle LogicalBounds(PangoLayout* layout)
{
    PangoRectangle bounds;
    pango_layout_line_get_extents(OnlyLine(layout), nullptr, &bounds);
    return bounds;
}

PixelRect InkBounds(PangoLayout* layout)
{
    PangoRectangle ink;
    pango_layout_line_get_extents(OnlyLine(layout), &ink, nullptr);
    if (ink.width <= 0 || ink.height <= 0)
        return {};
    // Hinting may move an edge by a pixel.
    return {PANGO_PIXELS_FLOOR(ink.x) - 1, PANGO_PIXELS_FLOOR(ink.y) - 1,
            Ceiling(ink.x + ink.width) + 1, Ceiling(ink.y + ink.height) + 1};
}

// Draws the line with its left end at 0, 0 of the area.
class LayoutInk : public TextInk {
public:
    explicit LayoutInk(GObject<PangoLayout> layout) : fLayout(std::move(layout)) {}

    void Render(const PixelRect& area, std::span<std::uint8_t> coverage) const override
    {
        const std::int32_t width = area.right - area.left;
        const std::int32_t height = area.bottom - area.top;
        const OwnedSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
        {
            const Drawing drawing(cairo_create(surface.get()));
            cairo_move_to(drawing.get(), -area.left, -area.top);
            pango_cairo_show_layout_line(drawing.get(), OnlyLine(fLayout.get()));
        }
        cairo_surface_flush(surface.get());
        const std::uint8_t* row = cairo_image_surface_get_data(surface.get());
        if (row == nullptr) // too large
            return;
        const int rowBytes = cairo_image_surface_get_stride(surface.get());
        for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y, row += rowBytes)
            std::copy_n(row, width, coverage.data() + y * static_cast<std::size_t>(width));
    }

private:
    GObject<PangoLayout> fLayout;
};

// Left and right end of each character, in Pango's units; they are reversed in right-to-left text.
struct Ends {
    int leading = 0;
    int trailing = 0;
};

// Visits the runs of a line from left to right.
std::vector<Ends> CharacterEnds(PangoLayoutLine* line, const std::string& utf8,
                                std::size_t characters)
{
    std::vector<Ends> ends(characters);
    int left = 0;
    for (const GSList* each = line->runs; each != nullptr; each = each->next) {
        const auto* run = static_cast<const PangoLayoutRun*>(each->data);
        const PangoItem* item = run->item;
        const char* text = utf8.data() + item->offset;
        const auto first = static_cast<std::size_t>(g_utf8_pointer_to_offset(utf8.data(), text));
        const auto count = static_cast<std::size_t>(item->num_chars);
        std::vector<int> widths(count);
        pango_glyph_string_get_logical_widths(run->glyphs, text, item->length, item->analysis.level,
                                              widths.data());
        const bool leftwards = item->analysis.level % 2 != 0;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t at = leftwards ? count - 1 - i : i;
            const int right = left + widths[at];
            ends[first + at] = leftwards ? Ends{right, left} : Ends{left, right};
            left = right;
        }
    }
    return ends;
}

void Mark(TextCluster& cluster, const PangoLogAttr& mark, bool isFirst)
{
    cluster.breakBefore = !isFirst && mark.is_line_break;
    cluster.wordBefore = mark.is_word_start || mark.is_word_end;
}

std::vector<TextCluster> ClustersOf(PangoLayout* layout, const PlainText& text,
                                    const std::string& utf8)
{
    const std::size_t count = text.characters.size();
    const std::vector<Ends> ends = CharacterEnds(OnlyLine(layout), utf8, count);
    int marks = 0;
    const PangoLogAttr* attributes = pango_layout_get_log_attrs_readonly(layout, &marks);
    std::vector<TextCluster> clusters;
    for (std::size_t i = 0; i < count; ++i) {
        const PangoLogAttr& mark = attributes[i];
        // A character at which no cursor can be belongs to the cluster before it.
        if (i > 0 && !mark.is_cursor_position) {
            clusters.back().trailing = Pixels(ends[i].trailing);
            continue;
        }
        clusters.push_back({.start = text.starts[i],
                            .leading = Pixels(ends[i].leading),
                            .trailing = Pixels(ends[i].trailing),
                            .blank = mark.is_white != 0});
        Mark(clusters.back(), mark, i == 0);
    }
    return clusters;
}

class PangoEngine : public FontEngine {
public:
    explicit PangoEngine(const FontSpec& spec)
        : fDescription(DescriptionOf(spec)), fFonts(SharedFontMap()),
          fHinted(MakeContext(fFonts.get(), fDescription.get(), true)),
          fUnhinted(MakeContext(fFonts.get(), fDescription.get(), false))
    {
    }

    FontMetrics Metrics() const override
    {
        const Platform::Metrics all(
            pango_context_get_metrics(fHinted.get(), fDescription.get(), nullptr));
        FontMetrics metrics;
        metrics.ascent = Ceiling(pango_font_metrics_get_ascent(all.get()));
        metrics.descent = Ceiling(pango_font_metrics_get_descent(all.get()));
        metrics.height = metrics.ascent + metrics.descent;
        metrics.averageWidth = Ceiling(pango_font_metrics_get_approximate_char_width(all.get()));
        metrics.maxWidth = std::max(metrics.averageWidth, WidestAdvance());
        const int underline = pango_font_metrics_get_underline_position(all.get());
        metrics.underlineTop = std::max(1, PANGO_PIXELS(-underline));
        metrics.underlineThickness =
            std::max(1, PANGO_PIXELS(pango_font_metrics_get_underline_thickness(all.get())));
        return metrics;
    }

    TextLine::Shape LayOut(const PlainText& text) const override
    {
        const std::string utf8 = ToUtf8(text.characters);
        GObject<PangoLayout> layout = MakeLayout(fHinted.get(), utf8);
        const PangoRectangle hinted = LogicalBounds(layout.get());
        const PangoRectangle unhinted = LogicalBounds(MakeLayout(fUnhinted.get(), utf8).get());
        TextLine::Shape shape;
        shape.length = text.starts.back();
        shape.advance = Pixels(hinted.width);
        shape.width = Ceiling(std::max(hinted.width, unhinted.width));
        shape.rightToLeft = OnlyLine(layout.get())->resolved_dir == PANGO_DIRECTION_RTL;
        shape.clusters = ClustersOf(layout.get(), text, utf8);
        shape.inkBounds = InkBounds(layout.get());
        shape.ink = std::make_unique<LayoutInk>(std::move(layout));
        return shape;
    }

private:
    std::int32_t WidestAdvance() const
    {
        const GObject<PangoFont> font(
            pango_font_map_load_font(fFonts.get(), fHinted.get(), fDescription.get()));
        if (font == nullptr)
            return 0;
        cairo_font_extents_t extents{};
        cairo_scaled_font_extents(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font.get())),
                                  &extents);
        return static_cast<std::int32_t>(std::ceil(extents.max_x_advance));
    }

    Description fDescription;
    std::shared_ptr<PangoFontMap> fFonts;
    GObject<PangoContext> fHinted;
    GObject<PangoContext> fUnhinted;
};

} // namespace

std::unique_ptr<FontEngine> MakePangoEngine(const FontSpec& spec)
{
    return std::make_unique<PangoEngine>(spec);
}

void MarkBreaks(const std::u32string& text, std::span<TextCluster> clusters)
{
    const std::string utf8 = ToUtf8(text);
    std::vector<PangoLogAttr> marks(text.size() + 1);
    pango_get_log_attrs(utf8.data(), static_cast<int>(utf8.size()), 0, pango_language_get_default(),
                        marks.data(), static_cast<int>(marks.size()));
    for (std::size_t i = 0; i < clusters.size(); ++i)
        Mark(clusters[i], marks[i], i == 0);
}

} // namespace Platform
