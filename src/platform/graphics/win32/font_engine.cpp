// Fonts and lines by GDI and Uniscribe: laid out with hinted metrics, drawn white on black in grey
// antialiasing, so that the brightness of a pixel is its coverage.

#include "platform/graphics/font_engine.h"

#include "platform/graphics/bitmap.h"
#include "platform/system/win32/wide.h"

#include <algorithm>
#include <windows.h>

#include <usp10.h>

namespace Platform {
namespace {

// Text is laid out a second time at this many times the size, where hinting hardly counts.
constexpr int kFine = 16;
constexpr int kFinestPixels = 2000;

using FontHandle = std::shared_ptr<std::remove_pointer_t<HFONT>>;

FontHandle MakeFont(const FontSpec& spec, int pixels)
{
    LOGFONTW wanted{};
    wanted.lfHeight = -pixels; // of the em square
    wanted.lfWeight = spec.weight;
    wanted.lfItalic = spec.italic;
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfOutPrecision = OUT_TT_PRECIS;
    wanted.lfQuality = ANTIALIASED_QUALITY;
    ToWide(spec.face).copy(wanted.lfFaceName, LF_FACESIZE - 1);
    return {CreateFontIndirectW(&wanted), [](HFONT font) { DeleteObject(font); }};
}

// A device without a screen, for measuring and for drawing into bitmaps.
class MemoryDevice {
public:
    static HDC Get()
    {
        static const MemoryDevice device;
        return device.fDevice;
    }

private:
    MemoryDevice() : fDevice(CreateCompatibleDC(nullptr))
    {
        SetBkMode(fDevice, TRANSPARENT);
        SetTextColor(fDevice, RGB(255, 255, 255));
        SetTextAlign(fDevice, TA_LEFT | TA_BASELINE);
    }
    ~MemoryDevice() { DeleteDC(fDevice); }
    MemoryDevice(const MemoryDevice&) = delete;
    MemoryDevice& operator=(const MemoryDevice&) = delete;

    HDC fDevice;
};

// An object that the device uses while this lives.
class Selected {
public:
    explicit Selected(HGDIOBJ object) : fBefore(SelectObject(MemoryDevice::Get(), object)) {}
    ~Selected() { SelectObject(MemoryDevice::Get(), fBefore); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HGDIOBJ fBefore;
};

// A text in the units of Windows, and the direction of its first letter that has one.
struct WideText {
    std::wstring units;
    std::vector<std::size_t> characters; // the character of each unit
    bool rightToLeft = false;
    bool mixed = false; // holds letters that run from right to left
};

void Append(std::wstring& units, char32_t character)
{
    if (character >= 0x10000) {
        units += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
        character = 0xDC00 + (character & 0x3FF);
    }
    units += static_cast<wchar_t>(character);
}

void FindDirections(WideText& text)
{
    std::vector<WORD> kinds(text.units.size());
    GetStringTypeW(CT_CTYPE2, text.units.data(), static_cast<int>(text.units.size()), kinds.data());
    const auto first = std::ranges::find_if(
        kinds, [](WORD kind) { return kind == C2_LEFTTORIGHT || kind == C2_RIGHTTOLEFT; });
    text.rightToLeft = first != kinds.end() && *first == C2_RIGHTTOLEFT;
    text.mixed = std::ranges::find(kinds, WORD{C2_RIGHTTOLEFT}) != kinds.end() ||
                 text.units.find_first_of(L"\u202B\u202E\u2067") != std::wstring::npos;
}

WideText MakeWideText(const PlainText& text)
{
    WideText wide;
    for (std::size_t i = 0; i < text.characters.size(); ++i) {
        Append(wide.units, text.characters[i]);
        wide.characters.resize(wide.units.size(), i);
    }
    FindDirections(wide);
    return wide;
}

// The layout of a text in the font that the device has selected.
class Analysis {
public:
    explicit Analysis(const WideText& text) : fUnits(text.units.size())
    {
        const int count = static_cast<int>(fUnits);
        SCRIPT_CONTROL control{};
        SCRIPT_STATE state{};
        state.uBidiLevel = text.rightToLeft ? 1 : 0;
        if (count == 0 ||
            ScriptStringAnalyse(MemoryDevice::Get(), text.units.data(), count, count * 3 / 2 + 16,
                                -1, SSA_GLYPHS | SSA_FALLBACK | SSA_BREAK, 0, &control, &state,
                                nullptr, nullptr, nullptr, &fHandle) != S_OK)
            fHandle = nullptr;
    }
    ~Analysis()
    {
        if (fHandle != nullptr)
            ScriptStringFree(&fHandle);
    }
    Analysis(const Analysis&) = delete;
    Analysis& operator=(const Analysis&) = delete;

