// PDialogElectricImage, which asks for the frame of a file that has several.
//
// What it shows and what the user chooses pass through the values of choose_frame.h.
#pragma once

#include "dialogs/plugin_dialog/plugin_dialog.h"

#include <memory>

namespace Kesto {
class CEditNumber;
}

namespace Project {

class PDialogElectricImage final : public PDialog {
public:
    using PDialog::PDialog;

    // The dialog as the layout "ELECTRICIMAGE.VEX" describes it. Throws what LoadDialog throws.
    static std::unique_ptr<PDialog> Make();

    // Says how many frames there are, and shows the one that is offered.
    void CreateViews() override;

    // The keyboard goes to the number, which is selected.
    void AfterShow() override;

    // Number and range as the reader has them. `redraw`: they are painted at once, if the dialog is
    // on the screen.
    void SetValuesFromSettings(bool redraw) override;

    // Hands the number to the reader. It stays within the frames that there are.
    bool Accept() override;
    void OnReset() override { SetValuesFromSettings(false); }
    void OnDefault() override { SetValuesFromSettings(false); }

private:
    Kesto::CEditNumber* FrameField() const; // null in a layout without one
};

} // namespace Project
