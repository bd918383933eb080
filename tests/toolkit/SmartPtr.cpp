#include "Toolkit/smart_ptr.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/Layout.h"
#include "support/Octets.h"

namespace {

using tests::Allocations;
using tests::CallSlot;
using tests::CountOf;
using tests::Deallocations;
using tests::FailAllocation;
using tests::Offset;
using tests::WordsOf;
using Toolkit::ReferenceBlock;
using Toolkit::ReleaseHook;
using Toolkit::smart_ptr;
using Toolkit::smart_ptr_array_policy;
using Toolkit::smart_ptr_policy;

using Events = std::vector<std::string>;

Events s_events;

/// Notes its destruction, and which of the two delete operators gives its memory back.
struct Noted {
    explicit Noted(std::string name = "?") : m_Name(std::move(name)) {}
    Noted(const Noted&) = delete;
    Noted& operator=(const Noted&) = delete;
    ~Noted() { s_events.push_back("destroy " + m_Name); }

    // Not inlined: the compiler takes an inlined one beside one that is not for a mismatch.
    [[gnu::noinline]] static void* operator new(std::size_t size) { return ::operator new(size); }
    [[gnu::noinline]] static void* operator new[](std::size_t size) { return ::operator new[](size); }
    [[gnu::noinline]] static void operator delete(void* memory) {
        s_events.emplace_back("delete");
        ::operator delete(memory);
    }
    [[gnu::noinline]] static void operator delete[](void* memory) {
        s_events.emplace_back("delete[]");
        ::operator delete[](memory);
    }

    std::string m_Name;
};

/// Notes the objects that it should free and leaves them alone.
struct NotingPolicy {
    static std::vector<void*> s_freed;
    template <class T>
    static void Free(T* pObject) {
        s_freed.push_back(pObject);
    }
};
std::vector<void*> NotingPolicy::s_freed;

struct NotedHook : ReleaseHook {
    explicit NotedHook(std::string name) : m_Name(std::move(name)) {}
    ~NotedHook() override { s_events.push_back("destroy " + m_Name); }
    void BeforeRelease() override { s_events.push_back("before " + m_Name); }
    void AfterRelease() override { s_events.push_back("after " + m_Name); }

    std::string m_Name;
};

/// A smart_ptr whose life the test ends by hand.
template <class Pointer>
struct Manual {
    template <class... Args>
    explicit Manual(Args&&... args) : m_p(new (m_Memory) Pointer(std::forward<Args>(args)...)) {}
    Pointer& operator*() { return *m_p; }