    bool IsGood() const { return fHandle != nullptr; }

    int Width() const
    {
        const SIZE* const size = fHandle != nullptr ? ScriptString_pSize(fHandle) : nullptr;
        return size != nullptr ? size->cx : 0;
    }

    // One for each unit, or null.
    const SCRIPT_LOGATTR* Marks() const { return ScriptString_pLogAttr(fHandle); }

    std::vector<int> LogicalWidths() const
    {
        std::vector<int> widths(fUnits);
        ScriptStringGetLogicalWidths(fHandle, widths.data());
        return widths;
    }

    int EdgeOf(std::size_t unit, bool trailing) const
    {
        int x = 0;
        ScriptStringCPtoX(fHandle, static_cast<int>(unit), trailing, &x);
        return x;
    }

    void Draw(int x, int y) const { ScriptStringOut(fHandle, x, y, 0, nullptr, 0, 0, FALSE); }

private:
    std::size_t fUnits;
    SCRIPT_STRING_ANALYSIS fHandle = nullptr;
};

class WideInk : public TextInk {
public:
    WideInk(FontHandle font, WideText text) : fFont(std::move(font)), fText(std::move(text)) {}

    void Render(const PixelRect& area, std::span<std::uint8_t> coverage) const override
    {
        Bitmap bitmap;
        if (!bitmap.Make(area.right - area.left, area.bottom - area.top, 32, false))
            return;
        const auto bytes = static_cast<std::size_t>(bitmap.RowBytes() * bitmap.Height());
        std::fill_n(bitmap.Bits(), bytes, std::uint8_t{0});
        {
            const Selected target(reinterpret_cast<HBITMAP>(bitmap.Native()));
            const Selected font(fFont.get());
            const Analysis analysis(fText);
            if (analysis.IsGood())
                analysis.Draw(-area.left, -area.top);
        }
        // GDI draws later than it says; the pixels are read from memory here.
        GdiFlush();
        // White on black in grey smoothing: each channel is the coverage.
        const std::uint8_t* green = bitmap.Bits() + 1;
        for (std::uint8_t& each : coverage) {
            each = *green;
            green += 4;
        }
    }

private:
    FontHandle fFont;
    WideText fText;
};

// Where carets before and after the unit are.
struct Ends {
    int leading;
    int trailing;
};

// All at once where everything runs to the right, which is quicker by far for long texts.
std::vector<Ends> UnitEnds(const Analysis& analysis, const WideText& text)
{
    std::vector<Ends> ends;
    int x = 0;
    if (!text.mixed)
        for (const int width : analysis.LogicalWidths()) {
            ends.push_back({x, x + width});
            x += width;
        }
    else
        for (std::size_t i = 0; i < text.units.size(); ++i)
            ends.push_back({analysis.EdgeOf(i, false), analysis.EdgeOf(i, true)});
    return ends;
}

bool IsLetter(WORD kind)
{
    return (kind & (C1_ALPHA | C1_DIGIT)) != 0;
}

std::vector<WORD> KindsOf(const std::wstring& units, DWORD which)
{
    std::vector<WORD> kinds(units.size());
    GetStringTypeW(which, units.data(), static_cast<int>(units.size()), kinds.data());
    return kinds;
}

std::vector<TextCluster> ClustersOf(const Analysis& analysis, const WideText& wide,
                                    const PlainText& text)
{
    const std::vector<Ends> ends = UnitEnds(analysis, wide);
    const std::vector<WORD> kinds = KindsOf(wide.units, CT_CTYPE1);
    const SCRIPT_LOGATTR* const marks = analysis.Marks();
    std::vector<TextCluster> clusters;
    for (std::size_t i = 0; i < wide.units.size(); ++i) {
        const bool beginsCharacter = i == 0 || wide.characters[i] != wide.characters[i - 1];
        // The second half of a pair of units, or a mark on the character before, is no place for
        // the cursor.
        if (i > 0 && !(beginsCharacter && (marks == nullptr || marks[i].fCharStop))) {
            clusters.back().trailing = static_cast<float>(ends[i].trailing);
            continue;
        }
        clusters.push_back(
            {text.starts[wide.characters[i]], static_cast<float>(ends[i].leading),
             static_cast<float>(ends[i].trailing), i > 0 && marks != nullptr && marks[i].fSoftBreak,
             i == 0 || IsLetter(kinds[i]) != IsLetter(kinds[i - 1]), (kinds[i] & C1_SPACE) != 0});
    }
    return clusters;
}

class WindowsEngine : public FontEngine {
public:
    explicit WindowsEngine(const FontSpec& spec)
        : fPixels(spec.pixels), fFine(std::max(1, std::min(kFine, kFinestPixels / spec.pixels))),
          fFont(MakeFont(spec, spec.pixels)), fFineFont(MakeFont(spec, spec.pixels * fFine))
    {
    }

