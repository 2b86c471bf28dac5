// CWalkedList, a list whose members may join and leave while it is walked.
//
// A walk visits each member that is in the list from its beginning to its turn, once. What leaves
// is passed over, and what joins meanwhile, or joins again, waits for the next walk. Walks may
// nest.
#pragma once

#include "foundation/base/link.h"

#include <utility>

namespace Kesto {

// T derives from CLink<T>.
template <class T>
class CWalkedList {
public:
    bool IsEmpty() const { return fList.IsEmpty(); }
    bool IsWalked() const { return fWalk != nullptr; }
    T* Head() const { return fList.Head(); }

    void Add(T& item) { fList.AddTail(item); }

    void Remove(T& item)
    {
        for (Walk* walk = fWalk; walk != nullptr; walk = walk->outer)
            walk->Leave(item);
        fList.Remove(item);
    }

    // Calls `visit` with each member; it may do what it likes to the list and to the member.
    template <class Visit>
    void ForEach(Visit visit)
    {
        Walk walk(*this);
        while (T* const item = walk.Take())
            visit(*item);
    }

private:
    struct Walk {
        explicit Walk(CWalkedList& walked)
            : list(walked), outer(std::exchange(walked.fWalk, this)), next(walked.fList.Head()),
              last(walked.fList.Tail())
        {
        }
        ~Walk() { list.fWalk = outer; }
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        T* Take() { return std::exchange(next, After()); }
        T* After() const { return next == nullptr || next == last ? nullptr : next->fNext; }

        void Leave(T& item)
        {
            if (next == &item)
                next = After();
            if (last == &item)
                last = item.fPrev;
        }

        CWalkedList& list;
        Walk* outer;
        T* next; // null: all have had their turn
        T* last;
    };

    CLinkList<T> fList;
    Walk* fWalk = nullptr; // the innermost
};

} // namespace Kesto
