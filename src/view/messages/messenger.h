// CMessenger, the root of all that takes input: views, windows, executables, the process.
//
// Messengers form a tree by their parents, with the process at the top. One path through it, linked
// by the targets, leads from the top to the bullseye, the single messenger that gets the keys; all
// on the path are targets. A target link is kept when the path has moved on: by it a container
// leads back to its last bullseye. A message starts at one messenger and climbs by the
// parents until a handler eats it.
//
// Focus moves only after those who lose it have been asked to surrender, top down, each before its
// own state changes. A refusal leaves all above it as it was; with `force` the question is asked
// and the answer passed over.
//
// A messenger may die at any time, in a handler or hook of its own too: a climb goes on at the
// parent that it had, and a move of the focus that leads to it ends with false. A parent outlives
// its children, or they are moved away before. All on one thread; a virtual base, so that what is a
// view and an executable is one messenger.
#pragma once

#include "platform/windows/focus.h"
#include "view/messages/message.h"
#include "view/messages/object_id.h"

#include <cstdint>

namespace Kesto {

class CMessenger {
public:
    // Bits of the flags.
    static constexpr std::uint32_t kCanTarget = 1U << 0;
    static constexpr std::uint32_t kCanBullseye = 1U << 1;
    static constexpr std::uint32_t kIsTarget = 1U << 2;
    static constexpr std::uint32_t kIsBullseye = 1U << 3;

    // Of `abilities` kCanTarget and kCanBullseye count. No hook is called.
    explicit CMessenger(CMessenger* parent = nullptr, CObjID id = {}, std::uint32_t abilities = 0);
    CMessenger(const CMessenger&) = delete;
    CMessenger& operator=(const CMessenger&) = delete;

    // Leaves the bullseye, the parent's target and all queued events without it. Calls no hook.
    virtual ~CMessenger();

    virtual void SetID(CObjID id);
    virtual CObjID GetID() const;

    // This, or what FindSubMessenger finds: the first with the id, in the order of the children.
    // Null if there is none.
    virtual CMessenger* FindMessenger(CObjID id);
    virtual CMessenger* FindSubMessenger(CObjID id);

    // Whether it may be on the path, and at its end. One that can't be a target can't be the
    // bullseye.
    virtual bool CanTarget() const;
    virtual bool CanBullseye() const;
    virtual bool IsTarget() const;
    virtual bool IsBullseye() const;

    // Change the abilities and call the hooks. Taking one away moves the focus up, by force.
    virtual void SetCanTarget(bool on);
    virtual void SetCanBullseye(bool on);

    // The last bullseye at or below this messenger, or else the default one; null if there is none.
    virtual CMessenger* FindBullseye();
    virtual CMessenger* DefaultBullseye();

    // This, or the nearest above it, that can be the bullseye; null if there is none. The alternate
    // is asked first when the focus goes up from a child.
    virtual CMessenger* NearestBullseyeUp();
    virtual CMessenger* NearestBullseyeUpAlternate();

    // Leads the focus to this messenger or, if it isn't on the path yet, to its last bullseye.
    // True: it is there.
    virtual bool BecomeBullseyeIfPossible(bool force);

    // Makes this messenger, or its last bullseye if it can't be one itself, the bullseye. False:
    // somebody refused.
    virtual bool BecomeBullseye(bool force);

    // Moves the focus up, if this is a target; if this is the bullseye. False: somebody refused.
    virtual bool ResignBullseyeToParent(bool force);
    virtual bool ResignBullseye(bool force);

    // The question before focus moves away. Overridden to check what was typed, and to say what is
    // wrong with it.
    virtual bool CanSurrender(bool force);

    // Gives the native focus to the window of this messenger, and refreshes what depends on focus.
    virtual void DidBecomeBullseye();
    virtual void DidLoseBullseye();

    // Called on the messenger that BecomeBullseyeAndNotify was asked of, when it went well.
    virtual void BullseyeTaken();
    virtual bool BecomeBullseyeAndNotify(bool force);

    // The native window that this messenger is in; that gets its keys; that owns it; the parent's.
    // Null without one.
    virtual Platform::NativeWindow GetSystemWindow();
    virtual Platform::NativeWindow GetFocusWindow();
    virtual Platform::NativeWindow GetOwnerWindow();
    virtual Platform::NativeWindow GetParentSystemWindow();

    // The parent's owner window, or else the active one of the thread.
    virtual Platform::NativeWindow GetOwnerWindowOrActive();

