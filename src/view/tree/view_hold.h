// CViewHold and CChildWalk, which keep a function on the stack safe while hooks run that may end
// any view, this one too.
#pragma once

#include <cstddef>

namespace Kesto {

class CPane;
class CView;

// While one lives, Dispose takes the view out of everything and leaves its memory, which the last
// hold deletes. Whatever calls a hook has a hold, so hooks may go on using their view.
class CViewHold {
public:
    explicit CViewHold(CView& view);
    ~CViewHold();
    CViewHold(const CViewHold&) = delete;
    CViewHold& operator=(const CViewHold&) = delete;

    // Disposed, or deleted: nothing more is to be done with it.
    bool IsOver() const;

    // Tells all holds that a view is being deleted.
    static void Forget(const CView* view);

private:
    static inline CViewHold* gNewest = nullptr;

    CView* fView; // null once it is deleted
    CViewHold* fBefore;
};

// The children of a view in order, each once. Those that leave are passed over; those that join
// beyond the walk have their turn. It ends when the view does.
class CChildWalk {
public:
    enum class Order { kForward, kBackward };

    explicit CChildWalk(CView& parent, Order order = Order::kForward);
    ~CChildWalk();
    CChildWalk(const CChildWalk&) = delete;
    CChildWalk& operator=(const CChildWalk&) = delete;

    // Null at the end.
    CPane* Next();

    // Tell all walks that a child has been put in or taken out at an index.
    static void Inserted(const CView* parent, std::size_t index);
    static void Removed(const CView* parent, std::size_t index);

private:
    static inline CChildWalk* gNewest = nullptr;

    CView& fParent;
    CViewHold fHold;
    Order fOrder;
    std::size_t fNext; // forward the index of the next one, backward that and one
    CChildWalk* fBefore;
};

} // namespace Kesto
