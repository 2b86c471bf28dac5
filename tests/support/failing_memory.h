// Counts the allocations of a test program, and has one fail.
#pragma once

namespace Testing {

// While it lives, the operators new of the program throw std::bad_alloc at the allocation of that
// number, from 1, among those that are counted. Programs that link the source have the operators.
class FailingMemory {
public:
    // Allocations are counted while one of these lives: in what is tested, not in the test.
    class Counted {
    public:
        Counted();
        ~Counted();
        Counted(const Counted&) = delete;
        Counted& operator=(const Counted&) = delete;
    };

    explicit FailingMemory(int at);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    // Whether it has come to that.
    bool HasFailed() const;
};

// How many have been counted since the program began.
int CountedAllocations();

// How many of all that were ever made, counted or not, have not been freed.
int LiveAllocations();

} // namespace Testing
