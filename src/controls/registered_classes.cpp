#include "controls/registered_classes.h"

#include "controls/base/placeholder_pane.h"
#include "controls/buttons/button_builders.h"
#include "controls/fields/field_builders.h"
#include "controls/frames/frame_pane.h"
#include "controls/frames/group_pane.h"
#include "controls/popups/combo_box.h"
#include "controls/scrolling/scroller.h"
#include "controls/sliders/edit_slider_builder.h"
#include "controls/sliders/progress_bar.h"
#include "controls/tabs/tabbed_pane.h"
#include "controls/text/static_image.h"
#include "controls/text/static_text.h"
#include "controls/text/static_view.h"
#include "layout/build/builder_registry.h"
#include "layout/build/window_builder.h"

#include <vector>

namespace Kesto {

namespace {

using enum VexClassKind;

template <class Builder>
std::unique_ptr<CViewBuilderBase> Make(std::string_view name)
{
    return std::make_unique<Builder>(name);
}

// A class without a builder yet; its size is about that of the control.
constexpr std::nullptr_t kToCome = nullptr;
// One that is built above this layer, by dialogs/preview.
constexpr std::nullptr_t kAbove = nullptr;

constexpr RegisteredClass kClasses[] = {
    {"CWindow", kWindow, Make<CWindowBuilder<CWindow>>, {}},
    {"CDialog", kWindow, Make<CWindowBuilder<CDialog>>, {}},
    {"CAlert", kWindow, Make<CWindowBuilder<CAlert>>, {}},
    {"CDocumentWindow", kWindow, Make<CWindowBuilder<CDocumentWindow>>, {}},
    {"CFloater", kWindow, Make<CWindowBuilder<CFloater>>, {}},
    {"CMDIFrame", kWindow, Make<CWindowBuilder<CMDIFrame>>, {}},
    {"CPopup", kWindow, Make<CWindowBuilder<CPopup>>, {}},
    {"CToolbar", kWindow, Make<CWindowBuilder<CToolbar>>, {}},
    {"PDialog", kWindow, Make<CWindowBuilder<CDialog>>, {}},
    {"COrlenSlider", kPane, Make<CPaneBuilder<COrlenSlider>>, {}},
    {"CAngleSlider", kPane, Make<CPaneBuilder<CAngleSlider>>, {}},
    {"CButton", kPane, Make<CPaneBuilder<CButton>>, {}},
    {"CCasePane", kPane, kToCome, {64, 64}},
    {"CCellSheet", kPane, kToCome, {64, 64}},
    {"CCheckButton", kPane, Make<CPaneBuilder<CCheckButton>>, {}},
    {"CComboBox", kPane, Make<CPaneBuilder<CComboBox>>, {}},
    {"CCustomButton", kPane, Make<CPaneBuilder<CCustomButton>>, {}},
    {"CCustomScrollbar", kPane, Make<CPaneBuilder<CScrollBar>>, {}}, // all of ours are drawn
    {"CCustomSlider", kPane, Make<CPaneBuilder<CCustomSlider>>, {}},
    {"CEditNumber", kPane, Make<CPaneBuilder<CEditNumber>>, {}},
    {"CEditPopupSlider", kPane, kToCome, {120, 20}},
    {"CEditSlider", kPane, Make<CPaneBuilder<CEditSlider>>, {}},
    {"CEditString", kPane, Make<CPaneBuilder<CEditString>>, {}},
    {"CFlyoutPopup", kPane, kToCome, {100, 24}},
    {"CFrameInsert", kPane, kToCome, {64, 64}},
    {"CFramePane", kPane, Make<CPaneBuilder<CFramePane>>, {}},
    {"CGridPane", kPane, kToCome, {64, 64}},
    {"CGroupPane", kPane, Make<CPaneBuilder<CGroupPane>>, {}},
    {"CHorizontalSizeBar", kPane, kToCome, {15, 15}},
    {"CIconButton", kPane, Make<CPaneBuilder<CIconButton>>, {}},
    {"CIconButtonDropDown", kPane, Make<CPaneBuilder<CIconButtonDropDown>>, {}},
    {"CListBox", kPane, kToCome, {120, 100}},
    {"CListSheet", kPane, kToCome, {64, 64}},
    {"CMDIPane", kPane, kToCome, {64, 64}},
    {"CMenuBarPane", kPane, kToCome, {64, 64}},
    {"CMenuPopup", kPane, Make<CPaneBuilder<CMenuPopup>>, {}},
    {"CPane", kPane, Make<CPaneBuilder<CPane>>, {}},
    {"CPopupSlider", kPane, kToCome, {120, 20}},
    {"CProgressBar", kPane, Make<CPaneBuilder<CProgressBar>>, {}},
    {"CPushButton", kPane, Make<CPaneBuilder<CPushButton>>, {}},
    {"CRadioButton", kPane, Make<CPaneBuilder<CRadioButton>>, {}},
    {"CRadioPopup", kPane, kToCome, {100, 24}},
    {"CScalePane", kPane, kAbove, {64, 64}},
    {"CScrollBar", kPane, Make<CPaneBuilder<CScrollBar>>, {}},
    {"CScrollPane", kPane, Make<CPaneBuilder<CScrollPane>>, {}},
    {"CScroller", kPane, Make<CPaneBuilder<CScroller>>, {}},
    {"CSheet", kPane, kToCome, {64, 64}},
    {"CSizeBar", kPane, kToCome, {8, 8}},
    {"CSizeBox", kPane, kToCome, {15, 15}},
    {"CStaticImage", kPane, Make<CPaneBuilder<CStaticImage>>, {}},
    {"CStaticText", kPane, Make<CPaneBuilder<CStaticText>>, {}},
    {"CSwitchPane", kPane, kToCome, {64, 64}},
    {"CSwitchPopup", kPane, kToCome, {100, 24}},
    {"CSystemButton", kPane, Make<CPaneBuilder<CSystemButton>>, {}},
    {"CSystemControl", kPane, Make<CPaneBuilder<CSystemControl>>, {}},
    {"CSystemPane", kPane, kToCome, {64, 64}},
    {"CSystemProgress", kPane, kToCome, {120, 8}},
    {"CTabEnclosurePane", kPane, kToCome, {64, 64}},
    {"CTabPane", kPane, Make<CPaneBuilder<CTabPane>>, {}},
    {"CTabbedFrame", kPane, kToCome, {64, 64}},
    {"CTabbedPane", kPane, Make<CPaneBuilder<CTabbedPane>>, {}},
    {"CToolButton", kPane, Make<CPaneBuilder<CToolButton>>, {}},
    {"CToolGrid", kPane, kToCome, {64, 64}},
    {"CVerticalSizeBar", kPane, kToCome, {15, 15}},
    {"CWellPopup", kPane, kToCome, {100, 24}},
    {"CZoomPane", kPane, kAbove, {64, 64}},
    {"CZoomPanel", kPane, kAbove, {128, 24}},
    {"CZoomProgressCombo", kPane, kToCome, {160, 24}},
    {"PEditSlider", kPane, Make<CPaneBuilder<Project::PEditSlider>>, {}},
    {"PPreviewPane", kPane, kAbove, {72, 72}},
    {"PPreviewScroller", kPane, kAbove, {200, 200}},
    {"PStaticView", kPane, Make<CPaneBuilder<Project::PStaticView>>, {}},
};

std::unique_ptr<CViewBuilderBase> BuilderOf(const RegisteredClass& registered)
{
    if (registered.makeBuilder == nullptr)
        return std::make_unique<CPaneBuilder<CPlaceholderPane>>(registered.name,
                                                                registered.placeholderSize);
    return registered.makeBuilder(registered.name);
}

} // namespace

bool RegisteredClass::IsToCome() const
{
    return dynamic_cast<const CPaneBuilder<CPlaceholderPane>*>(FindBuilder(name)) != nullptr;
}

std::span<const RegisteredClass> RegisteredClasses()
{
    return kClasses;
}

void RegisterViewClasses()
{
    static const std::vector<std::unique_ptr<CViewBuilderBase>> builders = [] {
        std::vector<std::unique_ptr<CViewBuilderBase>> made;
        for (const RegisteredClass& registered : kClasses)
            made.push_back(BuilderOf(registered));
        return made;
    }();
}

} // namespace Kesto
