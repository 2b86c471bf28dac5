// The frame dialog when the host refuses and when memory ends, from before it is prepared until it
// is closed: the selector ends with a documented code, no window is left, and the store holds what
// it held or what the dialog left in it.
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "formats/dialog_person.h"
#include "formats/stored_settings.h"
#include "platform/windows/system_window.h"
#include "support/ei_file.h"
#include "support/failing_memory.h"
#include "support/module_test.h"
#include "view/messages/message.h"

namespace Testing {
namespace {

using namespace Kesto;

Bytes TwoFrames()
{
    const EIFrame frame{.width = 1, .height = 1, .lut = {1, 2, 3}, .pixels = {1, 2, 3}};
    return FileOf({frame, frame});
}

// As OK does, without the flash that a press takes its time for.
bool SendOK(CWindow& window)
{
    CCommandMessage command(&window, Project::kDialog_OKButton);
    window.Send(command);
    return true;
}

void CountedEntry(int16_t selector, void* record, intptr_t* data, int16_t* result)
{
    const FailingMemory::Counted counted;
    EntryElectricImage(selector, record, data, result);
}

class UnluckyDialog : public ModuleTest {
protected:
    // One open in which something fails. Returns whether the dialog came up.
    bool Open(ScriptableHost& each, Outcome& outcome)
    {
        const DialogPerson person(SendOK);
        outcome = each.Open(fFile);
        const auto* const desktop = CServiceT<CDesktop>::Get(false);
        EXPECT_TRUE(desktop == nullptr || desktop->FrontWindow() == nullptr);
        return person.windows > 0;
    }

    const Bytes fFile = TwoFrames();
    StoredSettings store{"Electric Image Format Prefs.lgp"};
};

TEST_F(UnluckyDialog, WhatTheHostRefusesIsDoneWithout)
{
    for (const Kind kind : {Kind::kAcquire, Kind::kProperty, Kind::kRegister})
        for (const bool lasting : {false, true})
            for (int at = 0;; ++at) {
                SCOPED_TRACE("call " + std::to_string(at) + " of kind " +
                             std::to_string(static_cast<int>(kind)) + (lasting ? ", lasting" : ""));
                ScriptableHost each;
                each.fault = Fault{.kind = kind, .at = at, .lasting = lasting};
                Outcome outcome;
                const bool isSeen = Open(each, outcome);
                const bool isOver = !each.FaultReached();
                // Without a display the hooks are what it can't do without.
                EXPECT_TRUE(isSeen || (!isOver && !Platform::HasDisplay()));
                EXPECT_EQ(outcome,
                          isSeen ? Outcome{} : (Outcome{kHostUserCanceled, kFormatReadStart}));
                ExpectClean(each, 0, each.OpenFiles());
                if (isOver)
                    break;
            }
}

TEST_F(UnluckyDialog, MemoryMayEndAtAnyMoment)
{
    Outcome outcome;
    Open(host, outcome);
    host.Unload();
    const std::string before = store.Read();
    constexpr int kStep = 47; // each place is met in time, since no two runs allocate alike
    int failures = 0;
    for (int at = 1;; at += kStep) {
        SCOPED_TRACE("allocation " + std::to_string(at));
        ScriptableHost each;
        each.noting = false;
        each.entry = CountedEntry;
        bool hasFailed = false;
        {
            const FailingMemory memory(at);
            Open(each, outcome);
            hasFailed = memory.HasFailed();
        }
        if (!hasFailed)
            break;
        ++failures;
        EXPECT_TRUE(outcome == Outcome{} || outcome.code == kHostFailed ||
                    outcome.code == kHostMemoryFull || outcome.code == kHostUserCanceled)
            << outcome;
        EXPECT_EQ(store.Read(), before);
        each.Call(kFormatReadFinish);
        ExpectClean(each, each.Buffers(), each.OpenFiles(), each.LockedBuffers());
    }
    EXPECT_GT(failures, 10);
}

} // namespace
} // namespace Testing
