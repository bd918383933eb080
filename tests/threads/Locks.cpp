// The time that Lock() waits for another thread.
#include <atomic>
#include <chrono>
#include <latch>
#include <thread>

#include <gtest/gtest.h>

#include "Toolkit/MutexInternal.h"
#include "threads/Together.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Toolkit::MutexInternal;

constexpr unsigned int c_forever = 0xFFFFFFFF;
constexpr unsigned int c_longTime = 60'000;

struct Threads : testing::TestWithParam<bool> {
    MutexInternal m_Mutex{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(PlainAndRecursive, Threads, testing::Values(false, true));

TEST_P(Threads, LockExcludesTheOthersHoweverItWaits) {
    for (const unsigned int timeout : {c_forever, c_longTime}) {
        SCOPED_TRACE(timeout);
        int guarded = 0;
        tests::Together(4, [&](std::size_t) {
            for (int round = 0; round < 1000; ++round) {
                ASSERT_EQ(m_Mutex.Lock(timeout), 1);
                ++guarded;
                m_Mutex.Unlock();
            }
        });
        EXPECT_EQ(guarded, 4000);
    }
}

TEST_P(Threads, TryingExcludesTheOthersToo) {
    int guarded = 0;
    std::atomic<int> taken{0};
    tests::Together(4, [&](std::size_t) {
        for (int round = 0; round < 1000; ++round)
            if (m_Mutex.Lock(0) != 0) {
                ++guarded;
                ++taken;
                m_Mutex.Unlock();
            }
    });
    EXPECT_EQ(guarded, taken);
    EXPECT_GT(guarded, 0);
}

TEST_P(Threads, FiniteTimeoutEndsWhileAnotherThreadHoldsTheMutex) {
    std::latch locked(1), done(1);
    std::thread holder([&] {
        m_Mutex.Lock(c_forever);
        locked.count_down();
        done.wait();
        m_Mutex.Unlock();
    });
    locked.wait();
    const auto start = steady_clock::now();
    EXPECT_EQ(m_Mutex.Lock(30), 0);
    EXPECT_GE(steady_clock::now() - start, milliseconds(30));
    done.count_down();
    holder.join();
    EXPECT_EQ(m_Mutex.Lock(30), 1);
    m_Mutex.Unlock();
}

TEST_P(Threads, WaitEndsWhenTheMutexIsUnlocked) {
    for (const unsigned int timeout : {c_forever, c_longTime}) {
        SCOPED_TRACE(timeout);
        int guarded = 0;
        std::latch locked(1);
        std::thread holder([&] {
            m_Mutex.Lock(c_forever);
            locked.count_down();
            std::this_thread::sleep_for(milliseconds(30));
            guarded = 1;
            m_Mutex.Unlock();
        });
        locked.wait();
        const auto start = steady_clock::now();
        EXPECT_EQ(m_Mutex.Lock(timeout), 1);
        EXPECT_EQ(guarded, 1);
        EXPECT_LT(steady_clock::now() - start, milliseconds(c_longTime / 2));
        m_Mutex.Unlock();
        holder.join();
    }
}

} // namespace
