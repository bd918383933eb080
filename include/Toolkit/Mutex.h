/// @file
/// The polymorphic mutex.
#ifndef TOOLKIT_MUTEX_H
#define TOOLKIT_MUTEX_H

#include "Toolkit/Export.h"
#include "Toolkit/MutexInternal.h"

namespace Toolkit {

/// A MutexInternal that can be destroyed through a pointer to it; otherwise the same in every respect.
class TOOLKIT_API Mutex : public MutexInternal {
public:
    using MutexInternal::MutexInternal;
    virtual ~Mutex() = default;
};

} // namespace Toolkit

#endif
