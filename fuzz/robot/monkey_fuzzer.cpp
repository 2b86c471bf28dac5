// A monkey at the windows of layouts: the frame dialog, or one view of each class there is. Each
// byte or two are an event, by way of the queue: the mouse, keys, the focus, sizes, scales,
// closing, time, views that are hidden and disabled, modal windows within each other. When the
// bytes are used up what is open is dismissed, and everything must be gone.
#include "controls/registered_classes.h"
#include "foundation/alerts/alert.h"
#include "foundation/alerts/reporter.h"
#include "lumograph/window_requests.h"
#include "platform/system/machine.h"
#include "platform/windows/focus.h"
#include "plugin/view_info/host_turns.h"
#include "plugin/view_info/window_requests.h"
#include "vex/built_layout.h"
#include "view/messages/process_event.h"
#include "view/process/process.h"
#include "view/tree/pane.h"

#include <cstdlib>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using namespace Kesto;

constexpr int kMostModal = 3;
constexpr std::size_t kMostBytes = 512;

// Every class of pane in a column; those that are no panes are windows, which can't be within one.
Vex::CSourceText EveryClass()
{
    std::string text = "CDialog(placement: place_column, margin: 4, spacing: 2, window_features: "
                       "1023, view_id: 'Monkey/Window') {\n";
    for (const RegisteredClass& registered : RegisteredClasses())
        if (registered.kind == VexClassKind::kPane)
            text.append(registered.name).append("(width: 60, height: 16, view_tabstop: true);\n");
    return {"every class", text + '}'};
}