    alignas(Pointer) unsigned char m_Memory[sizeof(Pointer)];
    Pointer* m_p;
};

class SmartPtr : public testing::Test {
protected:
    SmartPtr() {
        s_events.clear();
        s_events.reserve(16); // so that noting an event allocates nothing
        NotingPolicy::s_freed.clear();
    }
};

// Layout

TEST_F(SmartPtr, IsTwoWordsObjectThenBlock) {
    static_assert(sizeof(smart_ptr<int>) == 2 * sizeof(void*));
    static_assert(sizeof(smart_ptr<int, smart_ptr_array_policy>) == 2 * sizeof(void*));
    int* const pObject = new int(7);
    smart_ptr<int> p(pObject);
    EXPECT_EQ(WordsOf(p).m_pObject, pObject);
    EXPECT_EQ(WordsOf(p).m_pBlock->m_Count, 1);
    EXPECT_EQ(WordsOf(p).m_pBlock->m_pHooks, nullptr);
}

TEST_F(SmartPtr, BlockHoldsCountMutexHooksInThisOrder) {
    static_assert(std::is_same_v<decltype(ReferenceBlock::m_Count), int>);
    static_assert(std::is_same_v<decltype(ReferenceBlock::m_Mutex), Toolkit::MutexInternal>);
    ReferenceBlock block;
    EXPECT_EQ(Offset(&block.m_Count, &block), 0);
    constexpr std::size_t mutex = std::max(sizeof(int), alignof(Toolkit::MutexInternal));
    EXPECT_EQ(Offset(&block.m_Mutex, &block), std::ptrdiff_t{mutex});
    EXPECT_EQ(Offset(&block.m_pHooks, &block), std::ptrdiff_t{mutex + sizeof(Toolkit::MutexInternal)});
    EXPECT_EQ(sizeof(ReferenceBlock), mutex + sizeof(Toolkit::MutexInternal) + sizeof(void*));
    EXPECT_EQ(block.m_Count, 1);
    EXPECT_EQ(block.m_pHooks, nullptr);
}

TEST_F(SmartPtr, MutexOfTheBlockIsNotRecursive) {
    ReferenceBlock block;
    ASSERT_EQ(block.m_Mutex.Lock(0), 1);
    EXPECT_EQ(block.m_Mutex.Lock(1), 0);
    block.m_Mutex.Unlock();
}

TEST_F(SmartPtr, PoliciesAreEmpty) {
    static_assert(std::is_empty_v<smart_ptr_policy> && std::is_empty_v<smart_ptr_array_policy>);
    static_assert(std::is_same_v<smart_ptr<int>, smart_ptr<int, smart_ptr_policy>>);
}

// Construction

TEST_F(SmartPtr, DefaultConstructedHoldsNullAndABlockOfItsOwn) {
    smart_ptr<Noted> a;
    smart_ptr<Noted> b;
    EXPECT_EQ(a.get(), nullptr);
    EXPECT_EQ(CountOf(a), 1);
    EXPECT_NE(WordsOf(a).m_pBlock, WordsOf(b).m_pBlock);
}

TEST_F(SmartPtr, ReleasingANullPointerFreesTheBlockAndDeletesNothing) {
    const unsigned long allocations = Allocations();
    const unsigned long deallocations = Deallocations();
    {
        smart_ptr<Noted> p(nullptr);
        EXPECT_EQ(CountOf(p), 1);
        EXPECT_EQ(Allocations() - allocations, 1U);
    }
    EXPECT_EQ(Deallocations() - deallocations, 1U);
    EXPECT_EQ(s_events, Events{});
    { const smart_ptr<Noted, smart_ptr_array_policy> p; }
    EXPECT_EQ(Deallocations() - deallocations, 2U);
    EXPECT_EQ(s_events, Events{});
}

TEST_F(SmartPtr, RawPointerConvertsImplicitly) {
    static_assert(std::is_convertible_v<int*, smart_ptr<int>>);
    int* const pObject = new int(7);
    const smart_ptr<int> p = pObject;
    EXPECT_EQ(p.get(), pObject);
    EXPECT_EQ(&*p, pObject);
    EXPECT_EQ(p.operator->(), pObject);
}

TEST_F(SmartPtr, ConstructionAllocatesExactlyOneBlock) {
    int* const pObject = new int(7);
    const unsigned long allocations = Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    const smart_ptr<int> p(pObject);
    EXPECT_EQ(Allocations() - allocations, 1U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes, sizeof(ReferenceBlock));
}

TEST_F(SmartPtr, FailedBlockFreesTheObjectAndPassesTheExceptionOn) {
    auto* const pObject = new Noted("a");
    {
        const FailAllocation failure(1);
        EXPECT_THROW(const smart_ptr<Noted> p(pObject), std::bad_alloc);
    }
    EXPECT_EQ(s_events, (Events{"destroy a", "delete"}));

    s_events.clear();
    auto* const pArray = new Noted[1];
    {
        const FailAllocation failure(1);
        EXPECT_THROW((smart_ptr<Noted, smart_ptr_array_policy>(pArray)), std::bad_alloc);
    }
    EXPECT_EQ(s_events, (Events{"destroy ?", "delete[]"}));
}

// Taking a share

TEST_F(SmartPtr, CopyTakesAShareOfTheSameBlockAndAllocatesNothing) {
    smart_ptr<int> a(new int(7));
    const unsigned long allocations = Allocations();
    smart_ptr<int> b(a);
    smart_ptr<int> c(b);
    EXPECT_EQ(Allocations(), allocations);
    EXPECT_EQ(CountOf(a), 3);
    EXPECT_EQ(b.get(), a.get());
    EXPECT_EQ(WordsOf(c).m_pBlock, WordsOf(a).m_pBlock);
}

TEST_F(SmartPtr, CopyOfNullTakesAShareToo) {
    smart_ptr<int> a;
    const smart_ptr<int> b(a);
    EXPECT_EQ(CountOf(a), 2);
}

TEST_F(SmartPtr, CopyingACountOfZeroLeavesItAtZero) {
    smart_ptr<int> a(new int(7));
    ReferenceBlock& block = *WordsOf(a).m_pBlock;
    block.m_Count = 0;
    const smart_ptr<int> copy(a);
    EXPECT_EQ(block.m_Count, 0);
    smart_ptr<int> assigned;
    assigned = a;
    EXPECT_EQ(block.m_Count, 0);
    block.m_Count = 3;
}

TEST_F(SmartPtr, ReleasingACopyOfACountOfZeroFreesNothing) {
    int object = 7;
    {
        smart_ptr<int, NotingPolicy> a(&object);
        ReferenceBlock& block = *WordsOf(a).m_pBlock;
        block.m_Count = 0;
        { const smart_ptr<int, NotingPolicy> copy(a); }
        EXPECT_EQ(block.m_Count, -1);
        EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{});
        block.m_Count = 1;
    }
    EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{&object});
}

