#include "layout/build/layout_owner.h"

#include "layout/build/builder_registry.h"
#include "layout/build/vex_generator.h"
#include "layout/build/view_builder.h"
#include "layout/placement/rapid_view_scope.h"
#include "layout/vocabulary/keywords.h"
#include "platform/system/resources.h"
#include "view/process/ui_scale.h"
#include "view/window/window.h"

#include <span>
#include <string>

namespace Kesto {

namespace {

constexpr const char* kLayoutResources = "VEXF";

// What a load changes in its owner, put back unless the load comes to its end.
class CLoadGuard {
public:
    explicit CLoadGuard(LayoutOwner& owner)
        : fOwner(owner), fRootView(owner.fRootView), fCurrentView(owner.fCurrentView),
          fDefaultParent(owner.fDefaultParent), fHadWindow(owner.fWindow != nullptr)
    {
    }
    ~CLoadGuard()
    {
        fOwner.fGenerator.reset();
        if (fIsDone)
            return;
        fOwner.fRootView = fRootView;
        fOwner.fCurrentView = fCurrentView;
        fOwner.fDefaultParent = fDefaultParent;
        if (!fHadWindow)
            fOwner.fWindow.reset();
    }
    CLoadGuard(const CLoadGuard&) = delete;
    CLoadGuard& operator=(const CLoadGuard&) = delete;

    // From here on a window that is deleted by its super belongs to that.
    void Done()
    {
        fIsDone = true;
        if (fOwner.fWindow && fOwner.fWindow->IsAutoDelete() && fOwner.fWindow->Super() != nullptr)
            static_cast<void>(fOwner.fWindow.release());
    }

private:
    LayoutOwner& fOwner;
    CView* fRootView;
    CView* fCurrentView;
    CView* fDefaultParent;
    bool fHadWindow;
    bool fIsDone = false;
};

CView* LoadLayoutBytes(LayoutOwner& owner, std::optional<std::span<const std::byte>> bytes)
{
    if (!bytes)
        return nullptr;
    const std::string text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    return LoadLayoutFromText(owner, text.c_str());
}

} // namespace

LayoutOwner::LayoutOwner() = default;
LayoutOwner::~LayoutOwner() = default;

std::unique_ptr<CWindow> LayoutOwner::TakeWindow()
{
    return std::move(fWindow);
}

CPropertyReader LayoutOwner::Properties() const
{
    return {fGenerator ? fGenerator->CurrentScope() : nullptr, fKeyListener};
}

CPropertyReader LayoutOwner::RootProperties() const
{
    return {fGenerator ? fGenerator->Root() : nullptr, fKeyListener};
}

void LayoutOwner::DefineVariable(const VexName& name, std::int32_t integer)
{
    if (fGenerator && fGenerator->Root() != nullptr)
        fGenerator->Root()->AddConstant(name, integer);
}

void LayoutOwner::DefineVariable(std::string_view name, std::string_view text)
{
    if (fGenerator && fGenerator->Root() != nullptr)
        fGenerator->Root()->AddVariable(name, text);
}

// The root scope has its texts in the generator's pool. It is declared after the guard, so that it
// ends before the guard ends the generator.
CView* LoadLayoutFromText(LayoutOwner& owner, const char* text)
{
    owner.fGenerator.reset();
    if (text == nullptr)
        return nullptr;
    CLoadGuard guard(owner);
    LookUpUsualScale();
    owner.fGenerator = std::make_unique<CVexGenerator>(owner);
    const auto root =
        CRapidViewScope::CreateRootScope(nullptr, owner.fGenerator.get(), nullptr, nullptr, true);
    owner.fGenerator->SetRoot(root.get());
    for (const VexConstant& constant : ClassConstants())
        owner.DefineVariable(constant.name, constant.value);
    ForEachBuilder([&owner](CViewBuilderBase& builder) { builder.DefineConstants(owner); });
    CView* const result = root->Parse(text);
    if (owner.fCurrentView != nullptr)
        owner.fCurrentView->FinishLayout();
    guard.Done();
    return result;
}

CView* LoadLayoutResource(LayoutOwner& owner, std::uint16_t id)
{
    return LoadLayoutBytes(owner, Platform::FindModuleResource(kLayoutResources, id));
}

CView* LoadLayoutResource(LayoutOwner& owner, std::string_view name)
{
    return LoadLayoutBytes(owner, Platform::FindModuleResource(kLayoutResources, name));
}

} // namespace Kesto