    virtual bool IsForeground();

    // Calls OnBroadcast here and on every level above. What the arguments mean is between the
    // caller and the hooks.
    virtual void Broadcast(void* argument, bool flag);

    // The operations that send return whether the message was eaten. Send hands it to the operation
    // of its family, a menu message to SendMenu and so on; that asks the handler here and, if it
    // doesn't eat it, climbs. The ones that end in ToParent begin one level up. Handlers return
    // true for a message that they have eaten.
    virtual bool SendToParent(CMessage& message);
    virtual bool Send(CMessage& message);

    virtual bool SendCommandToParent(CCommandMessage& message);
    virtual bool SendCommand(CCommandMessage& message);
    virtual bool HandleCommand(CCommandMessage& message);

    virtual bool SendValueToParent(CValueMessage& message);
    virtual bool SendValue(CValueMessage& message);
    virtual bool HandleValue(CValueMessage& message);

    virtual bool SendKeyToParent(CKeyboardMessage& message);
    virtual bool SendKey(CKeyboardMessage& message);
    virtual bool HandleKey(CKeyboardMessage& message);

    virtual bool SendMenuToParent(CMenuMessage& message);
    virtual bool SendMenu(CMenuMessage& message);
    virtual bool HandleMenu(CMenuMessage& message);

    virtual bool SendOtherToParent(CMessage& message);
    virtual bool SendOther(CMessage& message);
    virtual bool HandleOther(CMessage& message);

    // Put this messenger on the path and take it off; make it the end of the path, and let it be
    // the end no more.
    virtual void SetTarget(bool on);
    virtual void SetBullseye(bool on);

    // Asks this messenger and the path below it to surrender, and takes those off the path that do.
    virtual bool ResignTarget(bool force);

    // Leads the path through this messenger to `child`. False, with nothing changed here: somebody
    // refused.
    virtual bool TargetChild(CMessenger* child, bool force);

    // Calls OnUpdateOwn and OnUpdateChain here and on every level above.
    virtual void UpdateChain();

    // Empty hooks.
    virtual void OnTargetEnable();
    virtual void OnTargetDisable();
    virtual void OnBullseyeEnable();
    virtual void OnBullseyeDisable();
    virtual void OnBecameTarget();
    virtual void OnLostTarget();
    virtual void TargetChanged();
    virtual void BullseyeLost();
    virtual void OnUpdateChain();
    virtual void OnUpdateOwn();
    virtual void OnBroadcast(void* argument, bool flag);

    // The messenger with the keyboard, or else the process; null without either.
    static CMessenger* GetBullseye();

    // Asks the messenger with the keyboard to surrender; true if there is none.
    static bool Surrender(bool force);

    // The next messenger up the chain, and the one that the path led through last. Null for none.
    CMessenger* ParentMessenger() const { return fParent; }
    CMessenger* TargetMessenger() const { return fTarget; }

    // Takes this messenger and all below it off the path, by force, and moves the focus up; the
    // parent's target forgets it. To be called before the parent changes: once the chain is cut,
    // nothing above could ask for the focus back. False: a hook has destroyed this messenger.
    bool LeavePath();

    // Moves this messenger below another parent, which outlives it or is taken from it before. The
    // former one's target forgets it. Neither focus nor flags change: a messenger that may be on
    // the path leaves it first.
    void SetParentMessenger(CMessenger* parent);

protected:
    // Gives the keyboard back to the messenger that this one's path ends in, if it does: for the
    // top of a chain that comes back to its place, after another chain had the bullseye.
    void ReclaimBullseye();

private:
    template <class Message, bool (CMessenger::*handle)(Message&),
              bool (CMessenger::*send)(Message&)>
    bool Climb(Message& message);
    template <class Witness, class Message, bool (CMessenger::*handle)(Message&),
              bool (CMessenger::*send)(Message&)>
    bool ClimbBefore(Message& message);

    void LeaveParentTarget();
    void DropPath();

    // Named apart from those of other bases, so that a class derived from several may use its own.
    bool HasFocusFlag(std::uint32_t flag) const { return (fFlags & flag) != 0; }
    void SetFocusFlag(std::uint32_t flag, bool on) { fFlags = on ? fFlags | flag : fFlags & ~flag; }

    CMessenger* fParent;           // not owned
    CMessenger* fTarget = nullptr; // not owned
    CObjID fID;
    std::uint32_t fFlags;
};

} // namespace Kesto
