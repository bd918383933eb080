// A count of what the thread allocates, and allocations that fail on demand.
#ifndef TESTS_SUPPORT_ALLOCATIONS_H
#define TESTS_SUPPORT_ALLOCATIONS_H

#include <array>
#include <cstddef>

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

/// While it lives, notes what the thread gives back, in that order: the first pieces, as many as there is
/// room for.
class NoteDeallocations {
public:
    NoteDeallocations();
    ~NoteDeallocations();
    NoteDeallocations(const NoteDeallocations&) = delete;
    NoteDeallocations& operator=(const NoteDeallocations&) = delete;

    mutable std::array<const void*, 32> m_Memory{};
    mutable std::size_t m_Count = 0;
};

} // namespace tests

#endif
