// The classes that a layout may name, one row each.
#include "layout/vocabulary/keywords.h"

namespace Kesto {

namespace {

constexpr VexViewClass kViewClasses[] = {
    {"CWindow", VexClassKind::kWindow},
    {"CDialog", VexClassKind::kWindow},
    {"CAlert", VexClassKind::kWindow},
    {"CDocumentWindow", VexClassKind::kWindow},
    {"CFloater", VexClassKind::kWindow},
    {"CMDIFrame", VexClassKind::kWindow},
    {"CPopup", VexClassKind::kWindow},
    {"CToolbar", VexClassKind::kWindow},
    {"PDialog", VexClassKind::kWindow},
    {"COrlenSlider", VexClassKind::kPane},
    {"CAngleSlider", VexClassKind::kPane},
    {"CButton", VexClassKind::kPane},
    {"CCasePane", VexClassKind::kPane},
    {"CCellSheet", VexClassKind::kPane},
    {"CCheckButton", VexClassKind::kPane},
    {"CComboBox", VexClassKind::kPane},
    {"CCustomButton", VexClassKind::kPane},
    {"CCustomScrollbar", VexClassKind::kPane},
    {"CCustomSlider", VexClassKind::kPane},
    {"CEditNumber", VexClassKind::kPane},
    {"CEditPopupSlider", VexClassKind::kPane},
    {"CEditSlider", VexClassKind::kPane},
    {"CEditString", VexClassKind::kPane},
    {"CFlyoutPopup", VexClassKind::kPane},
    {"CFrameInsert", VexClassKind::kPane},
    {"CFramePane", VexClassKind::kPane},
    {"CGridPane", VexClassKind::kPane},
    {"CGroupPane", VexClassKind::kPane},
    {"CHorizontalSizeBar", VexClassKind::kPane},
    {"CIconButton", VexClassKind::kPane},
    {"CIconButtonDropDown", VexClassKind::kPane},
    {"CListBox", VexClassKind::kPane},
    {"CListSheet", VexClassKind::kPane},
    {"CMDIPane", VexClassKind::kPane},
    {"CMenuBarPane", VexClassKind::kPane},
    {"CMenuPopup", VexClassKind::kPane},
    {"CPane", VexClassKind::kPane},
    {"CPopupSlider", VexClassKind::kPane},
    {"CProgressBar", VexClassKind::kPane},
    {"CPushButton", VexClassKind::kPane},
    {"CRadioButton", VexClassKind::kPane},
    {"CRadioPopup", VexClassKind::kPane},
    {"CScalePane", VexClassKind::kPane},
    {"CScrollBar", VexClassKind::kPane},
    {"CScrollPane", VexClassKind::kPane},
    {"CScroller", VexClassKind::kPane},
    {"CSheet", VexClassKind::kPane},
    {"CSizeBar", VexClassKind::kPane},
    {"CSizeBox", VexClassKind::kPane},
    {"CStaticImage", VexClassKind::kPane},
    {"CStaticText", VexClassKind::kPane},
    {"CSwitchPane", VexClassKind::kPane},
    {"CSwitchPopup", VexClassKind::kPane},
    {"CSystemButton", VexClassKind::kPane},
    {"CSystemControl", VexClassKind::kPane},
    {"CSystemPane", VexClassKind::kPane},
    {"CSystemProgress", VexClassKind::kPane},
    {"CTabEnclosurePane", VexClassKind::kPane},
    {"CTabPane", VexClassKind::kPane},
    {"CTabbedFrame", VexClassKind::kPane},
    {"CTabbedPane", VexClassKind::kPane},
    {"CToolButton", VexClassKind::kPane},
    {"CToolGrid", VexClassKind::kPane},
    {"CVerticalSizeBar", VexClassKind::kPane},
    {"CWellPopup", VexClassKind::kPane},
    {"CZoomPane", VexClassKind::kPane},
    {"CZoomPanel", VexClassKind::kPane},
    {"CZoomProgressCombo", VexClassKind::kPane},
    {"PEditSlider", VexClassKind::kPane},
    {"PPreviewPane", VexClassKind::kPane},
    {"PPreviewScroller", VexClassKind::kPane},
    {"PStaticView", VexClassKind::kPane},
};

} // namespace

std::span<const VexViewClass> ViewClasses()
{
    return kViewClasses;
}

} // namespace Kesto
