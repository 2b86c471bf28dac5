#include "layout/build/vex_generator.h"

#include "layout/build/builder_registry.h"
#include "layout/build/layout_owner.h"
#include "layout/build/view_builder.h"
#include "layout/placement/rapid_view_scope.h"
#include "view/tree/view.h"

namespace Kesto {

// The scopes of the view in work, until the end of a call.
class CVexGenerator::CViewInWork {
public:
    CViewInWork(CVexGenerator& generator, const CExpressionScope* properties)
        : fGenerator(generator)
    {
        fGenerator.fProperties = properties;
    }
    ~CViewInWork() { fGenerator.fProperties = fGenerator.fLayout = nullptr; }
    CViewInWork(const CViewInWork&) = delete;
    CViewInWork& operator=(const CViewInWork&) = delete;

    // From here on builders read the layout scope.
    void SetLayout(const CExpressionScope* layout) { fGenerator.fLayout = layout; }

private:
    CVexGenerator& fGenerator;
};

CVexGenerator::CVexGenerator(LayoutOwner& owner)
    : fOwner(owner), fIntoExisting(owner.fTarget.has_value())
{
}

void CVexGenerator::Measure(std::string_view className, CExpressionScope* properties,
                            CExpressionScope* layoutScope)
{
    CViewInWork work(*this, properties);
    CopyScopeVariables(*properties, *layoutScope, fRoot);
    fOwner.fLayoutRecord = ViewLayoutRecord::Read(*properties, fRoot);
    work.SetLayout(layoutScope);
    Dispatch(className);
    fOwner.fLayoutRecord.Write(*layoutScope);
}

// A class without a builder is passed over: its children are treated as they are.
void CVexGenerator::Dispatch(std::string_view className)
{
    CViewBuilderBase* const builder = FindBuilder(className);
    if (builder == nullptr)
        return;
    if (builder->IsForWindows())
        MakeWindow(*builder);
    else if (fOwner.fCurrentView != nullptr)
        builder->AdjustLayout(fOwner.fCurrentView, fOwner);
}

// A window is made while the text is still being read, so that the sizes of its panes can depend on
// it. Until the text has been read to its end it belongs to the owner, which lets it go when the
// text is refused.
void CVexGenerator::MakeWindow(CViewBuilderBase& builder)
{
    const bool isWanted = fOwner.fExistingView != nullptr || fOwner.fRootView == nullptr;
    if (fOwner.fTarget || !isWanted)
        return;
    builder.BeginBuild(fOwner);
    CView* const window = builder.AdjustLayout(fOwner.fParent, fOwner);
    if (window == nullptr)
        return;
    window->BeginLayout();
    fOwner.fRootView = fOwner.fCurrentView = fOwner.fDefaultParent = window;
}

CView* CVexGenerator::Build(std::string_view className, CExpressionScope* layoutScope,
                            CView* parentView)
{
    if (fIntoExisting && fFilled)
        return nullptr;
    const CViewInWork work(*this, layoutScope);
    fOwner.fLayoutRecord = ViewLayoutRecord::Read(*layoutScope, nullptr);
    if (fIntoExisting) {
        fOwner.fTarget = Point{fOwner.fLayoutRecord.width, fOwner.fLayoutRecord.height};
        fFilled = true;
        return nullptr;
    }
    CViewBuilderBase* const builder = FindBuilder(className);
    CView* const view = builder != nullptr ? Construct(*builder, parentView) : nullptr;
    if (view != nullptr && fOwner.fViewListener)
        fOwner.fViewListener(className, *view);
    return view;
}

// Panes in a view of an unknown class go to the default parent, which is the window if the text
// has one.
CView* CVexGenerator::Construct(CViewBuilderBase& builder, CView* parent)
{
    if (builder.IsForWindows()) {
        if (fOwner.fRootView != nullptr)
            builder.ConstructView(fOwner.fRootView, fOwner);
        return fOwner.fRootView;
    }
    if (parent == nullptr)
        parent = fOwner.fDefaultParent;
    return parent != nullptr ? builder.ConstructView(parent, fOwner) : nullptr;
}

} // namespace Kesto
