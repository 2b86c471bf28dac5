#include "vex/layout_reading.h"

#include "layout/build/text_generator.h"
#include "layout/placement/rapid_view_scope.h"
#include "layout/vocabulary/keywords.h"

#include <stdexcept>

namespace Vex {

namespace {

class CRecordingGenerator : public Kesto::CTextGenerator {
public:
    explicit CRecordingGenerator(std::vector<ViewReading>& views) : fViews(views) {}

    void Measure(std::string_view className, Kesto::CExpressionScope* properties,
                 Kesto::CExpressionScope* layoutScope) override
    {
        properties->ListVariables(
            fViews.emplace_back(ViewReading{std::string(className), {}, {}}).properties);
        CTextGenerator::Measure(className, properties, layoutScope);
    }

    // Views are built in the order in which they were measured.
    Kesto::CView* Build(std::string_view, Kesto::CExpressionScope* layoutScope,
                        Kesto::CView*) override
    {
        layoutScope->ListVariables(fViews[fBuilt++].layout);
        return nullptr;
    }

private:
    std::vector<ViewReading>& fViews;
    std::size_t fBuilt = 0;
};

class CReadingListener : public CTreeListener {
public:
    explicit CReadingListener(LayoutReading& reading) : fReading(reading) {}

    void ScopeEnds(const Kesto::CExpressionScope& scope, const char* position) override
    {
        scope.ListVariables(scope.Parent() != nullptr ? fReading.blocks[position] : fReading.root);
    }

private:
    LayoutReading& fReading;
};

} // namespace

// A refused text has a reading too: as far as the parser came.
LayoutReading ReadLayout(const CSourceText& source)
{
    LayoutReading reading;
    CRecordingGenerator generator(reading.views);
    CReadingListener listener(reading);
    const auto root =
        Kesto::CRapidViewScope::CreateRootScope(nullptr, &generator, nullptr, &listener, true);
    for (const Kesto::VexConstant& constant : Kesto::ClassConstants())
        root->AddConstant(constant.name, constant.value);
    generator.SetRoot(root.get());
    try {
        root->Parse(source.Text().c_str());
    } catch (const std::logic_error& error) {
        reading.error = error.what();
    }
    reading.nodes = listener.Nodes();
    reading.failure = listener.Failure();
    return reading;
}

} // namespace Vex
