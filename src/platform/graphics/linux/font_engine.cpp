// The engine of Linux: what is plain is laid out without Pango, which is loaded for all else.

#include "platform/graphics/font_engine.h"

#include "platform/graphics/linux/latin_engine.h"
#include "platform/graphics/linux/pango_engine.h"

namespace Platform {
namespace {

class LinuxEngine : public FontEngine {
public:
    explicit LinuxEngine(const FontSpec& spec) : fSpec(spec), fLatin(MakeLatinEngine(spec)) {}

    FontMetrics Metrics() const override
    {
        return fLatin != nullptr ? fLatin->Metrics() : Pango().Metrics();
    }

    TextLine::Shape LayOut(const PlainText& text) const override
    {
        if (fLatin != nullptr)
            if (std::optional<TextLine::Shape> shape = fLatin->LayOut(text))
                return std::move(*shape);
        return Pango().LayOut(text);
    }

private:
    const FontEngine& Pango() const
    {
        if (fPango == nullptr)
            fPango = MakePangoEngine(fSpec);
        return *fPango;
    }

    FontSpec fSpec;
    std::unique_ptr<LatinEngine> fLatin;
    mutable std::unique_ptr<FontEngine> fPango;
};

} // namespace

std::unique_ptr<FontEngine> MakeFontEngine(const FontSpec& spec)
{
    return std::make_unique<LinuxEngine>(spec);
}

} // namespace Platform
