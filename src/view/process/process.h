// CProcess, the root of what runs and of all chains of messengers: it owns the queue of events and
// pumps messages.
//
// This is a module in a host's program. A process is made when the host calls, and pumps for as
// long as a dialog or a tracker needs it, on the host's thread. Several may live at once; each has
// a path of its own, and the bullseye is that of the current one. With the last of them the
// services end.
//
// Of a process's data only the queue may be touched by other threads, through PostEvent; one lock
// guards the queue, one more the pointer to the current process. Handlers are called without
// either.
#pragma once

#include "foundation/settings/settings_store.h"
#include "foundation/streams/file_spec.h"
#include "platform/windows/window_kinds.h"
#include "view/messages/process_link.h"
#include "view/process/event_list.h"
#include "view/process/executable.h"
#include "view/process/process_parts.h"
#include "view/process/timer.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

namespace Kesto {

class CTracker;

enum class DialogEnd { kNone, kAccepted, kCancelled };

class CProcess : public CExecutable, public CProcessLink, public CSettingsStore {
public:
    // Bits of the flags of GetNextEvent.
    static constexpr std::uint32_t kEvent_Poll = 1U << 0;    // never block
    static constexpr std::uint32_t kEvent_NoIdle = 1U << 1;  // no turns for idlers
    static constexpr std::uint32_t kEvent_NoMouse = 1U << 2; // no view is under the mouse

    // What Pressure returns before a pen has reported, and while the pen doesn't press.
    static constexpr float kNoPen = -2.0F;
    static constexpr float kNoPressure = -1.0F;

    // A new process is the current one, and the bullseye, at once. When it ends, events that nobody
    // took end with it, and the process that was current before is so again, if it still lives.
    CProcess();
    ~CProcess() override;

    // The process at work, or null. For the thread of the user interface.
    static CProcess* Current() { return static_cast<CProcess*>(CProcessLink::Current()); }

    // The process's own bullseye has the keyboard then.
    void MakeCurrent();

    // The same for a process that may have ended meanwhile; one that has, and null, leave none.
    static void MakeCurrentIfAlive(CProcess* process);

    // Notes the calling thread as the one that owns the user interface. Without it, that of the
    // first process is.
    static void NoteMainThread();

    // Opens a session, unless one is open, and starts; stops, and closes it.
    void Start() override;
    void Stop() override;

    // One turn of the pump. The next event is dispatched if its priority is above 0, if no message
    // is pending, or if its priority is 0 and it isn't younger than the pending message. Otherwise
    // a message is fetched and handed to its window; the call waits for one if there is nothing
    // else to do. True: something was dealt with. False: all was quiet, and idlers and timers had
    // their turns.
    virtual bool GetNextEvent(std::uint32_t flags);

    // One turn of the pump for a tracker, which sees mouse, keys, paints and timers only, and never
    // waits. Finishes the tracker when its button is up. True: something was dealt with.
    virtual bool PumpTracker(CTracker& tracker);

    // Queues an event; null is ignored. From any thread.
    void PostEvent(std::unique_ptr<CProcessEvent> event) override;

    // What the next turn of a run loop finds has changed: it comes at once. From any thread.
    void WantTurn();

    // The next GetNextEvent is a run loop's, which needs no turns by time: while it waits the
    // process's own timer rests.
    void LetRest() { fMayRest = true; }

    // The event whose turn is next, or null. It belongs to the queue; this thread alone takes
    // events out.
    virtual const CProcessEvent* TopEvent();

    // Takes that event out, if there is one, and dispatches it. It may post, pump, and throw.
    virtual void DispatchTopEvent();

    void ForgetMessenger(CMessenger* messenger) override;

    // How the first window is to be shown, unless it is modal; the base asks the system.
    virtual Platform::ShowCommand StartShowCommand();

    // Names and places. The base knows the module's; a name that it has no answer for is empty.
    virtual CText GetProductName();
    virtual CText GetUIFont();     // empty: the system's
    virtual CText GetAlertTitle(); // of what fields say; empty: what it is about
    virtual CFileSpec GetResourceFolder();
    virtual CFileSpec GetPreferencesFolder(); // made where it is missing; throws CSystemError
    virtual CText WindowClassName(std::uint32_t kind);
    virtual CFileSpec GetTemporaryFolder();
    virtual CFileSpec GetModulePath();
    virtual CText ModalClassName();
    virtual CText DefaultClassName();

    // Makers of the parts; null for none. Each is asked once, when the part is first wanted.
    virtual std::unique_ptr<CMenuBar> MakeMenuBar();
    virtual std::unique_ptr<CDocumentBar> MakeDocumentBar();
    virtual std::unique_ptr<CClipboard> MakeClipboard();

    // A session opens, makes its first windows, and closes.
    virtual void OnSessionStart();
    virtual void MakeFirstWindows();
    virtual void OnSessionStop();

    // A window of the toolkit has been made while this is the process at work, or destroyed. Empty.
    virtual void WindowOpened() {}
    virtual void WindowClosed() {}

    // Whether anybody can answer what a window asks: a person at a display, or the host in its
    // turns. Alerts have their default answer where nobody is. The base takes it that there is.
    virtual bool HasUser() { return true; }

