// CMessengerWatch, which tells a function on the stack that a messenger died while foreign code
// ran.
//
// Watches are made and destroyed in the order of the stack, on the thread of the messengers. Those
// that live form a list.
#pragma once

#include "view/messages/messenger.h"

namespace Kesto {

class CMessengerWatch {
public:
    // A null messenger never dies. A message that is under way, if there is one, also loses its
    // source when that dies.
    explicit CMessengerWatch(CMessenger* messenger, CMessage* message = nullptr)
        : fMessenger(messenger), fMessage(message), fBefore(gNewest)
    {
        gNewest = this;
    }
    ~CMessengerWatch() { gNewest = fBefore; }
    CMessengerWatch(const CMessengerWatch&) = delete;
    CMessengerWatch& operator=(const CMessengerWatch&) = delete;

    bool IsGone() const { return fGone; }

    // The parent of the messenger, or the nearest above it that is left.
    CMessenger* Parent() const { return fGone ? fMessenger : fMessenger->ParentMessenger(); }

    // Tells all watches that a messenger dies.
    static void Forget(CMessenger* messenger);

private:
    static inline CMessengerWatch* gNewest = nullptr;

    CMessenger* fMessenger; // after its death the nearest above it
    CMessage* fMessage;
    CMessengerWatch* fBefore;
    bool fGone = false;
};

} // namespace Kesto
