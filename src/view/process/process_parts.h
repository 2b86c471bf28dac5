// Parts that a process may have, as interfaces: the process makes them and uses no more of them
// than this. The classes that implement them are in higher layers.
#pragma once

#include "view/messages/messenger.h"

namespace Kesto {

// The bar of menus. A key that is sent to it is eaten when it is the equivalent of an item.
class CMenuBar : public virtual CMessenger {
public:
    // Makes the items right for this moment: which are enabled, which are checked.
    virtual void Update() = 0;
};

// The bar that names the open documents.
class CDocumentBar {
public:
    virtual ~CDocumentBar() = default;
};

class CClipboard {
public:
    virtual ~CClipboard() = default;
};

} // namespace Kesto
