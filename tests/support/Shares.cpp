#include "support/Shares.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "Toolkit/MutexInternal.h"
#include "Toolkit/SystemInfo.h"
#include "support/Octets.h"

namespace tests {

ByteOrder s_byteOrder;

namespace {

const Toolkit::ReferenceBlock* s_pBlock = nullptr;
const Watch* s_pWatch = nullptr;

bool IsWatched(const Toolkit::MutexInternal* mutex) {
    return s_pWatch != nullptr && mutex == &s_pBlock->m_Mutex;
}

} // namespace

void Watch::Begin(const Toolkit::ReferenceBlock* pBlock) {
    s_pBlock = pBlock;
    s_pWatch = this;
}

Watch::~Watch() {
    s_pWatch = nullptr;
    EXPECT_EQ(m_Locks, m_Unlocks);
}

} // namespace tests

int Toolkit::SystemInfo::GetEndian() {
    ++tests::s_byteOrder.m_Asked;
    tests::s_byteOrder.m_FewestShares =
        std::min(tests::s_byteOrder.m_FewestShares, tests::CountOf(*s_pInstance));
    return tests::s_byteOrder.m_Answer;
}

int Toolkit::MutexInternal::Lock(unsigned int timeout) {
    if (tests::s_pWatch != nullptr)
        tests::s_pWatch->m_WaitedForever = tests::s_pWatch->m_WaitedForever && timeout == c_waitForever;
    if (tests::IsWatched(this))
        ++tests::s_pWatch->m_Locks;
    return 1;
}

void Toolkit::MutexInternal::Unlock() {
    if (!tests::IsWatched(this))
        return;
    ++tests::s_pWatch->m_Unlocks;
    tests::s_pWatch->m_MostShares = std::max(tests::s_pWatch->m_MostShares, tests::s_pBlock->m_Count);
}
