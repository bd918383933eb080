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

// Apart from Lock(), whose usual way needs no guard of the stack: the end of the wait stands there.
template <class M>
[[gnu::noinline]] int LockWithin(M& mutex, unsigned int timeout) {
    if (timeout == 0)
        return mutex.try_lock() ? 1 : 0;
    if (timeout != c_waitForever)
        return mutex.try_lock_until(WaitClock::now() + std::chrono::milliseconds(timeout)) ? 1 : 0;
    mutex.lock();
    return 1;
}

} // namespace

MutexInternal::MutexInternal(bool recursive) {
    if (recursive)
        m_Mutex.emplace<std::recursive_timed_mutex>();
}

MutexInternal::~MutexInternal() = default;

int MutexInternal::Lock(unsigned int timeout) {
    auto* const pPlain = std::get_if<std::timed_mutex>(&m_Mutex);
    if (pPlain != nullptr && timeout == c_waitForever) { // as every share is taken
        pPlain->lock();
        return 1;
    }
    return pPlain != nullptr ? LockWithin(*pPlain, timeout)
                             : LockWithin(*std::get_if<std::recursive_timed_mutex>(&m_Mutex), timeout);
}

void MutexInternal::Unlock() {
    if (auto* const pPlain = std::get_if<std::timed_mutex>(&m_Mutex))
        pPlain->unlock();
    else
        std::get_if<std::recursive_timed_mutex>(&m_Mutex)->unlock();
}

} // namespace Toolkit
