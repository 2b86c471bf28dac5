#include "platform/graphics/fonts.h"

#include "platform/graphics/font_engine.h"
#include "platform/graphics/line_cache.h"

#include <algorithm>
#include <map>

namespace Platform {
namespace {

constexpr std::int32_t kMostPixels = 1000;
constexpr std::size_t kMostFonts = 64;
constexpr std::size_t kMostCharacters = 32000; // of a line
constexpr std::size_t kMostEmPixels = 500000;  // of a line: its places stay within 32 bits
constexpr std::size_t kMostLines = 512;        // of a font
constexpr std::size_t kMostLineBytes = 2 * 1024 * 1024;

FontSpec Sensible(FontSpec spec)
{
    spec.pixels = std::clamp(spec.pixels, 1, kMostPixels);
    spec.weight = std::clamp(spec.weight, 1, 1000);
    return spec;
}

} // namespace

class Font::Record {
public:
    explicit Record(const FontSpec& spec)
        : fSpec(spec), fEngine(MakeFontEngine(spec)), fMetrics(fEngine->Metrics())
    {
    }

    const FontSpec& Spec() const { return fSpec; }
    const FontMetrics& Metrics() const { return fMetrics; }

    std::shared_ptr<const TextLine> Line(std::string_view utf8)
    {
        if (auto known = fLines.Find(utf8))
            return known;
        auto line = std::make_shared<const TextLine>(LayOut(utf8));
        fLines.Add(utf8, line);
        return line;
    }

private:
    TextLine::Shape LayOut(std::string_view utf8) const
    {
        const std::size_t most =
            std::min(kMostCharacters, kMostEmPixels / static_cast<std::size_t>(fSpec.pixels));
        TextLine::Shape shape = fEngine->LayOut(MakePlainText(utf8, most));
        if (fSpec.underline && shape.width > 0) {
            shape.underline = {0, fMetrics.underlineTop, shape.width,
                               fMetrics.underlineTop + fMetrics.underlineThickness};
            shape.inkBounds = Union(shape.inkBounds, shape.underline);
        }
        return shape;
    }

    FontSpec fSpec;
    std::unique_ptr<FontEngine> fEngine;
    FontMetrics fMetrics;
    LineCache fLines{kMostLines, kMostLineBytes};
};

// The fonts of the process. When there are many, those that nobody holds are dropped.
class FontStore {
public:
    static FontStore& Get()
    {
        static FontStore store;
        return store;
    }

    std::shared_ptr<Font::Record> Find(const FontSpec& spec)
    {
        if (const auto found = fRecords.find(spec); found != fRecords.end())
            return found->second;
        if (fRecords.size() >= kMostFonts)
            std::erase_if(fRecords, [](const auto& each) { return each.second.use_count() == 1; });
        return fRecords.emplace(spec, std::make_shared<Font::Record>(spec)).first->second;
    }

    void DropAll() { fRecords.clear(); }

private:
    std::map<FontSpec, std::shared_ptr<Font::Record>> fRecords;
};

Font::Font(const FontSpec& spec) : fRecord(FontStore::Get().Find(Sensible(spec))) {}

const FontSpec& Font::Spec() const
{
    return fRecord->Spec();
}

const FontMetrics& Font::Metrics() const
{
    return fRecord->Metrics();
}

std::shared_ptr<const TextLine> Font::Line(std::string_view utf8) const
{
    return fRecord->Line(utf8);
}

void DropKeptFonts()
{
    FontStore::Get().DropAll();
}

} // namespace Platform
