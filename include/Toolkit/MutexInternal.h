/// @file
/// The mutex primitive of the support library.
#ifndef TOOLKIT_MUTEXINTERNAL_H
#define TOOLKIT_MUTEXINTERNAL_H

#include <mutex>
#include <variant>

#include "Toolkit/Export.h"

namespace Toolkit {

/// A mutex whose wait can be limited. Any thread may call any operation; the object must outlive every
/// thread that holds or awaits it. It is neither copied nor moved and allocates nothing.
class TOOLKIT_API MutexInternal {
public:
    /// `recursive` true lets the thread that holds the mutex take it again; each Lock() then needs an
    /// Unlock() of its own. With false, a thread that takes the mutex twice waits for itself.
    explicit MutexInternal(bool recursive);
    ~MutexInternal();
    MutexInternal(const MutexInternal&) = delete;
    MutexInternal& operator=(const MutexInternal&) = delete;

    /// Takes the mutex, waiting at most `timeout` milliseconds; 0 only tries, 0xFFFFFFFF waits without
    /// limit. Returns 1 when the mutex was taken, 0 when the time was over first.
    int Lock(unsigned int timeout);

    /// Releases the mutex. REQUIRES: the calling thread holds it.
    void Unlock();

private:
    std::variant<std::timed_mutex, std::recursive_timed_mutex> m_Mutex;
};

} // namespace Toolkit

#endif
