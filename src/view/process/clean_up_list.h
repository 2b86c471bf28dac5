// Objects whose end has to wait until the toolkit is idle: the list is run when a plug-in object
// has ended.
#pragma once

namespace Kesto {

// An object on the list. It joins when it asks to, and leaves when it was cleaned up or destroyed.
class CCleanUp {
public:
    CCleanUp() = default;
    virtual ~CCleanUp();
    CCleanUp(const CCleanUp&) = delete;
    CCleanUp& operator=(const CCleanUp&) = delete;

    // Puts the object on the list, once.
    void CleanUpLater();

    // Called once when the list runs; the object is off the list by then and may destroy itself.
    virtual void CleanUp() = 0;

private:
    friend void RunCleanUpList();

    bool fWaiting = false;
};

// Calls and unlinks every object on the list, those that join meanwhile too.
void RunCleanUpList();

} // namespace Kesto
