#include "platform/windows/linux/window.h"

#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/linux/display_message.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

namespace Platform {
namespace {

using namespace Number;

std::unordered_set<NativeWindow>& Living()
{
    static std::unordered_set<NativeWindow> windows;
    return windows;
}

bool IsOfMouse(std::uint32_t number)
{
    return number >= kMouseFirst && number <= kMouseLast;
}

bool IsInput(std::uint32_t number)
{
    return IsOfMouse(number) || (number >= kKeyFirst && number <= kKeyLast);
}

} // namespace

LinuxWindow::LinuxWindow()
{
    Living().insert(Handle());
}

// Its children are controls that may outlive it.
LinuxWindow::~LinuxWindow()
{
    Living().erase(Handle());
    for (LinuxWindow* const child : fChildren)
        child->fParent = nullptr;
    if (fParent != nullptr)
        std::erase(fParent->fChildren, this);
}

LinuxWindow* LinuxWindow::From(NativeWindow handle)
{
    return Living().contains(handle) ? static_cast<LinuxWindow*>(handle) : nullptr;
}

bool LinuxWindow::Covers(PixelPoint point) const
{
    return IsVisible() && (IsTop() || fParent->Covers(point)) && Contains(ScreenRect(), point);
}

PixelRect LinuxWindow::ScreenRect() const
{
    if (fParent == nullptr)
        return fContent;
    const PixelRect parent = fParent->ScreenRect();
    return Offset(fContent, parent.left, parent.top);
}

std::intptr_t LinuxWindow::Send(std::uint32_t number, std::uintptr_t first, std::intptr_t second)
{
    if (fIsSilent)
        return 0;
    return WithExceptionsStopped([&] { return Answer({Handle(), number, first, second}); });
}

std::intptr_t LinuxWindow::Receive(std::uint32_t number, std::uintptr_t first, std::intptr_t second)
{
    const NativeWindow handle = Handle();
    if (IsOfDisplay(number)) {
        Follow(number, first);
        return 0;
    }
    if (IsInput(number) && !IsUsable()) {
        LinuxWindow* const modal = IsPress(number) ? ModalChildOf(Top()) : nullptr;
        if (modal != nullptr)
            MakeActive(modal, true);
        return 0;
    }
    if (IsOfMouse(number) && (!PreparesMouse(number) || From(handle) == nullptr))
        return 0;
    return Send(number, first, second);
}

// The display has moved it, has given it the keyboard or taken that away, has changed its extent,
// or asks it to close, which only one does that can. A disabled window hands the keyboard to its
// modal child.
void LinuxWindow::Follow(std::uint32_t number, std::uintptr_t first)
{
    if (number == kDisplayMoved) {
        const bool moved = fServerContent != fContent;
        SetContent(fServerContent);
        if (moved)
            Send(kWindowPosChanged);
    } else if (number == kDisplayExtent) {
        const auto extent = static_cast<Extent>(first);
        if (fExtent == Extent::kNormal && extent != Extent::kNormal)
            fNormal = fTold;
        const Extent before = std::exchange(fExtent, extent);
        if (extent == Extent::kMinimized && before != extent)
            Send(kSize, kSizedMinimized);
    } else if (number == kDisplayClose && fEnabled) {
        if ((fFeatures & WindowFeature::kCanClose) != 0)
            Send(kClose);
    } else if (number == kDisplayFocus && first == 0) {
        if (!Display::Get().IsForeground())
            MakeActive(nullptr, false);
    } else if (fEnabled)
        MakeActive(this, false);
    else if (LinuxWindow* const modal = ModalChildOf(*this))
        MakeActive(modal, false);
}

// A press asks whether to activate first, and the cursor is set by what lies under it. False: the
// press was for the activation alone.
bool LinuxWindow::PreparesMouse(std::uint32_t number)
{
    const NativeWindow handle = Handle();
    const std::intptr_t where = PackPoint(kHitsContent, static_cast<std::int32_t>(number));
    if (IsPress(number) && ActiveLinuxWindow() != &Top()) {
        const auto top = reinterpret_cast<std::uintptr_t>(Top().Handle());
        const std::intptr_t answer = Top().Send(kMouseActivate, top, where);
        if (From(handle) == nullptr)
            return false;
        if (answer == kMouseActivates || answer == kMouseActivatesAndEats)
            MakeActive(&Top(), true);
        if (answer == kMouseActivatesAndEats || answer == kMouseIsEaten || From(handle) == nullptr)
            return false;
    }
    if (Captor() == nullptr && number != kWheel)
        Send(kSetCursor, reinterpret_cast<std::uintptr_t>(handle), where);
    return true;
}

void LinuxWindow::Invalidate(const PixelRect& rect)
{
    AddRect(fUpdate, Intersect(rect, Local()));
    SetWantsPaint(IsVisible() && !fUpdate.empty());
}

void LinuxWindow::Validate(const PixelRect& rect)
{
    SubtractRect(fUpdate, rect);
    SetWantsPaint(IsVisible() && !fUpdate.empty());
}

void LinuxWindow::InvalidateTree()
{
    InvalidateAll();
    for (LinuxWindow* const child : fChildren)
        child->InvalidateTree();
}

void LinuxWindow::ForgetUpdates()
{
    fUpdate.clear();
    SetWantsPaint(false);
    for (LinuxWindow* const child : fChildren)
        child->ForgetUpdates();
}

// What was shown stays at the top left; what is new is to be painted.
void LinuxWindow::SetContent(const PixelRect& content)
{
    const PixelRect before = Local();
    fContent = content;
    if (Local() == before)
        return;
    ClipRects(fUpdate, Local());
    std::vector<PixelRect> uncovered{Local()};
    SubtractRect(uncovered, before);
    for (const PixelRect& rect : uncovered)
        Invalidate(rect);
}

void LinuxWindow::PlaceAt(const PixelRect& content)
{
    if (content == fContent)
        return;
    SetContent(content);
    Display::Get().Place(*this);
    Send(kWindowPosChanged);
}

// A picture of another size takes over what both have room for.
bool LinuxWindow::ReadyPicture()
{
    const PixelRect local = Local();
    if (local.IsEmpty())
        return false;
    if (fPicture.Width() == local.right && fPicture.Height() == local.bottom)
        return true;
    Bitmap picture;
    if (!picture.Make(local.right, local.bottom, 32, false))
        return false;
    const std::int32_t rows = std::min(fPicture.Height(), local.bottom);
    const auto bytes = std::size_t(std::min(fPicture.Width(), local.right)) * 4;
    for (std::int32_t y = 0; y < rows; ++y)
        std::memcpy(picture.Bits() + y * picture.RowBytes(),
                    fPicture.Bits() + y * fPicture.RowBytes(), bytes);
    fPicture = std::move(picture);
    return true;
}

TopWindow::TopWindow(const WindowPlan& plan, WindowProcedure& procedure) : fProcedure(procedure)
{
    fKind = plan.kind;
    fTakesMouse = plan.takesMouse;
    fFeatures = plan.features;
    LinuxWindow* const owner = From(plan.owner);
    if (owner != nullptr)
        fOwner = owner->Top().Handle();
    else
        fForeignOwner = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(plan.owner));
    fTitle = plan.title;
    fClassName = plan.className;
    fContent = fTold = fNormal = plan.content;
}

} // namespace Platform
