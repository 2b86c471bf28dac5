#include "vex/built_layout.h"

#include "dialogs/preview/preview_classes.h"
#include "foundation/errors/exceptions.h"
#include "vex/check.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace Vex {

namespace {

// The size that the text comes to, for a bare window to have before a pane is put into it: what is
// bound to its edges would else move when it gets its size.
Kesto::Point NaturalSize(const CSourceText& source, Kesto::CView& bare)
{
    Kesto::LayoutOwner owner;
    owner.fTarget.emplace();
    owner.fCurrentView = &bare;
    Kesto::LoadLayoutFromText(owner, source.Text().c_str());
    return *owner.fTarget;
}

// A picture of more pixels would take too much memory.
constexpr double kMostPixels = 1 << 26;

void RequireDrawable(const CSourceText& source, const Kesto::Point& size, double scale)
{
    const double pixels = std::max(size.x, 1.0) * std::max(size.y, 1.0) * scale * scale;
    if (pixels <= kMostPixels)
        return;
    std::ostringstream words;
    words << source.Name() << ": the layout is " << size.x << " x " << size.y
          << " units, which is too large; " << static_cast<std::int32_t>(kMostPixels)
          << " pixels are the limit";
    throw std::runtime_error(words.str());
}

// What the checker says to the mistake that a text was refused for; the parser's own words tell
// less. Only the parser minds an unknown name that is a value by itself.
std::string WordsFor(const CSourceText& source, const char* parserWords)
{
    std::vector<Diagnostic> found = CheckLayout(source);
    const LayoutReading reading = ReadLayout(source);
    const auto mistake = std::ranges::find_if(found, [&](const Diagnostic& diagnostic) {
        return reading.error.empty()
                   ? diagnostic.kind == "unknown-constant"
                   : diagnostic.position == ExplainError(source, reading).position;
    });
    if (mistake == found.end())
        return source.Name() + ": " + parserWords;
    const SourcePlace place = source.PlaceOf(mistake->position);
    return source.Name() + ':' + std::to_string(place.line) + ':' + std::to_string(place.column) +
           ": " + mistake->message;
}

} // namespace

CBuiltLayout::CBuiltLayout(const CSourceText& source, const BuildOptions& options)
    : fBare(Kesto::CWindowPlan{})
{
    Project::RegisterPreviewClasses();
    try {
        fBare.ChangeScale(options.scale);
        const Kesto::Point natural = NaturalSize(source, fBare);
        RequireDrawable(source, natural, options.scale);
        RequireDrawable(source, options.size.value_or(natural), options.scale);
        fBare.SetContextSize(natural);
        Load(source);
    } catch (const std::logic_error& error) {
        throw std::runtime_error(WordsFor(source, error.what()));
    } catch (const Kesto::CException& failure) {
        throw std::runtime_error(source.Name() + ": " + failure.ErrorText().CStr());
    }
    if (fViews.empty())
        throw std::runtime_error(source.Name() + ": no class of its outermost view is known");
    auto* const window = dynamic_cast<Kesto::CWindow*>(fViews.front().view);
    fRoot = window != nullptr ? window : &fBare;
    if (fRoot->GetScale() != options.scale)
        fRoot->ChangeScale(options.scale);
    if (options.size)
        fRoot->SetContextSize(*options.size);
    if (options.opens)
        return;
    fRoot->PrepareViews();
    fRoot->Show();
    fRoot->Activate(); // without a screen there is no other window that could be the active one
}

void CBuiltLayout::Load(const CSourceText& source)
{
    fOwner.fDefaultParent = fOwner.fCurrentView = &fBare;
    fOwner.fViewListener = [this](std::string_view className, Kesto::CView& view) {
        fViews.push_back({std::string(className), &view, fOwner.fLayoutRecord.Margins()});
    };
    if (Kesto::LoadLayoutFromText(fOwner, source.Text().c_str()) == nullptr)
        fViews.clear(); // what is in an outermost view that isn't there is no layout
}

} // namespace Vex
