#include "Toolkit/LibModuleManager.h"

#include <algorithm>

namespace Toolkit {
namespace {

/// Holds a mutex for as long as it lives.
class Guard {
public:
    explicit Guard(MutexInternal& mutex) : m_Mutex(mutex) { m_Mutex.Lock(c_waitForever); }
    ~Guard() { m_Mutex.Unlock(); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

private:
    MutexInternal& m_Mutex;
};

} // namespace

LibModuleManager::LibModuleManager() : m_Mutex(false) {}
LibModuleManager::~LibModuleManager() = default;

// Modules are called without the lock, so that they may use the manager themselves.

bool LibModuleManager::Register(LibModule* pModule) {
    if (pModule == nullptr)
        return false;
    {
        const Guard guard(m_Mutex);
        if (std::find(m_Modules.begin(), m_Modules.end(), pModule) != m_Modules.end())
            return false;
        m_Modules.push_back(pModule);
    }
    try {
        pModule->Initialize();
    } catch (...) {
        const Guard guard(m_Mutex);
        std::erase(m_Modules, pModule);
        throw;
    }
    return true;
}

bool LibModuleManager::Unregister(LibModule* pModule) {
    {
        const Guard guard(m_Mutex);
        if (std::erase(m_Modules, pModule) == 0)
            return false;
    }
    pModule->Release();
    return true;
}

bool LibModuleManager::IsRegistered(const LibModule* pModule) const {
    const Guard guard(m_Mutex);
    return std::find(m_Modules.begin(), m_Modules.end(), pModule) != m_Modules.end();
}

} // namespace Toolkit
