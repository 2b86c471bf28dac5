// Windows under a user's hands, off screen: the frame dialog from its text to its first frame and
// back, against Qt's dialog in the same run; what answers a click, a key and a change of size, in
// time and in pixels presented; and what a dialog at rest takes of the processor. Above 1 a ratio
// says that we are faster.
#include "controls/buttons/system_button.h"
#include "controls/fields/edit_string.h"
#include "controls/our_dialog.h"
#include "controls/qt_dialog.h"
#include "controls/registered_classes.h"
#include "dialogs/plugin_dialog/dialog_builder.h"
#include "platform/input/injection.h"
#include "processes.h"
#include "rounds.h"
#include "view/process/process.h"
#include "view/window/window_kinds.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace Kesto;

namespace {

constexpr double kFrame = 1.0 / 60.0; // seconds

struct EndEvent : CProcessEvent {
    explicit EndEvent(CWindow& ended) : CProcessEvent(1), window(ended) {}
    void Dispatch() override { window.EndRun(1); }

    CWindow& window;
};

void PumpQuiet(CProcess& process)
{
    while (process.GetNextEvent(CProcess::kEvent_Poll)) {
    }
}

// ------------------------------------------------------------------------------------ The dialog

void Print(const char* what, double ours, double peer)
{
    std::printf("%-44s %9.1f us %8.2f Qt\n", what, ours * 1e6, peer / ours);
}

// As for a user's first program: nothing can be kept in such a folder.
void RunWithNothingKept(const Bench::Command& command)
{
    const char* const folder = std::getenv("XDG_CACHE_HOME");
    const std::string before = folder != nullptr ? folder : "";
    setenv("XDG_CACHE_HOME", "/dev/null/none", 1);
    Bench::RunProcess(command);
    setenv("XDG_CACHE_HOME", before.c_str(), 1); // an empty one counts as none
}

void CompareRuns()
{
    constexpr std::size_t kRounds = 101;
    constexpr std::size_t kStarts = 21;
    CProcess process;
    const std::string text = Bench::FrameDialogText();
    Bench::QtDialog peer;
    const auto runs = Bench::MedianSeconds(
        kRounds, {{[&] { Bench::RunDialog(process, text); }}, {[&] { peer.Run(); }}},
        Bench::ProcessorSeconds);
    Print("frame dialog, run to a frame and back", runs[0], runs[1]);
    const auto starts = Bench::MedianSeconds(kStarts,
                                             {{[] { Bench::RunProcess({FIRST_DIALOG}); }},
                                              {[] { RunWithNothingKept({FIRST_DIALOG}); }},
                                              {[] { Bench::RunProcess({FIRST_QT_DIALOG}); }}},
                                             Bench::SecondsOfChildren);
    Print("a program that does it once", starts[0], starts[2]);
    Print("the same, with nothing kept by earlier ones", starts[1], starts[2]);
}

// ---------------------------------------------------------------------------------------- Answers

// Counts the pixels that it presents.
class Watched : public CDocumentWindow {
public:
    explicit Watched(const Point& size) : CDocumentWindow(PlanOf(size)) {}

    void PixelsDrawn(const CDeviceRegion& pixels) override
    {
        for (const PixelRect& rect : pixels.GetRects())
            presented +=
                static_cast<std::int64_t>(rect.right - rect.left) * (rect.bottom - rect.top);
        CDocumentWindow::PixelsDrawn(pixels);
    }
    bool HandleCommand(CCommandMessage&) override { return true; }

