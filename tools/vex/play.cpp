#include "vex/play.h"

#include "drawing/tools/draw_tools.h"
#include "foundation/alerts/reporter.h"
#include "platform/input/injection.h"
#include "platform/system/machine.h"
#include "platform/windows/window_place.h"
#include "plugin/view_info/message_log.h"
#include "robot/message_file.h"
#include "vex/describe.h"
#include "vex/show.h"
#include "view/process/process.h"
#include "view/process/ui_scale.h"

#include <optional>
#include <utility>

namespace Vex {
namespace {

// Without a display nobody waits, and nobody's mouse is anywhere.
void LeaveTheWorld()
{
    if (Platform::HasDisplay())
        return;
    Platform::HoldClock();
    Platform::InjectMove({-10000, -10000});
}

class CMessageLogging {
public:
    explicit CMessageLogging(const std::string& path)
    {
        if (path.empty())
            return;
        fFile.emplace(path);
        Kesto::StartMessageLog(&fFile->Log());
    }
    ~CMessageLogging() { Kesto::StartMessageLog(nullptr); }
    CMessageLogging(const CMessageLogging&) = delete;
    CMessageLogging& operator=(const CMessageLogging&) = delete;

private:
    std::optional<Host::MessageFile> fFile;
};

class CPlayProcess : public Kesto::CProcess {
public:
    explicit CPlayProcess(const PlayOptions& options) : fOptions(options) {}

    bool HandleCommand(Kesto::CCommandMessage& command) override
    {
        return fOptions.commands ? fOptions.commands(command) : CProcess::HandleCommand(command);
    }

private:
    const PlayOptions& fOptions;
};

} // namespace

Host::PlayOutcome Play(const CSourceText& source, Host::Script script, const PlayOptions& options)
{
    LeaveTheWorld();
    Kesto::CDrawTools::Get().SetTheme(options.theme);
    Kesto::SetUiScale(options.build.scale / Platform::ScaleOf(nullptr));
    CPlayProcess process(options);
    const CMessageLogging logging(options.messages);
    const CBuiltLayout layout(source, options.build);
    Host::OwnWindows stage(ClassNamesOf(layout), kProductName);
    Host::Player player(std::move(script), stage);
    Kesto::CWindow& window = layout.Root();
    window.Start();
    const auto takeTurn = [&](HostInputEvent& event) {
        const bool isEvent = player.TakeTurn(event);
        if (isEvent && event.message == kHostRequestDismiss && !options.outlined.empty() &&
            player.Outcome().status == Host::PlayOutcome::kPlayed)
            WriteOutlinedPhotograph(layout, options.outlined);
        return isEvent;
    };
    const Kesto::CHostTurns turns(takeTurn, options.hands);
    // As the window's own run would do it, but on until the script ends.
    while (!player.IsOver()) {
        bool force = false;
        Kesto::Reported([&process] { process.GetNextEvent(0); });
        window.Poll(force);
    }
    return player.Outcome();
}

} // namespace Vex
