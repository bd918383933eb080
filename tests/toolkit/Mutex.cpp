#include "Toolkit/Mutex.h"

#include <chrono>
#include <thread>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/Layout.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Toolkit::Mutex;
using Toolkit::MutexInternal;

constexpr unsigned int c_forever = 0xFFFFFFFF;

/// What Lock() gives on another thread, which releases again what it took.
int LockElsewhere(MutexInternal& mutex, unsigned int timeout) {
    int locked = -1;
    std::thread([&] {
        locked = mutex.Lock(timeout);
        if (locked != 0)
            mutex.Unlock();
    }).join();
    return locked;
}

struct BothKinds : testing::TestWithParam<bool> {
    MutexInternal m_Mutex{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(MutexInternal, BothKinds, testing::Values(false, true));

TEST_P(BothKinds, LockOfAFreeMutexGivesOneForEveryTimeout) {
    for (const unsigned int timeout : {0U, 1U, 1000U, 0xFFFFFFFEU, c_forever}) {
        SCOPED_TRACE(timeout);
        EXPECT_EQ(m_Mutex.Lock(timeout), 1);
        m_Mutex.Unlock();
    }
}

TEST_P(BothKinds, HeldMutexIsRefusedToOthersUntilItIsUnlocked) {
    ASSERT_EQ(m_Mutex.Lock(c_forever), 1);
    EXPECT_EQ(LockElsewhere(m_Mutex, 0), 0);
    EXPECT_EQ(LockElsewhere(m_Mutex, 1), 0);
    m_Mutex.Unlock();
    EXPECT_EQ(LockElsewhere(m_Mutex, 0), 1);
}

TEST_P(BothKinds, FiniteTimeoutIsInMilliseconds) {
    ASSERT_EQ(m_Mutex.Lock(c_forever), 1);
    for (const unsigned int timeout : {1U, 50U}) {
        SCOPED_TRACE(timeout);
        const auto start = steady_clock::now();
        EXPECT_EQ(LockElsewhere(m_Mutex, timeout), 0);
        EXPECT_GE(steady_clock::now() - start, milliseconds(timeout));
        EXPECT_LT(steady_clock::now() - start, milliseconds(10'000));
    }
    m_Mutex.Unlock();
}

TEST_P(BothKinds, TimeoutOfZeroDoesNotWait) {
    ASSERT_EQ(m_Mutex.Lock(c_forever), 1);
    const auto start = steady_clock::now();
    EXPECT_EQ(LockElsewhere(m_Mutex, 0), 0);
    EXPECT_LT(steady_clock::now() - start, milliseconds(10'000));
    m_Mutex.Unlock();
}

TEST_P(BothKinds, AllocatesNothing) {
    const unsigned long allocations = tests::Allocations();
    {
        MutexInternal mutex(GetParam());
        mutex.Lock(c_forever);
        mutex.Unlock();
        mutex.Lock(5);
        mutex.Unlock();
    }
    EXPECT_EQ(tests::Allocations(), allocations);
}

TEST(MutexInternal, PlainMutexIsRefusedToItsHolderToo) {
    MutexInternal mutex(false);
    ASSERT_EQ(mutex.Lock(c_forever), 1);
    EXPECT_EQ(mutex.Lock(5), 0);
    mutex.Unlock();
}

TEST(MutexInternal, RecursiveMutexIsFreeAfterAsManyUnlocksAsLocks) {
    MutexInternal mutex(true);
    ASSERT_EQ(mutex.Lock(c_forever), 1);
    ASSERT_EQ(mutex.Lock(0), 1);
    ASSERT_EQ(mutex.Lock(5), 1);
    mutex.Unlock();
    EXPECT_EQ(LockElsewhere(mutex, 0), 0);
    mutex.Unlock();
    EXPECT_EQ(LockElsewhere(mutex, 0), 0);
    mutex.Unlock();
    EXPECT_EQ(LockElsewhere(mutex, 0), 1);
}

TEST(Mutex, AddsNothingButAVirtualDestructor) {
    static_assert(std::is_base_of_v<MutexInternal, Mutex>);
    static_assert(!std::is_polymorphic_v<MutexInternal>);
    static_assert(std::has_virtual_destructor_v<Mutex>);
    static_assert(sizeof(Mutex) == sizeof(void*) + sizeof(MutexInternal));
    Mutex mutex(false);
    EXPECT_EQ(tests::Offset(static_cast<MutexInternal*>(&mutex), &mutex), std::ptrdiff_t{sizeof(void*)});
}

TEST(Mutex, LocksAsItsBaseDoes) {
    Mutex plain(false);
    EXPECT_EQ(plain.Lock(c_forever), 1);
    EXPECT_EQ(plain.Lock(1), 0);
    plain.Unlock();
    Mutex recursive(true);
    EXPECT_EQ(recursive.Lock(c_forever), 1);
    EXPECT_EQ(recursive.Lock(1), 1);
    recursive.Unlock();
    recursive.Unlock();
}

TEST(Mutex, VirtualSlotsAreTheTwoDestructors) {
    const unsigned long deallocations = tests::Deallocations();
    tests::CallSlot(new Mutex(false), 1);
    EXPECT_EQ(tests::Deallocations() - deallocations, 1U);

    struct Noting : Mutex {
        explicit Noting(int& destroyed) : Mutex(false), m_Destroyed(destroyed) {}
        ~Noting() override { ++m_Destroyed; }
        int& m_Destroyed;
    };
    int destroyed = 0;
    alignas(Noting) unsigned char memory[sizeof(Noting)];
    tests::CallSlot(new (memory) Noting(destroyed), 0);
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(tests::Deallocations() - deallocations, 1U);
}

} // namespace
