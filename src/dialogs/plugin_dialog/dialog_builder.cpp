#include "dialogs/plugin_dialog/dialog_builder.h"

#include "controls/registered_classes.h"
#include "layout/build/layout_owner.h"
#include "layout/build/window_builder.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace Project {
namespace {

// Whose dialog is being loaded; null makes plain ones.
const DialogMaker* gMaker = nullptr;

class MakerScope {
public:
    explicit MakerScope(const DialogMaker& maker) : fBefore(gMaker) { gMaker = &maker; }
    ~MakerScope() { gMaker = fBefore; }
    MakerScope(const MakerScope&) = delete;
    MakerScope& operator=(const MakerScope&) = delete;

private:
    const DialogMaker* const fBefore;
};

class PDialogBuilder final : public Kesto::CWindowBuilderBase {
public:
    using CWindowBuilderBase::CWindowBuilderBase;

protected:
    std::unique_ptr<Kesto::CWindow> MakeWindow(const Kesto::CWindowPlan& plan) const override
    {
        if (gMaker != nullptr)
            return (*gMaker)(plan);
        return std::make_unique<PDialog>(plan);
    }
};

} // namespace

void RegisterDialogClasses()
{
    Kesto::RegisterViewClasses();
    static const PDialogBuilder builder("PDialog");
}

std::unique_ptr<PDialog> LoadDialog(std::string_view layout, const DialogMaker& make)
{
    RegisterDialogClasses();
    const MakerScope scope(make);
    PDialog::ClassNames names;
    Kesto::LayoutOwner owner;
    // Descriptions tell the class of a view, which only the layout knows.
    owner.fViewListener = [&names](std::string_view className, Kesto::CView& view) {
        names[&view] = className;
    };
    Kesto::LoadLayoutResource(owner, layout);
    std::unique_ptr<Kesto::CWindow> window = owner.TakeWindow();
    std::unique_ptr<PDialog> dialog(dynamic_cast<PDialog*>(window.get()));
    if (dialog == nullptr)
        throw std::runtime_error("the layout " + std::string(layout) + " has no dialog");
    window.release();
    dialog->SetClassNames(std::move(names));
    return dialog;
}

} // namespace Project
