#include "view/messages/messenger_watch.h"

namespace Kesto {

void CMessengerWatch::Forget(CMessenger* messenger)
{
    for (CMessengerWatch* watch = gNewest; watch != nullptr; watch = watch->fBefore) {
        if (watch->fMessenger == messenger) {
            watch->fMessenger = messenger->ParentMessenger();
            watch->fGone = true;
        }
        if (watch->fMessage != nullptr && watch->fMessage->fSource == messenger)
            watch->fMessage->fSource = nullptr;
    }
}

} // namespace Kesto