    std::int64_t presented = 0;

private:
    static CWindowPlan PlanOf(const Point& size)
    {
        CWindowPlan plan;
        plan.kind = kWin_Document;
        plan.features = 0x183 | kWin_CanSize;
        plan.size = size;
        return plan;
    }
};

// One answer with everything painted that it changes.
void TimeAnswer(const char* what, CProcess& process, Watched& window,
                const std::function<void()>& act)
{
    constexpr std::size_t kRounds = 101;
    const auto once = [&] {
        act();
        PumpQuiet(process);
    };
    once();
    window.presented = 0;
    once();
    const std::int64_t presented = window.presented;
    const double seconds = Bench::MedianSeconds(kRounds, {{once}}, Bench::ProcessorSeconds)[0];
    std::printf("%-44s %9.1f us %8.2f%% of a frame %9lld pixels\n", what, seconds * 1e6,
                seconds / kFrame * 100.0, static_cast<long long>(presented));
}

void TimeAnswers()
{
    CProcess process;
    Watched window({200.0, 100.0});
    window.AppendChild(std::make_unique<CPushButton>(Rect{10, 10, 110, 34}, CObjID("bench/push")));
    auto* const field = window.AppendChild(std::make_unique<CEditString>(Rect{10, 40, 110, 64}));
    window.Start();
    PumpQuiet(process);
    const PixelRect content = window.GetWindowBounds();
    Platform::InjectMove({content.left + 60, content.top + 22});
    PumpQuiet(process);
    TimeAnswer("a click answered", process, window, [] {
        Platform::InjectButton(Platform::Key::kLeftButton, true);
        Platform::InjectButton(Platform::Key::kLeftButton, false);
    });
    field->BecomeBullseye(false);
    PumpQuiet(process);
    TimeAnswer("a key shown in a field", process, window, [field] {
        if (field->GetText().CharCount() > 8)
            field->SetText("");
        Platform::InjectCharacter('x');
    });
}

class Cell : public CPane {
public:
    using CPane::CPane;
    void DrawInContext(const CPaintEvent&) override
    {
        GetPort()->Paint(fBounds, Colour{0x40, 0x80, 0xC0});
    }
};

// About a thousand: rows that stretch, with cells that keep to the right.
void TimeResize()
{
    constexpr int kSide = 31;
    constexpr double kCell = 20.0;
    CProcess process;
    Watched window({kSide * kCell, kSide * kCell});
    for (int y = 0; y < kSide; ++y) {
        CPane* const row = window.AppendChild(std::make_unique<CPane>(
            Rect{0, y * kCell, kSide * kCell, (y + 1) * kCell}, CObjID{}, 0U, kBind_XSizeable));
        for (int x = 0; x < kSide; ++x)
            row->AppendChild(std::make_unique<Cell>(Rect{x * kCell + 1, 1, (x + 1) * kCell, kCell},
                                                    CObjID{}, 0U, kBind_Right));
    }
    window.Start();
    PumpQuiet(process);
    bool isWide = false;
    TimeAnswer("a window of 1,000 views resized", process, window, [&] {
        isWide = !isWide;
        window.SizeWindow({kSide * kCell + (isWide ? 10.0 : 0.0), kSide * kCell});
        window.UpdateNow();
    });
}

// What the dialog takes once it stands: its caret blinks.
void TimeRest(const char* what)
{
    static constexpr int kSeconds = 10;
    CProcess process;
    const std::unique_ptr<CWindow> window = Bench::BuildDialog(Bench::FrameDialogText());
    std::thread ends;
    double start = 0.0;
    Bench::CallWhenPainted(process, [&] {
        start = Bench::ProcessorSeconds();
        ends = std::thread([&window] {
            std::this_thread::sleep_for(std::chrono::seconds(kSeconds));
            CProcessLink::Post(std::make_unique<EndEvent>(*window));
        });
    });
    window->Run();
    const double used = Bench::ProcessorSeconds() - start;
    ends.join();
    std::printf("%-44s %9.1f us in %d s\n", what, used * 1e6, kSeconds);
}

} // namespace

int main()
{
    unsetenv("DISPLAY");                  // both draw into memory
    setenv("XDG_RUNTIME_DIR", "/tmp", 0); // or Qt complains each time
    RegisterViewClasses();
    CompareRuns();
    TimeAnswers();
    TimeResize();
    TimeRest("the frame dialog at rest");
    Project::RegisterDialogClasses(); // those of plug-ins look at the modifier keys 15 times a
                                      // second
    TimeRest("the same, with the idler of plug-ins");
}
