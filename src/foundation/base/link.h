// CLink, what makes an object a member of a list without memory of the list's own, and CLinkList,
// such a list.
//
// The list owns nothing: a member leaves it before it dies. An object is in one list at a time.
// Pointers go both ways and end in null.
#pragma once

#include <cstddef>

namespace Kesto {

// To be derived from as `class CTask : public CLink<CTask>`.
template <class T>
class CLink {
public:
    CLink() = default;
    CLink(const CLink&) = delete;
    CLink& operator=(const CLink&) = delete;

    T* fPrev = nullptr; // the neighbour on the head's side
    T* fNext = nullptr;
};

template <class T>
class CLinkList {
public:
    T* Head() const { return fHead; }
    T* Tail() const { return fTail; }
    bool IsEmpty() const { return fHead == nullptr; }

    // Put in an object that is in no list.
    void AddHead(T& item) { Join(nullptr, item, fHead); }
    void AddTail(T& item) { Join(fTail, item, nullptr); }

    // Takes out a member of this list.
    void Remove(T& item)
    {
        (item.fPrev != nullptr ? item.fPrev->fNext : fHead) = item.fNext;
        (item.fNext != nullptr ? item.fNext->fPrev : fTail) = item.fPrev;
        item.fPrev = item.fNext = nullptr;
    }

    // How many members there are, by counting.
    std::size_t Count() const
    {
        std::size_t count = 0;
        for (const T* item = fHead; item != nullptr; item = item->fNext)
            ++count;
        return count;
    }

private:
    void Join(T* before, T& item, T* after)
    {
        item.fPrev = before;
        item.fNext = after;
        (before != nullptr ? before->fNext : fHead) = &item;
        (after != nullptr ? after->fPrev : fTail) = &item;
    }

    T* fHead = nullptr;
    T* fTail = nullptr;
};

} // namespace Kesto
