// PDialog, the frame of the dialogs of plug-ins: OK and Cancel, controls for settings, and, where
// the layout has them, a preview and a panel that zooms it. Each view is found by its id
// (dialog_ids.h) and may be missing.
//
// While Alt is held the Cancel button resets, while Control is held it restores the defaults; Alt
// wins. What a press does is decided by the keys that were held at the press, not by the label.
// OK, the close box and whatever else asks the dialog to end can be refused by the field that has
// the focus; then the dialog goes on, and was neither accepted nor dismissed. Cancel can't.
#pragma once

#include "dialogs/plugin_dialog/preview_parts.h"
#include "dialogs/settings/settings_dialog.h"
#include "dialogs/settings/task.h"
#include "plugin/frame/plugin_dialog.h"
#include "view/process/idler.h"
#include "view/window/window_kinds.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace Project {

class PDialog : public Kesto::CDialog, public Kesto::CPluginDialog, public PSettingsDialog {
public:
    // The features that every such window has, beside those of its layout.
    static constexpr std::uint32_t kFeatures = 0x183;

    // The title is localised; it comes from the plan, and later from the layout.
    explicit PDialog(Kesto::CWindowPlan plan);
    ~PDialog() override;

    // Readies the preview and the panel, and composes the title.
    void CreateViews() override;

    // ---------------------------------------------------- For the dialogs of plug-ins, to override

    virtual bool IsPreviewReady() { return false; }

    // OK was pressed: asks the run to end, accepted. False: the dialog stays.
    virtual bool Accept();
    // Asks the run to end without that.
    virtual bool Dismiss();

    // Alt and Cancel: back to the settings that the dialog opened with. Control and Cancel: to the
    // plug-in's defaults. The dialog stays. Empty.
    virtual void OnReset() {}
    virtual void OnDefault() {}

    // The room that the layout leaves the preview, in the window's units.
    virtual void SetPreviewFrame(const Kesto::Rect& frame) { fPreviewFrame = frame; }
    const Kesto::Rect& GetPreviewFrame() const { return fPreviewFrame; }

    // ------------------------------------------------------------------------------------ The rest

    // Gives the preview the scale of a zoom command; another command does nothing.
    void SetZoom(Kesto::CObjID command);

    // Whether Alt and Control do anything.
    void SetResetAllowed(bool on);

    PTaskStack& GetTaskStack() { return fTaskStack; }
    PPreview* GetPreview() const;
    bool IsAccepted() const { return fAccepted; }

    // The keys that are held; sets the Cancel button's label by them.
    void ShowModifiers(bool alt, bool control);

    // Shows the title, followed by the preview's scale if there is one.
    void ComposeTitle();

    void TakeState(const Kesto::PluginSettings& settings) override;
    void UseModalStyle() override { SetModal(true); }
    bool RunModal() override;
    void StoreState(Kesto::PluginSettings& settings) override;

    // What its layout calls the classes of its views, which LoadDialog tells it.
    using ClassNames = std::map<const Kesto::CView*, std::string>;
    void SetClassNames(ClassNames names) { fClassNames = std::move(names); }
    std::string_view ClassNameOf(const Kesto::CView& view) const override;

    void SetValuesFromSettings(bool) override {}
    Kesto::CMessenger* FocusOfControl(Kesto::CObjID control) override;
    Kesto::CMessenger* PreviewMessenger() override;
    Kesto::CMessenger& DialogMessenger() override { return *this; }

    void OnStart() override;
    void OnStop() override;
    void SetDone(bool done) override;
    void SetTitle(const Kesto::CText& title) override;
    bool HandleCommand(Kesto::CCommandMessage& message) override;
    bool HandleMenu(Kesto::CMenuMessage& message) override;

protected:
    std::intptr_t OnSize(const Platform::WindowMessage& message) override;

private:
    class CModifierIdler final : public Kesto::CIdler {
    public:
        explicit CModifierIdler(PDialog& dialog);
        void Idle() override;

    private:
        PDialog& fDialog;
    };

    void PressCancel(const Kesto::CMessage& message);
    void ShowCancelLabel();

    Kesto::CText fTitle; // without the scale
    PTaskStack fTaskStack;
    CModifierIdler fModifierIdler{*this};
    Kesto::Rect fPreviewFrame;
    ClassNames fClassNames;
    bool fAccepted = false;
    bool fAltDown = false;     // as of the last poll
    bool fControlDown = false; // without Alt
    bool fResult = false;      // what Accept returned
    bool fResetAllowed = true;
};

} // namespace Project
