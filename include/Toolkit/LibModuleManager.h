/// @file
/// The registry of the modules that are loaded in the process.
#ifndef TOOLKIT_LIBMODULEMANAGER_H
#define TOOLKIT_LIBMODULEMANAGER_H

#include <vector>

#include "Toolkit/Export.h"
#include "Toolkit/LibModule.h"
#include "Toolkit/Mutex.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

/// Knows every registered module. It owns none of them. All operations may be called from several threads.
class TOOLKIT_API LibModuleManager {
public:
    /// The process-wide manager, valid before the static construction of any library that uses it.
    static smart_ptr<LibModuleManager>* s_pInstance;

    LibModuleManager();
    ~LibModuleManager();
    LibModuleManager(const LibModuleManager&) = delete;
    LibModuleManager& operator=(const LibModuleManager&) = delete;

    /// Adds a module and calls its Initialize(). Returns false, and changes nothing, for null and for a
    /// module that is registered already. An exception from Initialize() leaves the module unregistered.
    /// The module counts as registered while Initialize() runs.
    bool Register(LibModule* pModule);

    /// Removes a module and calls its Release(). Returns false, and does not touch the object, for a module
    /// that is not registered.
    bool Unregister(LibModule* pModule);

    /// Whether the module is registered; the object is not touched.
    bool IsRegistered(const LibModule* pModule) const;

private:
    mutable Mutex m_Mutex;
    std::vector<LibModule*> m_Modules; ///< in order of registration
};

} // namespace Toolkit

#endif
