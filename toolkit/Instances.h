// The objects that live as long as the library.
#ifndef TOOLKIT_INSTANCES_H
#define TOOLKIT_INSTANCES_H

#include "LineLock.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/SystemInfo.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

/// Made when the library is loaded, before the static construction of every library and program that needs
/// it, and destroyed when it is unloaded. At exit that is after the destructors of all static objects of the
/// program, which a static object of this library would not outlive when it was loaded late. The last member
/// is destroyed first: whatever logs goes before the logger, and the logger before the lock that it uses.
struct Instances {
    LineLock m_LineLock;
    smart_ptr<ILogger> m_Logger;
    smart_ptr<SystemInfo> m_SystemInfo;
    smart_ptr<LibModuleManager> m_LibModuleManager;

    Instances();

    /// In a child of fork(), where one thread goes on alone: what another one held, it would hold for ever.
    void RenewLocks();

    static Instances* s_pInstances;

private:
    template <class T>
    static void RenewLock(smart_ptr<T>& shared);
};

} // namespace Toolkit

#endif