    // How the dialog that ran last has ended; kNone while it runs, and when it was ended by
    // somebody else than the user.
    void NoteDialogEnd(DialogEnd end) { fDialogEnd = end; }
    DialogEnd LastDialogEnd() const { return fDialogEnd; }

    // A message before anything else sees it; false eats it. The base has a press of a button close
    // open popups.
    virtual bool PreTranslateMessage(Platform::QueuedMessage& message);

    // A message before its window sees it; true eats it. The base offers keys to the menu bar.
    virtual bool PostTranslateMessage(Platform::QueuedMessage& message);

    // The client of a frame of many documents, and the native table of key commands with the window
    // that they go to. Null for none.
    virtual Platform::NativeWindow GetMDIClient();
    virtual void* GetAccelerators(Platform::NativeWindow& window);

    // Parts, made when they are first asked for; null if the process has none.
    CMenuBar* GetMenuBar();
    CDocumentBar* GetDocumentBar();
    CClipboard* GetClipboard();

    // Whether the host is in front of other programs. Asked anew ten times a second at most.
    bool IsHostActive();
    bool IsForeground() override;

    // Whether mouse moves are followed while messages are pending.
    void SetMouseTracking(bool on);

    // The message that the pump handed over last.
    const Platform::QueuedMessage& LastMessage() const { return fMessage; }

    // How hard the pen was pressed last, in [-1, 1]; kNoPen until one has reported.
    float Pressure() const { return fPressure; }
    void SetPenScale(float scale) { fPenScale = scale; } // pressure of one unit of the pen

    // Messages of a pen, which touches or moves: reads its pressure and, while the mouse's history
    // is kept, the way that it has gone.
    static bool IsOfPen(std::uint32_t number);
    void NotePen(const Platform::QueuedMessage& message);

    // A turn for posted events, idlers and timers of the current process while a loop of the
    // system's own pumps the messages: a frame is dragged, a menu is open, the host is at work.
    // Whatever they throw is reported, since nothing may unwind through the system. Without a
    // process nothing is done. `timer` is the number of the thread's timer that is due, 0 when any
    // may be.
    static void RunForeignTurn(std::uintptr_t timer = 0);

    // Whether a request to quit waits for the runs to end, and a run that refuses it: then the
    // others aren't asked. The host gets it all the same.
    bool IsQuitting() const { return fAsksToQuit; }
    void RefuseQuit() { fAsksToQuit = false; }

    // Puts a request to quit that the pump has met back into the queue, for the host.
    void ReturnQuitRequest();

    void OnUpdateChain() override;

    CMessenger& ProcessMessenger() override { return *this; }
    Platform::NativeWindow AlertParent() override;
    bool IsMainThread() override;
    bool PostDebugReport(const char* message, const char* file, std::uint32_t line,
                         bool throwIt) override;

protected:
    // Asks the system whether this program is in front.
    virtual bool FindOutIfActive();

private:
    // A part that is made when it is first asked for, and not asked for again when there is none.
    template <class Part>
    struct Lazy {
        std::unique_ptr<Part> part;
        bool asked = false;

        template <class Make>
        Part* Get(Make make)
        {
            if (!asked) {
                asked = true;
                part = make();
            }
            return part.get();
        }
    };

    static constexpr std::uint32_t kHasSession = 1U << 0;
    static constexpr std::uint32_t kTracksMouse = 1U << 1;
    static constexpr double kIdlePeriod = 0.1; // seconds

    void FollowMouse(const std::optional<Platform::QueuedMessage>& pending, std::uint32_t flags);
    void DropEventsOf(CMessenger* messenger);
    class CRest;
    bool CanRest() const;
    std::optional<Platform::QueuedMessage> Fetch(std::uint32_t flags, bool mayRest);
    bool Deliver(Platform::QueuedMessage message, std::uint32_t flags);
    bool TranslateAndDispatch(const Platform::QueuedMessage& message);
    void TakeQuitRequest();
    void RunIdle(std::uint32_t flags);

    std::uint32_t fProcessFlags = 0;
    CEventList fEvents;
    std::mutex fEventMutex; // guards fEvents
    Lazy<CMenuBar> fMenuBar;
    Lazy<CDocumentBar> fDocumentBar;
    Lazy<CClipboard> fClipboard;
    std::optional<bool> fIsHostActive; // as far as it is known
    Platform::QueuedMessage fMessage;
    float fPenScale = 0.001F;
    float fPressure = kNoPen;
    std::optional<int> fQuit; // met, and not yet given back
    bool fAsksToQuit = false;
    DialogEnd fDialogEnd = DialogEnd::kNone;
    static inline CProcess* gNewest = nullptr;
    CProcess* fOlder;        // of those that live
    CProcess* const fBefore; // current when this one was made; it may have ended since
    CTimer fIdleTimer;
    bool fMayRest = false;
    bool fWantsTurn = false;
    Platform::QueueBell fBell;
};

// Makes a process the current one for a scope.
class CProcessScope {
public:
    explicit CProcessScope(CProcess& process);
    ~CProcessScope();
    CProcessScope(const CProcessScope&) = delete;
    CProcessScope& operator=(const CProcessScope&) = delete;

private:
    CProcess* fBefore;
};

} // namespace Kesto
