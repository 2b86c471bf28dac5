#include "platform/graphics/linux/font_file.h"

#include "platform/files/files.h"
#include "platform/files/linux/user_folder.h"
#include "platform/graphics/linux/font_cache.h"

#include <dlfcn.h>
#include <fontconfig/fontconfig.h>

#include <memory>

namespace Platform {
namespace {

struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

void AddFace(FcPattern* pattern, const char* face)
{
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(face));
}

Pattern PatternOf(const FontSpec& spec)
{
    Pattern pattern(FcPatternCreate());
    AddFace(pattern.get(), spec.face.c_str());
    for (const char* const fallback : kFallbackFaces)
        AddFace(pattern.get(), fallback);
    FcPatternAddDouble(pattern.get(), FC_WEIGHT, FcWeightFromOpenTypeDouble(spec.weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, spec.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddInteger(pattern.get(), FC_WIDTH, FC_WIDTH_NORMAL);
    FcPatternAddDouble(pattern.get(), FC_PIXEL_SIZE, spec.pixels);
    return pattern;
}

Pattern MatchOf(const FontSpec& spec)
{
    const Pattern pattern = PatternOf(spec);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontMatch(nullptr, pattern.get(), &result));
}

bool Is(const FcPattern* font, const char* key, bool otherwise)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(font, key, 0, &value) == FcResultMatch ? value == FcTrue : otherwise;
}

int NumberOf(const FcPattern* font, const char* key, int otherwise)
{
    int value = 0;
    return FcPatternGetInteger(font, key, 0, &value) == FcResultMatch ? value : otherwise;
}

bool Has(const FcPattern* font, const char* key)
{
    FcValue value;
    return FcPatternGet(font, key, 0, &value) == FcResultMatch;
}

bool IsPlain(const FcPattern* font)
{
    const int order = NumberOf(font, FC_RGBA, FC_RGBA_NONE);
    const bool isGrey = Is(font, FC_ANTIALIAS, true) &&
                        (order == FC_RGBA_NONE || order == FC_RGBA_UNKNOWN) &&
                        !Is(font, FC_COLOR, false);
    const bool isHinted =
        Is(font, FC_HINTING, true) && NumberOf(font, FC_HINT_STYLE, FC_HINT_SLIGHT) > FC_HINT_NONE;
    const bool isChanged = Is(font, FC_EMBOLDEN, false) || Is(font, FC_AUTOHINT, false) ||
                           Is(font, FC_VERTICAL_LAYOUT, false) || Is(font, FC_VARIABLE, false) ||
                           Has(font, FC_MATRIX) || Has(font, FC_FONT_VARIATIONS) ||
                           Has(font, FC_FONT_FEATURES);
    return Is(font, FC_SCALABLE, false) && isGrey && isHinted && !isChanged;
}

std::optional<FontFile> AskFontconfig(const FontSpec& spec)
{
    const Pattern font = MatchOf(spec);
    FcChar8* path = nullptr;
    if (font == nullptr || !IsPlain(font.get()) ||
        FcPatternGetString(font.get(), FC_FILE, 0, &path) != FcResultMatch)
        return std::nullopt;
    return FontFile{reinterpret_cast<const char*>(path), NumberOf(font.get(), FC_INDEX, 0)};
}

void AddPaths(std::vector<std::string>& paths, FcStrList* list)
{
    while (const FcChar8* const path = FcStrListNext(list))
        paths.emplace_back(reinterpret_cast<const char*>(path));
    FcStrListDone(list);
}

bool IsFontconfigLoaded()
{
    void* const library = dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_NOLOAD);
    if (library != nullptr)
        dlclose(library);
    return library != nullptr;
}

// Kept answers and fontconfig's, each asked for what the other can't tell. Where the program uses
// fontconfig itself, that is asked alone: it has its configuration then, which may be the program's
// own.
class FontFinder {
public:
    FontFinder()
    {
        const std::string folder = UserFolder("XDG_CACHE_HOME", ".cache");
        if (!folder.empty() && !IsFontconfigLoaded())
            fCache.emplace(JoinPath(folder, "sidecar"));
    }

    std::optional<FontFile> Find(const FontSpec& spec)
    {
        if (std::optional<FontFile> kept = fCache ? fCache->Find(spec) : std::nullopt)
            return kept;
        if (!fHasAsked && IsFontconfigLoaded())
            fCache.reset(); // by others, and nobody knows since when
        if (!fHasAsked)
            fSources.since = WallClock();
        const std::optional<FontFile> file = AskFontconfig(spec);
        if (!std::exchange(fHasAsked, true))
            AddSources();
        if (file && fCache)
            fCache->Keep(spec, *file, fSources);
        return file;
    }

private:
    // fontconfig reads them once.
    void AddSources()
    {
        AddPaths(fSources.paths, FcConfigGetConfigFiles(nullptr));
        AddPaths(fSources.paths, FcConfigGetFontDirs(nullptr));
    }

    std::optional<FontCache> fCache;
    FontSources fSources;
    bool fHasAsked = false;
};

} // namespace

std::optional<FontFile> FindPlainFontFile(const FontSpec& spec)
{
    static FontFinder finder;
    return finder.Find(spec);
}

} // namespace Platform
