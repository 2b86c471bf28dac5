#include "controls/scrolling/scroll_pane.h"

#include "controls/base/drawn_control.h"
#include "view/messages/key_codes.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <optional>

namespace Kesto {

namespace {

constexpr double kPageShare = 0.9; // some of what was seen is seen again
constexpr double kWholeWay = 1e9;

// What a key scrolls by.
std::optional<Point> MoveOf(std::uint32_t key, const Rect& bounds)
{
    const double page = bounds.Height() * kPageShare;
    switch (key) {
    case kKeyCode_Up:
        return Point{0.0, -CScrollPane::kLine};
    case kKeyCode_Down:
        return Point{0.0, CScrollPane::kLine};
    case kKeyCode_Left:
        return Point{-CScrollPane::kLine, 0.0};
    case kKeyCode_Right:
        return Point{CScrollPane::kLine, 0.0};
    case kKeyCode_PageUp:
        return Point{0.0, -page};
    case kKeyCode_PageDown:
        return Point{0.0, page};
    case kKeyCode_Home:
        return Point{0.0, -kWholeWay};
    case kKeyCode_End:
        return Point{0.0, kWholeWay};
    default:
        return std::nullopt;
    }
}

} // namespace

CScrollPane::CScrollPane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CPane(frame, id, options, binding | kBind_Scrollable | kBind_LimitTopLeft)
{
}

Point CScrollPane::GetScrollWay() const
{
    return {std::max(GetScrollLimits().Width() - GetBounds().Width(), 0.0),
            std::max(GetScrollLimits().Height() - GetBounds().Height(), 0.0)};
}

void CScrollPane::Tell()
{
    if (fListener != nullptr)
        fListener->ScrollPaneChanged(*this);
}

void CScrollPane::SetImageExtent(double width, double height)
{
    fHasExtent = true;
    CPane::SetImageExtent(width, height);
}

void CScrollPane::ReachOverChildren()
{
    const Rect& image = GetImage();
    Point extent{image.Width(), image.Height()};
    for (std::size_t i = 0; i < CountChildren(); ++i) {
        const Rect frame = GetChild(i)->GetFrame();
        extent = {std::max(extent.x, frame.right - image.left),
                  std::max(extent.y, frame.bottom - image.top)};
    }
    if (extent.x > image.Width() || extent.y > image.Height())
        CPane::SetImageExtent(extent.x, extent.y);
}

void CScrollPane::InsertChild(std::size_t index, std::unique_ptr<CPane> child)
{
    const CViewHold hold(*this);
    CPane::InsertChild(index, std::move(child));
    if (!fHasExtent && !hold.IsOver())
        ReachOverChildren();
}

void CScrollPane::ScrollTo(const Point& position)
{
    const double scale = GetScale();
    CPane::ScrollTo(
        {RoundHalfAway(position.x * scale) / scale, RoundHalfAway(position.y * scale) / scale});
}

void CScrollPane::DidResize()
{
    const CViewHold hold(*this);
    CPane::DidResize();
    if (!hold.IsOver())
        Tell();
}

void CScrollPane::ScrollChanged(const Rect&, const Point&, const Point&, const Point&)
{
    Tell();
}

// Where there is nothing to scroll the turn is for a view above.
bool CScrollPane::MouseWheel(const CMouseEvent& event)
{
    const bool sideways = (event.fModifiers & CMessage::kModifier_Shift) != 0;
    const Point turn =
        sideways ? Point{-event.fWheel.y, 0.0} : Point{event.fWheel.x, -event.fWheel.y};
    const Point way = GetScrollWay();
    if (!IsUsable() || !((turn.x != 0.0 && way.x > 0.0) || (turn.y != 0.0 && way.y > 0.0)))
        return false;
    const Point at = GetImageOrigin();
    ScrollTo({at.x + turn.x * kNotch, at.y + turn.y * kNotch});
    return true;
}

bool CScrollPane::HandleKey(CKeyboardMessage& message)
{
    if (IsBullseye() && IsPlainKeyDown(message))
        if (const std::optional<Point> move = MoveOf(message.fKeyCode, GetBounds())) {
            const Point at = GetImageOrigin();
            ScrollTo({at.x + move->x, at.y + move->y});
            return true;
        }
    return CPane::HandleKey(message);
}

// The focus has moved, into this pane or out of it.
void CScrollPane::OnUpdateChain()
{
    const auto* const focused = dynamic_cast<const CView*>(GetBullseye());
    for (const CView* view = focused; view != nullptr; view = view->GetParent())
        if (view == this && focused != this)
            RevealRect(PortToLocal(focused->GetFramePort()));
}

std::unique_ptr<CPane> CPaneBuilder<CScrollPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CScrollPane>(parameters.frame, parameters.id, parameters.options,
                                         parameters.binding);
}

} // namespace Kesto