    FontMetrics Metrics() const override
    {
        const Selected font(fFont.get());
        TEXTMETRICW all{};
        GetTextMetricsW(MemoryDevice::Get(), &all);
        FontMetrics metrics;
        metrics.ascent = all.tmAscent;
        metrics.descent = all.tmDescent;
        metrics.height = all.tmHeight;
        metrics.averageWidth = all.tmAveCharWidth;
        metrics.maxWidth = std::max(all.tmMaxCharWidth, all.tmAveCharWidth);
        // Fonts of bitmaps have no outline to ask.
        metrics.underlineTop = 1;
        OUTLINETEXTMETRICW outline{};
        if (GetOutlineTextMetricsW(MemoryDevice::Get(), sizeof outline, &outline) != 0) {
            metrics.underlineTop = std::max(1, -outline.otmsUnderscorePosition);
            metrics.underlineThickness = std::max(1, static_cast<int>(outline.otmsUnderscoreSize));
        }
        return metrics;
    }

    TextLine::Shape LayOut(const PlainText& text) const override
    {
        TextLine::Shape shape;
        shape.length = text.starts.back();
        WideText wide = MakeWideText(text);
        const Selected font(fFont.get());
        const Analysis analysis(wide);
        if (!analysis.IsGood())
            return shape;
        shape.advance = static_cast<float>(analysis.Width());
        shape.width = std::max(analysis.Width(), UnhintedWidth(wide));
        shape.rightToLeft = wide.rightToLeft;
        shape.clusters = ClustersOf(analysis, wide, text);
        // The system doesn't tell how far marks and slanting letters reach; nothing reaches
        // further.
        shape.inkBounds = {-fPixels, -2 * fPixels, shape.width + fPixels, fPixels};
        shape.ink = std::make_unique<WideInk>(fFont, std::move(wide));
        return shape;
    }

private:
    int UnhintedWidth(const WideText& text) const
    {
        const Selected font(fFineFont.get());
        return (Analysis(text).Width() + fFine - 1) / fFine;
    }

    int fPixels;
    int fFine;
    FontHandle fFont;
    FontHandle fFineFont;
};

} // namespace

std::unique_ptr<FontEngine> MakeFontEngine(const FontSpec& spec)
{
    return std::make_unique<WindowsEngine>(spec);
}

} // namespace Platform