TEST_F(SmartPtr, OnlyACountOfZeroIsLeftAlone) {
    smart_ptr<int> a(new int(7));
    ReferenceBlock& block = *WordsOf(a).m_pBlock;
    block.m_Count = -1;
    const smart_ptr<int> copy(a);
    EXPECT_EQ(block.m_Count, 0);
    block.m_Count = 2;
}

TEST_F(SmartPtr, MutexIsFreeAfterEveryOperation) {
    smart_ptr<int> a(new int(7));
    Toolkit::MutexInternal& mutex = WordsOf(a).m_pBlock->m_Mutex;
    const auto expectFree = [&mutex](const char* what) {
        ASSERT_EQ(mutex.Lock(0), 1) << what;
        mutex.Unlock();
    };
    expectFree("construction");
    {
        const smart_ptr<int> b(a);
        expectFree("copy");
    }
    expectFree("release of a share");
    smart_ptr<int> c;
    c = a;
    expectFree("assignment");
    c = nullptr;
    expectFree("assignment of something else");
    a.AttachHook(new NotedHook("h"));
    expectFree("attached hook");
}

// ReleaseRef

TEST_F(SmartPtr, OnlyTheLastShareFreesTheObject) {
    {
        const smart_ptr<Noted> a(new Noted("a"));
        {
            const smart_ptr<Noted> b(a);
            EXPECT_EQ(CountOf(a), 2);
        }
        EXPECT_EQ(CountOf(a), 1);
        EXPECT_EQ(s_events, Events{});
    }
    EXPECT_EQ(s_events, (Events{"destroy a", "delete"}));
}

TEST_F(SmartPtr, LastShareFreesTheBlockAsWell) {
    const unsigned long allocations = Allocations();
    const unsigned long deallocations = Deallocations();
    {
        const smart_ptr<int> a(new int(7));
        const smart_ptr<int> b(a);
    }
    EXPECT_EQ(Allocations() - allocations, 2U);
    EXPECT_EQ(Deallocations() - deallocations, 2U);
}

TEST_F(SmartPtr, ArrayPolicyDestroysTheLastElementFirst) {
    {
        auto* const pArray = new Noted[3];
        pArray[0].m_Name = "0";
        pArray[1].m_Name = "1";
        pArray[2].m_Name = "2";
        const smart_ptr<Noted, smart_ptr_array_policy> p(pArray);
    }
    EXPECT_EQ(s_events, (Events{"destroy 2", "destroy 1", "destroy 0", "delete[]"}));
}

TEST_F(SmartPtr, ReleaseRefLeavesBothWordsAsTheyWere) {
    int object = 7;
    Manual<smart_ptr<int, NotingPolicy>> p(&object);
    ReferenceBlock* const pBlock = WordsOf(*p).m_pBlock;
    (*p).ReleaseRef();
    EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{&object});
    EXPECT_EQ(WordsOf(*p).m_pObject, &object);
    EXPECT_EQ(WordsOf(*p).m_pBlock, pBlock);
}

