#include "controls/scrolling/scroller.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"
#include "view/window/size_box.h"

#include <algorithm>
#include <utility>

namespace Kesto {

namespace {

constexpr double kBar = CScrollBar::kWidth;

// The corner between the bars, by which the window is resized.
class CCornerBox final : public CSizeBox {
public:
    CCornerBox() : CSizeBox({}, true)
    {
        SetID(kScrollerPart_SizeBox);
        SetBinding(kBind_Fixed);
    }
    // All of the square: nothing of the window's contents is in its other half.
    CBRVRegion GetClipRegion() const override { return CPane::GetClipRegion(); }
    void DrawInContext(const CPaintEvent&) override
    {
        GetPort()->Paint(GetBounds(), ToolColour(kColour_Track));
        GetPort()->DrawIcon(CDrawTools::Get().GetPicture(kTool_SizeBox), GetBounds());
    }
};

// What is put into it fills it.
class CGapPane final : public CPane {
public:
    CGapPane() : CPane({}, {}, kView_Target) {}
    void InsertChild(std::size_t index, std::unique_ptr<CPane> child) override
    {
        CPane* const pane = child.get();
        CPane::InsertChild(index, std::move(child));
        pane->SetFrame(GetImage());
    }
    void DidResize() override
    {
        for (std::size_t i = 0; i < CountChildren(); ++i)
            GetChild(i)->SetFrame(GetImage());
    }
};

Rect WellEdges(std::uint32_t attributes)
{
    return FrameEdges((attributes & kScroller_WellFrame) != 0 ? kFrameScrollerWell : kFrameEmpty);
}

} // namespace

CScroller::CScroller(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CPane(frame, id, options | kView_Target, binding)
{
}

CScroller::~CScroller()
{
    if (CScrollPane* const pane = GetScrollPane())
        pane->SetListener(nullptr);
}

Rect CScroller::EdgesOf(std::uint32_t attributes)
{
    Rect edges = WellEdges(attributes);
    if ((attributes & kScroller_AutoHideScrollBars) != 0)
        return edges;
    edges.right += (attributes & kScroller_YBar) != 0 ? kBar : 0.0;
    edges.bottom += (attributes & kScroller_XBar) != 0 ? kBar : 0.0;
    return edges;
}

// ---------------------------------------------------------------------------------------- Parts

CScrollBar* CScroller::MakeBar(CObjID id, EControlOrientation orientation)
{
    auto bar = std::make_unique<CScrollBar>(Rect{}, id);
    bar->SetOrientation(orientation);
    CScrollBar* const made = bar.get();
    CPane::InsertChild(CountChildren(), std::move(bar));
    return made;
}

void CScroller::DisposeParts()
{
    for (CScrollBar*& bar : fBars)
        if (CPane* const gone = std::exchange(bar, nullptr))
            gone->Dispose();
    if (CPane* const box = std::exchange(fSizeBox, nullptr))
        box->Dispose();
}

void CScroller::SetAttributes(std::uint32_t attributes, const SScrollerGaps& gaps)
{
    // The hooks of parts that go may end the scroller.
    const CViewHold hold(*this);
    DisposeParts();
    fAttributes = attributes;
    fGaps = gaps;
    SetFrameBorder(
        Has(kScroller_WellFrame) ? std::make_unique<CBorder>(kFrameScrollerWell) : nullptr, true);
    if (Has(kScroller_XBar))
        fBars[0] = MakeBar(kScrollerPart_HorizontalBar, kControlOrient_Horizontal);
    if (Has(kScroller_YBar))
        fBars[1] = MakeBar(kScrollerPart_VerticalBar, kControlOrient_Vertical);
    if (Has(kScroller_SizeBox)) {
        auto box = std::make_unique<CCornerBox>();
        fSizeBox = box.get();
        CPane::InsertChild(CountChildren(), std::move(box));
    }
    if (!hold.IsOver())
        Arrange();
}

bool CScroller::IsPart(const CPane& child) const
{
    return &child == fBars[0] || &child == fBars[1] || &child == fSizeBox ||
           std::ranges::find(fGapPanes, &child) != fGapPanes.end();
}

CScrollPane* CScroller::GetScrollPane() const
{
    for (std::size_t i = 0; i < CountChildren(); ++i)
        if (auto* const pane = dynamic_cast<CScrollPane*>(GetChild(i)))
            return pane;
    return nullptr;
}

// Of the four gaps; anything else is the scroller.
CView& CScroller::Interior(std::int32_t number)
{
    const std::int32_t gap = number - kInterior_ScrollerGapLeft;
    if (gap < 0 || gap >= static_cast<std::int32_t>(fGapPanes.size()))
        return *this;
    CPane*& pane = fGapPanes[static_cast<std::size_t>(gap)];
    if (pane == nullptr) {
        auto made = std::make_unique<CGapPane>();
        pane = made.get();
        CPane::InsertChild(CountChildren(), std::move(made));
        Arrange();
    }
    return *pane;
}

void CScroller::InsertChild(std::size_t index, std::unique_ptr<CPane> child)
{
    const CViewHold hold(*this);
    CPane::InsertChild(index, std::move(child));
    if (hold.IsOver())
        return;
    if (CScrollPane* const pane = GetScrollPane())
        pane->SetListener(this);
    Arrange();
}

// A pane that is handed over may outlive this scroller.
std::unique_ptr<CPane> CScroller::RemoveChild(CPane* child)
{
    std::unique_ptr<CPane> removed = CPane::RemoveChild(child);
    if (auto* const pane = dynamic_cast<CScrollPane*>(removed.get()))
        pane->SetListener(nullptr);
    return removed;
}

// -------------------------------------------------------------------------------------- Placing

void CScroller::DidResize()
{
    const CViewHold hold(*this);
    CPane::DidResize();
    if (!hold.IsOver())
        Arrange();
}

// A bar that isn't needed makes room, in which the other one may not be needed either.
void CScroller::Arrange()
{
    if (fArranging)
        return;
    const CViewHold hold(*this);
    fArranging = true;
    const Rect inside = GetInterior();
    CScrollPane* const pane = GetScrollPane();
    bool showX = fBars[0] != nullptr;
    bool showY = fBars[1] != nullptr;
    if (Has(kScroller_AutoHideScrollBars) && pane != nullptr) {
        const Point need{pane->GetImage().Width(), pane->GetImage().Height()};
        const bool tooWide = need.x > inside.Width();
        const bool tooHigh = need.y > inside.Height();
        showX = showX && (tooWide || (showY && tooHigh && need.x > inside.Width() - kBar));
        showY = showY && (tooHigh || (showX && need.y > inside.Height() - kBar));
    }
    PlaceParts(inside, showX, showY);
    for (std::size_t i = 0; !hold.IsOver() && i < CountChildren(); ++i)
        if (CPane* const child = GetChild(i); !IsPart(*child))
            child->SetFrame({inside.left, inside.top,
                             std::max(inside.right - (showY ? kBar : 0.0), inside.left),
                             std::max(inside.bottom - (showX ? kBar : 0.0), inside.top)});
    if (hold.IsOver())
        return;
    fArranging = false;
    if (pane != nullptr)
        ShowValues(*pane);
}

void CScroller::PlaceParts(const Rect& inside, bool showX, bool showY)
{
    const bool corner = fSizeBox != nullptr || (showX && showY);
    // Where both bars show they leave the corner free, as they do for a size box.
    const double end = corner ? kBar : 0.0;
    const Rect xBar{inside.left + fGaps.left, inside.bottom - kBar,
                    inside.right - end - fGaps.right, inside.bottom};
    const Rect yBar{inside.right - kBar, inside.top + fGaps.top, inside.right,
                    inside.bottom - end - fGaps.bottom};
    if (fBars[0] != nullptr) {
        fBars[0]->SetShown(showX);
        fBars[0]->SetFrame(xBar);
    }
    if (fBars[1] != nullptr) {
        fBars[1]->SetShown(showY);
        fBars[1]->SetFrame(yBar);
    }
    if (fSizeBox != nullptr)
        fSizeBox->SetFrame(
            {inside.right - kBar, inside.bottom - kBar, inside.right, inside.bottom});
    PlaceGaps(xBar, yBar);
}

void CScroller::PlaceGaps(const Rect& xBar, const Rect& yBar)
{
    const Rect places[] = {{xBar.left - fGaps.left, xBar.top, xBar.left, xBar.bottom},
                           {yBar.left, yBar.top - fGaps.top, yBar.right, yBar.top},
                           {xBar.right, xBar.top, xBar.right + fGaps.right, xBar.bottom},
                           {yBar.left, yBar.bottom, yBar.right, yBar.bottom + fGaps.bottom}};
    for (std::size_t i = 0; i < fGapPanes.size(); ++i)
        if (fGapPanes[i] != nullptr)
            fGapPanes[i]->SetFrame(places[i]);
}

// ------------------------------------------------------------------------------------ Scrolling

void CScroller::ScrollPaneChanged(CScrollPane& pane)
{
    if (fArranging)
        return;
    if (Has(kScroller_AutoHideScrollBars))
        Arrange();
    else
        ShowValues(pane);
}

void CScroller::ShowValues(CScrollPane& pane)
{
    const Point way = pane.GetScrollWay();
    const Point at = pane.GetImageOrigin();
    const Rect& bounds = pane.GetBounds();
    if (fBars[0] != nullptr) {
        fBars[0]->SetRange(0.0, way.x, bounds.Width());
        fBars[0]->SetValue(at.x);
    }
    if (fBars[1] != nullptr) {
        fBars[1]->SetRange(0.0, way.y, bounds.Height());
        fBars[1]->SetValue(at.y);
    }
}

// A bar's wish. What the pane makes of it is what the bar shows.
bool CScroller::HandleOther(CMessage& message)
{
    const auto* const scroll = dynamic_cast<CScrollMessage*>(&message);
    CScrollPane* const pane = GetScrollPane();
    const bool isX = fBars[0] != nullptr && message.fSource == fBars[0];
    const bool isY = fBars[1] != nullptr && message.fSource == fBars[1];
    if (scroll == nullptr || pane == nullptr || !(isX || isY))
        return CPane::HandleOther(message);
    const CViewHold hold(*this);
    Point to = pane->GetImageOrigin();
    (isX ? to.x : to.y) += scroll->fDelta;
    pane->ScrollTo(to);
    if (!hold.IsOver())
        ShowValues(*pane);
    return true;
}

// Over gaps and corner; bars and pane take theirs themselves.
bool CScroller::MouseWheel(const CMouseEvent& event)
{
    CScrollPane* const pane = GetScrollPane();
    return pane != nullptr && pane->MouseWheel(event);
}

} // namespace Kesto
