// A count of what the thread allocates, and allocations that fail on demand.
#ifndef TESTS_SUPPORT_ALLOCATIONS_H
#define TESTS_SUPPORT_ALLOCATIONS_H

namespace tests {

/// Calls of operator new and new[] on this thread so far, those inside the libraries included.
unsigned long Allocations();

/// Calls of operator delete and delete[] with a pointer that is not null on this thread so far.
unsigned long Deallocations();

/// Bytes asked for on this thread so far.
unsigned long AllocatedBytes();

/// While it lives, the n-th allocation of this thread from now on (n from 1) throws std::bad_alloc, and all
/// others succeed.
class FailAllocation {
public:
    explicit FailAllocation(unsigned long n);
    ~FailAllocation();
    FailAllocation(const FailAllocation&) = delete;
    FailAllocation& operator=(const FailAllocation&) = delete;

    /// Whether the allocation has failed by now.
    bool Happened() const;
};

} // namespace tests

#endif