TEST_F(SmartPtr, ReleaseRefOfOneOfTwoSharesOnlyCounts) {
    int object = 7;
    const smart_ptr<int, NotingPolicy> keeper(&object);
    Manual<smart_ptr<int, NotingPolicy>> p(keeper);
    (*p).ReleaseRef();
    EXPECT_EQ(CountOf(keeper), 1);
    EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{});
    EXPECT_EQ(WordsOf(*p).m_pObject, &object);
}

TEST_F(SmartPtr, CountIsZeroWhileTheObjectIsFreed) {
    struct Looker {
        ~Looker() { *m_pSeen = *m_pCount; }
        const int* m_pCount = nullptr;
        int* m_pSeen = nullptr;
    };
    int seen = -1;
    {
        smart_ptr<Looker> p(new Looker);
        p->m_pCount = &WordsOf(p).m_pBlock->m_Count;
        p->m_pSeen = &seen;
    }
    EXPECT_EQ(seen, 0);
}

// Release hooks

TEST_F(SmartPtr, HooksAreCalledBeforeAndAfterTheObjectIsFreed) {
    {
        smart_ptr<Noted> p(new Noted("object"));
        p.AttachHook(new NotedHook("second"));
        p.AttachHook(new NotedHook("first"));
    }
    EXPECT_EQ(s_events, (Events{"before first", "before second", "destroy object", "delete", "after first",
                                "destroy first", "after second", "destroy second"}));
}

TEST_F(SmartPtr, HooksWaitForTheLastShare) {
    const smart_ptr<Noted> keeper(new Noted("object"));
    {
        smart_ptr<Noted> p(keeper);
        p.AttachHook(new NotedHook("h"));
    }
    EXPECT_EQ(s_events, Events{});
}

TEST_F(SmartPtr, HooksOfANullPointerAreCalledToo) {
    {
        smart_ptr<Noted> p;
        p.AttachHook(new NotedHook("h"));
    }
    EXPECT_EQ(s_events, (Events{"before h", "after h", "destroy h"}));
}

TEST_F(SmartPtr, AttachHookPushesAtTheHeadOfTheChain) {
    smart_ptr<Noted> p;
    auto* const pOld = new NotedHook("old");
    auto* const pNew = new NotedHook("new");
    const unsigned long allocations = Allocations();
    p.AttachHook(pOld);
    p.AttachHook(pNew);
    EXPECT_EQ(Allocations(), allocations);
    EXPECT_EQ(WordsOf(p).m_pBlock->m_pHooks, pNew);
    EXPECT_EQ(pNew->m_Next, pOld);
    EXPECT_EQ(pOld->m_Next, nullptr);
}

/// Notes whether it is the head of the chain.
struct ChainLooker : ReleaseHook {
    ChainLooker(const ReferenceBlock* pBlock, std::string name) : m_pBlock(pBlock), m_Name(std::move(name)) {}
    ~ChainLooker() override { Note("destroy "); }
    void BeforeRelease() override {}
    void AfterRelease() override { Note("after "); }
    void Note(const std::string& what) const {
        s_events.push_back(what + m_Name + (m_pBlock->m_pHooks == this ? ", the head" : ""));
    }
    const ReferenceBlock* m_pBlock;
    std::string m_Name;
};

TEST_F(SmartPtr, HookIsTheHeadOfTheChainUntilItIsDeleted) {
    {
        smart_ptr<Noted> p;
        const ReferenceBlock* const pBlock = WordsOf(p).m_pBlock;
        p.AttachHook(new ChainLooker(pBlock, "second"));
        p.AttachHook(new ChainLooker(pBlock, "first"));
    }
    EXPECT_EQ(s_events, (Events{"after first, the head", "destroy first, the head", "after second, the head",
                                "destroy second, the head"}));
}

