#include "controls/our_dialog.h"

#include "layout/build/layout_owner.h"
#include "view/process/process.h"
#include "view/window/window_kinds.h"

#include <fstream>
#include <iterator>

using namespace Kesto;

namespace Bench {
namespace {

struct CallEvent : CProcessEvent {
    // An event of a priority below 0 waits until all is painted.
    explicit CallEvent(std::function<void()> run) : CProcessEvent(-1), call(std::move(run)) {}
    void Dispatch() override { call(); }

    std::function<void()> call;
};

} // namespace

std::string FrameDialogText()
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::unique_ptr<CWindow> BuildDialog(const std::string& text)
{
    LayoutOwner owner;
    LoadLayoutFromText(owner, text.c_str());
    return owner.TakeWindow();
}

void CallWhenPainted(CProcess& process, std::function<void()> call)
{
    process.PostEvent(std::make_unique<CallEvent>(std::move(call)));
}

void RunDialog(CProcess& process, const std::string& text)
{
    const std::unique_ptr<CWindow> window = BuildDialog(text);
    window->SetModal(true);
    CallWhenPainted(process, [&window] { window->EndRun(1); });
    window->Run();
}

} // namespace Bench
