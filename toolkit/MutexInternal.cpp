#include "Toolkit/MutexInternal.h"

#include <chrono>

#include "Toolkit/smart_ptr.h"

namespace Toolkit {
namespace {

#ifdef __SANITIZE_THREAD__
using WaitClock = std::chrono::system_clock; // the sanitizer does not see locks that wait on the steady clock
#else
using WaitClock = std::chrono::steady_clock; // a clock that is set does not change the wait
#endif

template <class M>
bool LockWithin(M& mutex, unsigned int timeout) {
    if (timeout == 0)
        return mutex.try_lock();
    if (timeout != c_waitForever)
        return mutex.try_lock_until(WaitClock::now() + std::chrono::milliseconds(timeout));
    mutex.lock();
    return true;
}

} // namespace

MutexInternal::MutexInternal(bool recursive) {
    if (recursive)
        m_Mutex.emplace<std::recursive_timed_mutex>();
}

MutexInternal::~MutexInternal() = default;

int MutexInternal::Lock(unsigned int timeout) {
    return std::visit([timeout](auto& mutex) { return LockWithin(mutex, timeout); }, m_Mutex) ? 1 : 0;
}

void MutexInternal::Unlock() {
    std::visit([](auto& mutex) { mutex.unlock(); }, m_Mutex);
}

} // namespace Toolkit