TEST_F(SmartPtr, NextHookIsTakenAfterTheHooksCallAndBeforeItsDeletion) {
    struct Relinker : ReleaseHook {
        Relinker(ReleaseHook* pAfter, ReleaseHook* pDeleted) : m_pAfter(pAfter), m_pDeleted(pDeleted) {}
        ~Relinker() override { m_Next = m_pDeleted; }
        void BeforeRelease() override {}
        void AfterRelease() override { m_Next = m_pAfter; }
        ReleaseHook* m_pAfter;
        ReleaseHook* m_pDeleted;
    };
    NotedHook deleted("set while it is deleted");
    {
        smart_ptr<Noted> p;
        p.AttachHook(new Relinker(new NotedHook("set by the call"), &deleted));
    }
    EXPECT_EQ(s_events, (Events{"after set by the call", "destroy set by the call"}));
}

TEST_F(SmartPtr, HooksAndObjectAreReleasedWithTheMutexHeld) {
    struct Prober : ReleaseHook {
        explicit Prober(ReferenceBlock* pBlock, std::vector<int>& locked)
            : m_pBlock(pBlock), m_Locked(locked) {}
        void BeforeRelease() override { Probe(); }
        void AfterRelease() override { Probe(); }
        void Probe() {
            std::thread([this] { m_Locked.push_back(m_pBlock->m_Mutex.Lock(0)); }).join();
        }
        ReferenceBlock* m_pBlock;
        std::vector<int>& m_Locked;
    };
    std::vector<int> locked;
    {
        smart_ptr<Noted> p;
        p.AttachHook(new Prober(WordsOf(p).m_pBlock, locked));
    }
    EXPECT_EQ(locked, (std::vector<int>{0, 0}));
}

TEST_F(SmartPtr, NextIsTheFirstDataMemberOfAHook) {
    NotedHook hook("h");
    EXPECT_EQ(Offset(&hook.m_Next, static_cast<ReleaseHook*>(&hook)), std::ptrdiff_t{sizeof(void*)});
    EXPECT_EQ(sizeof(ReleaseHook), 2 * sizeof(void*));
}

TEST_F(SmartPtr, VirtualSlotsOfAHookAreDestructorsBeforeAfter) {
    auto* const pHook = new NotedHook("h");
    const unsigned long deallocations = Deallocations();
    CallSlot(pHook, 2);
    CallSlot(pHook, 3);
    EXPECT_EQ(Deallocations(), deallocations);
    CallSlot(pHook, 1);
    EXPECT_EQ(Deallocations() - deallocations, 1U);
    EXPECT_EQ(s_events, (Events{"before h", "after h", "destroy h"}));

    alignas(NotedHook) unsigned char memory[sizeof(NotedHook)];
    CallSlot(new (memory) NotedHook("local"), 0);
    EXPECT_EQ(s_events.back(), "destroy local");
}

// Assignment

TEST_F(SmartPtr, AssignmentReleasesTheOldObjectAndSharesTheNew) {
    smart_ptr<Noted> a(new Noted("a"));
    smart_ptr<Noted> b(new Noted("b"));
    const unsigned long allocations = Allocations();
    smart_ptr<Noted>& result = (a = b);
    EXPECT_EQ(Allocations(), allocations);
    EXPECT_EQ(&result, &a);
    EXPECT_EQ(s_events, (Events{"destroy a", "delete"}));
    EXPECT_EQ(a.get(), b.get());
    EXPECT_EQ(CountOf(b), 2);
}

TEST_F(SmartPtr, AssignmentBetweenSharesOfOneBlockKeepsTheCount) {
    smart_ptr<Noted> a(new Noted("a"));
    const smart_ptr<Noted> b(a);
    a = b;
    EXPECT_EQ(CountOf(a), 2);
    EXPECT_EQ(s_events, Events{});
}

TEST_F(SmartPtr, SelfAssignmentDoesNothing) {
    smart_ptr<Noted> a(new Noted("a"));
    const smart_ptr<Noted>& self = a;
    ReferenceBlock* const pBlock = WordsOf(a).m_pBlock;
    EXPECT_EQ(&(a = self), &a);
    EXPECT_EQ(CountOf(a), 1);
    EXPECT_EQ(WordsOf(a).m_pBlock, pBlock);
    EXPECT_EQ(s_events, Events{});
}