const Vex::CSourceText& FrameDialog()
{
    static const auto text =
        Vex::CSourceText::Load(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex");
    return text;
}

const Vex::CSourceText& LayoutOf(unsigned char byte)
{
    static const Vex::CSourceText every = EveryClass();
    return byte % 2 == 0 ? FrameDialog() : every;
}

class Call : public CProcessEvent {
public:
    explicit Call(std::function<void()> body) : CProcessEvent(0), fBody(std::move(body)) {}
    void Dispatch() override { fBody(); }

private:
    std::function<void()> fBody;
};

class Monkey {
public:
    explicit Monkey(std::span<const unsigned char> bytes) : fBytes(bytes) {}

    bool IsOver() const { return fIsOver; }

    bool TakeTurn(HostInputEvent& event)
    {
        event = {};
        if (!fBytes.empty())
            Act(event);
        else if (fReleased < std::size(kReleases)) // a drag would go on for ever
            event.message = kReleases[fReleased++];
        else if (FindWindowOf(nullptr) != nullptr)
            event.message = kHostRequestDismiss;
        else
            fIsOver = true;
        return !fIsOver;
    }

private:
    unsigned char Byte()
    {
        if (fBytes.empty())
            return 0;
        const unsigned char byte = fBytes.front();
        fBytes = fBytes.subspan(1);
        return byte;
    }

    // Posted, so that what pumps doesn't do so within the turn.
    void Do(std::function<void()> body)
    {
        CProcess::Current()->PostEvent(std::make_unique<Call>(std::move(body)));
    }

    template <class Record>
    static void Ask(HostInputEvent& event, std::uint32_t request, const Record& record)
    {
        event.message = request;
        event.second = static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&record));
    }

    // A little beyond the edges of the frontmost window, too.
    void PutPoint(HostInputEvent& event)
    {
        const CWindow* const front = FindWindowOf(nullptr);
        const PixelRect content = front != nullptr ? front->GetWindowBounds() : PixelRect{};
        const auto place = [this](std::int32_t length) {
            return static_cast<std::uint16_t>((Byte() - 8) * length / 240);
        };
        const std::uint32_t x = place(content.right - content.left);
        const std::uint32_t y = place(content.bottom - content.top);
        event.second = static_cast<std::int64_t>(x | y << 16);
    }

    void PutMouse(HostInputEvent& event, unsigned char kind)
    {
        constexpr std::uint32_t kMessages[] = {0x200, 0x201, 0x202, 0x201, 0x202,
                                               0x204, 0x205, 0x20A, 0x20E};
        event.message = kMessages[kind % std::size(kMessages)];
        event.first = static_cast<std::uint64_t>(kind) << 18;
        PutPoint(event);
    }

    void PutKey(HostInputEvent& event, unsigned char kind)
    {
        constexpr unsigned char kKeys[] = {0x09, 0x0D, 0x1B, 0x25, 0x26, 0x27, 0x28, 0x24, 0x23,
                                           0x21, 0x22, 0x2E, 0x08, 0x20, 0x10, 0x11, 0x12, 0x73,
                                           'A',  'C',  'V',  'X',  'Z',  'Y',  '0',  '9',  0xBD};
        const unsigned char key = Byte();
        event.message = kind % 4 == 0 ? 0x101 : 0x100;
        event.first = key < 128 ? kKeys[key % std::size(kKeys)] : key;
    }

    void PutText(HostInputEvent& event, unsigned char kind)
    {
        static constexpr const char* kTexts[] = {
            "1",  "-",   "99999999999", "0x1F", "(2+3)*4",         "\t",
            " a", "1.5", "e\xCC\x81",   "\n",   "\xF0\x9F\x98\x80"};
        const std::uint32_t request = kind % 8 == 0 ? kHostRequestPaste : kHostRequestType;
        Ask(event, request, *kTexts[Byte() % std::size(kTexts)]);
    }

    void PutRequest(HostInputEvent& event, unsigned char kind)
    {
        constexpr double kScales[] = {0.5, 1.0, 1.25, 2.0, 3.0};
        switch (kind % 5) {
        case 0:
            fUnits = {Byte() * 3.0, Byte() * 3.0};
            Ask(event, kHostRequestSize, fUnits);
            break;
        case 1:
            fUnits = {kScales[Byte() % std::size(kScales)], 0.0};
            Ask(event, kHostRequestScale, fUnits);
            break;
        case 2:
            event.message = kHostRequestTheme;
            event.first = Byte() % 4;
            break;
        case 3:
            event.message = 0x10; // the wish to close
            break;
        default:
            event.message = kHostRequestWait;
            event.first = Byte() * 8U;
            break;
        }
    }

    void DoToWindow(unsigned char kind)
    {
        const unsigned char which = Byte();
        Do([this, kind, which] {
            switch (kind % 6) {
            case 0:
                Platform::FocusWindow(nullptr);
                break;
            case 1:
                if (CWindow* const front = FindWindowOf(nullptr))
                    Platform::ActivateWindow(Platform::OwnerOf(front->NativeHandle()));
                break;
            case 2:
                RunModal(which);
                break;
            case 3:
                RunAlert(which);
                break;
            default:
                ChangeView(kind, which);
                break;
            }
        });
    }

    void RunModal(unsigned char which)
    {
        if (fModal == kMostModal)
            return;
        ++fModal;
        const Vex::CBuiltLayout layout(LayoutOf(which), {std::nullopt, 1.0, true});
        layout.Root().SetModal(true);
        layout.Root().Run();
        --fModal;
    }

    void RunAlert(unsigned char which)
    {
        if (fModal == kMostModal)
            return;
        ++fModal;
        ShowAlert(AlertButtons{which % 9}, AlertIcon{which % 5}, {}, "A question", "Why?", "Title");
        --fModal;
    }

    static void ChangeView(unsigned char kind, unsigned char which)
    {
        CView* view = FindWindowOf(nullptr);
        for (unsigned char left = which; view != nullptr && view->CountChildren() > 0; left /= 2) {
            view = view->GetChild(left % view->CountChildren());
            if (left == 0)
                break;
        }
        if (view == nullptr)
            return;
        if (kind % 2 == 0)
            view->IsVisible() ? view->Hide() : view->Show();
        else
            view->IsUsable() ? view->Disable() : view->Enable();
    }

    void Act(HostInputEvent& event)
    {
        event.message = kHostRequestWait; // what is posted takes a turn too
        const unsigned char byte = Byte();
        const auto kind = static_cast<unsigned char>(byte / 8);
        switch (byte % 8) {
        case 0:
        case 1:
        case 2:
            PutMouse(event, kind);
            break;
        case 3:
        case 4:
            PutKey(event, kind);
            break;
        case 5:
            PutText(event, kind);
            break;
        case 6:
            PutRequest(event, kind);
            break;
        default:
            DoToWindow(kind);
            break;
        }
    }

    static constexpr std::uint32_t kReleases[] = {0x202, 0x205}; // of both buttons

    std::span<const unsigned char> fBytes;
    std::size_t fReleased = 0;
    HostUnits fUnits{};
    int fModal = 0;
    bool fIsOver = false;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    unsetenv("DISPLAY");
    Platform::HoldClock();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size == 0 || size > kMostBytes)
        return 0;
    CProcess process;
    const Vex::CBuiltLayout layout(LayoutOf(data[0]), {std::nullopt, 1.0, true});
    Monkey monkey({data + 1, size - 1});
    CWindow& window = layout.Root();
    window.Start();
    {
        const CHostTurns turns([&](HostInputEvent& event) { return monkey.TakeTurn(event); });
        while (!monkey.IsOver()) {
            bool force = false;
            Reported([&process] { process.GetNextEvent(0); });
            window.Poll(force);
        }
    }
    window.Stop();
    if (Platform::ThreadWindows().size() != 0)
        std::abort();
    return 0;
}
