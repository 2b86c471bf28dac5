#include "dialogs/preview/zoom_panel.h"

#include "controls/base/natural_size.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/preview/preview_scale.h"
#include "dialogs/settings/task.h"
#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"
#include "layout/build/layout_owner.h"
#include "view/messages/message.h"
#include "view/tree/context.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace Kesto {

using namespace Project;

namespace {

// A zoom, from one scale to another. It looks for the preview each time, which may have been
// destroyed.
class CZoomTask final : public PTask {
public:
    CZoomTask(CZoomPanel& panel, double from, double to) : fPanel(panel), fFrom(from), fTo(to) {}

    static PPreview* FindPreview(const CZoomPanel& panel)
    {
        const CView* const root = panel.GetContext();
        return root != nullptr ? dynamic_cast<PPreview*>(root->FindChild(kDialog_PreviewPane, true))
                               : nullptr;
    }

    void DoUndo() override { Show(fFrom); }
    void DoDo() override { Show(fTo); }

private:
    void Show(double scale) const
    {
        if (PPreview* const preview = FindPreview(fPanel))
            preview->SetScale(scale);
    }

    CZoomPanel& fPanel; // the dialog's, as the stack is
    double fFrom;
    double fTo;
};

constexpr double kGap = 4.0; // between the parts

CText PercentOf(double scale)
{
    CText percent("$$$/Kesto/ZoomPanel/ZoomStr=^0%");
    Localize(percent);
    ReplaceArgument(percent, 0, std::to_string(RoundHalfAway(scale * 100.0)));
    return percent;
}

CButton* AddButton(CZoomPanel& panel, CObjID id, const char* label)
{
    auto button = std::make_unique<CButton>(Rect{}, id);
    button->SetLabel(label);
    return panel.AppendChild(std::move(button));
}

} // namespace

// Shows the preview's scale, also when that is none of its items.
class CZoomPanel::CZoomMenu final : public CMenuPopup {
public:
    CZoomMenu() : CMessenger(nullptr, kDialog_ZoomMenu), CMenuPopup({}, kDialog_ZoomMenu)
    {
        std::vector<SPopupItem> items;
        for (const double scale : kZoomScales)
            items.push_back({.label = PercentOf(scale)});
        SetItems(std::move(items));
    }

    void ShowScale(double scale)
    {
        const auto* const found = std::ranges::find(kZoomScales, scale);
        fShown = PercentOf(scale);
        SetChosen(found != kZoomScales.end()
                      ? static_cast<unsigned>(std::distance(kZoomScales.begin(), found))
                      : kNoItem);
    }
    CText GetShownText() const override { return fShown; }

private:
    CText fShown;
};

CZoomPanel::CZoomPanel(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CMessenger(nullptr, id), CPane(frame, id, options, binding),
      fOut(AddButton(*this, kCommand_ZoomOut, "\u2212")),
      fMenu(AppendChild(std::make_unique<CZoomMenu>())), fIn(AddButton(*this, kCommand_ZoomIn, "+"))
{
    ShowScale(1.0);
    Arrange();
}

void CZoomPanel::ShowScale(double scale)
{
    fMenu->ShowScale(scale);
    fOut->SetEnabled(scale > kLeastPreviewScale);
    fIn->SetEnabled(scale < kMostPreviewScale);
}

void CZoomPanel::DidResize()
{
    CPane::DidResize();
    Arrange();
}

// Square buttons at the ends.
void CZoomPanel::Arrange()
{
    const Rect& all = GetBounds();
    const double side = all.Height();
    fOut->SetFrame({all.left, all.top, all.left + side, all.bottom});
    fMenu->SetFrame({all.left + side + kGap, all.top, all.right - side - kGap, all.bottom});
    fIn->SetFrame({all.right - side, all.top, all.right, all.bottom});
}

bool CZoomPanel::HandleCommand(CCommandMessage& message)
{
    if (message.fID != kCommand_ZoomIn && message.fID != kCommand_ZoomOut)
        return CPane::HandleCommand(message);
    if (const PPreview* const preview = CZoomTask::FindPreview(*this))
        ZoomTo(message.fID == kCommand_ZoomIn ? NextScale(preview->GetScale())
                                              : PreviousScale(preview->GetScale()));
    return true;
}

bool CZoomPanel::HandleValue(CValueMessage& message)
{
    const auto* const item = dynamic_cast<const CValMsg<unsigned>*>(&message);
    if (message.fSource != fMenu || item == nullptr || item->fValue >= kZoomScales.size())
        return CPane::HandleValue(message);
    ZoomTo(kZoomScales[item->fValue]);
    return true;
}

void CZoomPanel::ZoomTo(double scale)
{
    const PPreview* const preview = CZoomTask::FindPreview(*this);
    if (preview == nullptr)
        return;
    auto task = std::make_unique<CZoomTask>(*this, preview->GetScale(), scale);
    if (fTaskStack != nullptr)
        fTaskStack->Do(std::move(task));
    else
        task->Redo();
}

CView* CPaneBuilder<CZoomPanel>::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    SetNaturalSize(owner.fLayoutRecord, CZoomPanel::kNaturalSize);
    return CPaneBuilder<CPane>::AdjustLayout(parent, owner);
}

std::unique_ptr<CPane> CPaneBuilder<CZoomPanel>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CZoomPanel>(parameters.frame, parameters.id, parameters.options,
                                        parameters.binding);
}

} // namespace Kesto
