#include "sheet_dialog.h"

#include "controls/sliders/edit_slider.h"
#include "dialogs/plugin_dialog/dialog_builder.h"
#include "view/messages/message.h"

namespace ContactSheet {
namespace {

using namespace Kesto;

class Dialog final : public Project::PDialog {
public:
    Dialog(const CWindowPlan& plan, Settings& settings)
        : CMessenger(nullptr, plan.id), PDialog(plan), fSettings(settings), fOpened(settings)
    {
    }

    void CreateViews() override
    {
        PDialog::CreateViews();
        Set(fSettings);
    }
    void OnReset() override { Set(fOpened); }
    void OnDefault() override { Set({}); }

    // Also while a slider is dragged, or a text typed.
    bool HandleValue(CValueMessage& message) override
    {
        const auto* const value = dynamic_cast<const CValMsg<CNumber>*>(&message);
        for (const Field& field : kFields)
            if (value != nullptr && message.fID == CObjID(field.control)) {
                fSettings.*field.number =
                    std::clamp(static_cast<int32_t>(value->fValue), field.least, field.most);
                return true;
            }
        return PDialog::HandleValue(message);
    }

private:
    void Set(const Settings& settings)
    {
        fSettings = settings;
        for (const Field& field : kFields)
            if (auto* const slider =
                    dynamic_cast<CEditSlider*>(FindChild(CObjID(field.control), true)))
                slider->SetValue(settings.*field.number);
    }

    Settings& fSettings;
    const Settings fOpened; // those that the dialog opened with
};

} // namespace

std::unique_ptr<CPluginDialog> LoadSheetDialog(Settings& settings)
{
    return Project::LoadDialog("CONTACT_SHEET.VEX", [&](const CWindowPlan& plan) {
        return std::make_unique<Dialog>(plan, settings);
    });
}

} // namespace ContactSheet
