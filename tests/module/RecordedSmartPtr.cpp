// What smart_ptr asks of the mutex, step by step.
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Recording.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"
#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

using tests::Recording;
using tests::TheRecording;
using Toolkit::smart_ptr;

using Events = std::vector<std::string>;

struct Noted {
    ~Noted() { TheRecording().m_Events.emplace_back("~Noted"); }
};

class RecordedSmartPtr : public testing::Test {
protected:
    RecordedSmartPtr() { TheRecording() = Recording(); }
    Events Taken() { return std::exchange(m_Recording.m_Events, {}); }
    Recording& m_Recording = TheRecording();
};

TEST_F(RecordedSmartPtr, EveryRawPointerGetsOneMutexThatIsNotRecursive) {
    const smart_ptr<Noted> p(new Noted);
    EXPECT_EQ(Taken(), Events{"MutexInternal(false)"});
    const smart_ptr<Noted> null;
    EXPECT_EQ(Taken(), Events{"MutexInternal(false)"});
    const smart_ptr<Noted> copy(p);
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "Unlock"}));
}

TEST_F(RecordedSmartPtr, LastShareIsReleasedWithinTheLockAndTheMutexGoesLast) {
    {
        const smart_ptr<Noted> p(new Noted);
        Taken();
    }
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "~Noted", "Unlock", "~MutexInternal"}));
}

TEST_F(RecordedSmartPtr, ShareThatIsNotTheLastOnlyLocksAndUnlocks) {
    const smart_ptr<Noted> p(new Noted);
    {
        const smart_ptr<Noted> copy(p);
        Taken();
    }
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "Unlock"}));
}

TEST_F(RecordedSmartPtr, TakingAShareUnlocksOnlyWhatWasLocked) {
    const smart_ptr<Noted> p(new Noted);
    Taken();
    m_Recording.m_LockResult = 0;
    const smart_ptr<Noted> copy(p);
    EXPECT_EQ(Taken(), Events{"Lock(FFFFFFFF)"});
    EXPECT_EQ(tests::CountOf(p), 2);
    m_Recording.m_LockResult = -1; // any value but 0 means taken
    const smart_ptr<Noted> another(p);
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "Unlock"}));
}

TEST_F(RecordedSmartPtr, ReleaseRefDoesNotLookAtTheResultOfLock) {
    const smart_ptr<Noted> p(new Noted);
    {
        const smart_ptr<Noted> copy(p);
        Taken();
        m_Recording.m_LockResult = 0;
    }
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "Unlock"}));
    EXPECT_EQ(tests::CountOf(p), 1);
}

TEST_F(RecordedSmartPtr, AssignmentReleasesFirstAndTakesThen) {
    smart_ptr<Noted> a(new Noted);
    const smart_ptr<Noted> b(new Noted);
    Taken();
    a = b;
    EXPECT_EQ(Taken(),
              (Events{"Lock(FFFFFFFF)", "~Noted", "Unlock", "~MutexInternal", "Lock(FFFFFFFF)", "Unlock"}));
}

TEST_F(RecordedSmartPtr, SourcesAreToldApartByAddressNotByBlock) {
    smart_ptr<Noted> a(new Noted);
    const smart_ptr<Noted> b(a);
    const smart_ptr<Noted>& self = a;
    Taken();
    a = self;
    EXPECT_EQ(Taken(), Events{});
    a = b;
    EXPECT_EQ(Taken(), (Events{"Lock(FFFFFFFF)", "Unlock", "Lock(FFFFFFFF)", "Unlock"}));
}

TEST_F(RecordedSmartPtr, AssigningARawPointerReleasesFirstAndMakesABlockThen) {
    smart_ptr<Noted> p(new Noted);
    Taken();
    p = new Noted;
    EXPECT_EQ(Taken(),
              (Events{"Lock(FFFFFFFF)", "~Noted", "Unlock", "~MutexInternal", "MutexInternal(false)"}));
}

TEST_F(RecordedSmartPtr, ThrowingMutexFreesTheBlocksMemoryAndPassesTheExceptionOn) {
    smart_ptr<int> assigned;
    m_Recording.m_Events.reserve(16);
    const unsigned long balance = tests::Allocations() - tests::Deallocations();
    m_Recording.m_MutexThrows = true;
    EXPECT_THROW(const smart_ptr<int> p(new int(7)), std::runtime_error);
    EXPECT_EQ(tests::Allocations() - tests::Deallocations(), balance);
    EXPECT_THROW(assigned = new int(7), std::runtime_error);
    EXPECT_EQ(tests::Allocations() - tests::Deallocations(), balance - 1); // its first block went
    EXPECT_EQ(assigned.get(), nullptr);
    m_Recording.m_MutexThrows = false;
}

TEST_F(RecordedSmartPtr, MutexDestroysItsBaseOnceThroughEitherDestructor) {
    {
        const Toolkit::Mutex mutex(true);
        EXPECT_EQ(Taken(), Events{"MutexInternal(true)"});
    }
    EXPECT_EQ(Taken(), Events{"~MutexInternal"});
    delete new Toolkit::Mutex(false);
    EXPECT_EQ(Taken(), (Events{"MutexInternal(false)", "~MutexInternal"}));
}

} // namespace