TEST_F(SmartPtr, AssigningARawPointerMakesANewBlock) {
    smart_ptr<Noted> a(new Noted("a"));
    const smart_ptr<Noted> keeper(a);
    auto* const pObject = new Noted("b");
    const unsigned long allocations = Allocations();
    smart_ptr<Noted>& result = (a = pObject);
    EXPECT_EQ(Allocations() - allocations, 1U);
    EXPECT_EQ(&result, &a);
    EXPECT_EQ(a.get(), pObject);
    EXPECT_EQ(CountOf(a), 1);
    EXPECT_EQ(CountOf(keeper), 1);
    EXPECT_EQ(s_events, Events{});
}

TEST_F(SmartPtr, AssigningANullPointerMakesANewBlockToo) {
    smart_ptr<Noted> a(new Noted("a"));
    const unsigned long allocations = Allocations();
    a = static_cast<Noted*>(nullptr);
    EXPECT_EQ(Allocations() - allocations, 1U);
    EXPECT_EQ(s_events, (Events{"destroy a", "delete"}));
    EXPECT_EQ(a.get(), nullptr);
    EXPECT_EQ(CountOf(a), 1);
}

TEST_F(SmartPtr, AssigningTheHeldPointerOfTheLastShareFreesItBeforeStoringItAgain) {
    int object = 7;
    {
        smart_ptr<int, NotingPolicy> p(&object);
        p = &object;
        EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{&object});
        EXPECT_EQ(p.get(), &object);
        EXPECT_EQ(CountOf(p), 1);
    }
    EXPECT_EQ(NotingPolicy::s_freed, (std::vector<void*>{&object, &object}));
}

TEST_F(SmartPtr, AssigningTheHeldPointerBesideAnotherShareMakesASecondBlock) {
    int object = 7;
    {
        smart_ptr<int, NotingPolicy> p(&object);
        smart_ptr<int, NotingPolicy> other(p);
        p = &object;
        EXPECT_EQ(NotingPolicy::s_freed, std::vector<void*>{});
        EXPECT_NE(WordsOf(p).m_pBlock, WordsOf(other).m_pBlock);
        EXPECT_EQ(CountOf(p), 1);
        EXPECT_EQ(CountOf(other), 1);
    }
    EXPECT_EQ(NotingPolicy::s_freed, (std::vector<void*>{&object, &object}));
}

TEST_F(SmartPtr, OldShareIsReleasedBeforeTheNewPointerIsStored) {
    struct Looker {
        ~Looker() { *m_pSeen = m_pOwner->get(); }
        smart_ptr<Looker>* m_pOwner = nullptr;
        Looker** m_pSeen = nullptr;
    };
    Looker* seenAtRawAssignment = nullptr;
    Looker* seenAtCopyAssignment = nullptr;
    Looker* seenAtTheEnd = nullptr;
    smart_ptr<Looker> p;
    auto* const pFirst = new Looker{&p, &seenAtRawAssignment};
    p = pFirst;
    auto* const pSecond = new Looker{&p, &seenAtCopyAssignment};
    p = pSecond;
    EXPECT_EQ(seenAtRawAssignment, pFirst);
    {
        const smart_ptr<Looker> other(new Looker{&p, &seenAtTheEnd});
        p = other;
    }
    EXPECT_EQ(seenAtCopyAssignment, pSecond);
}

TEST_F(SmartPtr, FailedBlockInAssignmentLeavesAPointerWithoutBlock) {
    smart_ptr<Noted> p(new Noted("old"));
    auto* const pObject = new Noted("new");
    {
        const FailAllocation failure(1);
        EXPECT_THROW(p = pObject, std::bad_alloc);
        EXPECT_TRUE(failure.Happened());
    }
    EXPECT_EQ(s_events, (Events{"destroy old", "delete", "destroy new", "delete"}));
    EXPECT_EQ(p.get(), nullptr);
    EXPECT_EQ(WordsOf(p).m_pBlock, nullptr);

    smart_ptr<Noted> copy(p);
    EXPECT_EQ(WordsOf(copy).m_pBlock, nullptr);
    smart_ptr<Noted> other(new Noted("other"));
    copy = other;
    EXPECT_EQ(CountOf(other), 2);
    p = new Noted("again");
    EXPECT_EQ(CountOf(p), 1);
}

} // namespace
